#pragma once

#include <string>
#include <vector>

#include <lwconfig/checking/known_names.h>
#include <lwconfig/core/loading/inspection.h>

namespace lwconfig {

/// The phrases, or the scraps, of a template in all its languages.
class TemplateTexts {
 public:
  /// The display name of one of the texts, and the folder that they are in.
  struct Sort {
    const char* What;
    const char* Folder;
  };
  static constexpr Sort kPhrases{"phrase", "Phrases"};
  static constexpr Sort kScraps{"scrap", "HTMLScraps"};

  /// Loads the texts below the template's folder while the inspection is under way. `kind` must outlive them.
  TemplateTexts(const Inspection& inspection, const std::string& rootFolder, const Sort& kind);

  const Sort& Kind() const { return mKind; }
  /// The names that at least one language has.
  const NameSet& Names() const { return mNames; }
  /// Reports texts that one language has and another lacks. A file with errors is not compared.
  void CompareLanguages(Inspection& inspection) const;

 private:
  struct Language {
    std::string Name;
    std::string File;
    NameSet Names;
  };
  const Sort& mKind;
  std::vector<Language> mCompared;
  NameSet mNames;
};

}  // namespace lwconfig
