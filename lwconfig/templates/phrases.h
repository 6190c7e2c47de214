#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/base/keyed_collection.h>

namespace lwconfig {

/// The texts of one output language in a folder of a page template, its phrases or its scraps, filed under
/// their names; of several with one name the first. The file of a language is an XML document or has one
/// text per line.
class LanguageTexts {
 public:
  /// `folder` names the folder below the template's.
  explicit LanguageTexts(std::string_view folder) : mFolder(folder) {}

  /// The texts; null before the first load.
  const std::shared_ptr<Collection>& Texts() const { return mTexts; }
  /// Replaces the texts; the loaded language does not change.
  void SetTexts(std::shared_ptr<Collection> texts);
  /// The text of that name, or null; valid until the texts change.
  const std::string* Find(std::string_view name) const;

  const std::string& LoadedLanguage() const { return mLoadedLanguage; }
  /// Loads the texts of a language, the base name of its file, unless it is the loaded one (letter case
  /// counts); none where it has no file. Error 52 for a language that leads out of the folder. A failure,
  /// such as an element without a name (error 5), stops the load: the texts before it are kept, but the next
  /// load starts anew.
  void Load(std::string_view rootFolder, std::string_view language);
  /// The languages with a file, in the order of the listing, without hidden files.
  std::vector<std::string> Languages(std::string_view rootFolder) const;
  /// The names in the file of the loaded language, each filed under itself, in the current state of the file.
  std::shared_ptr<Collection> Names(std::string_view rootFolder) const;

 private:
  std::string mFolder;
  std::shared_ptr<Collection> mTexts;
  std::string mLoadedLanguage;
  bool mIncomplete = false;  // only a part was loaded, of another language than the loaded one
};

}  // namespace lwconfig
