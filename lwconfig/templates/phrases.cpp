#include <algorithm>
#include <utility>

#include <lwconfig/core/attribute_reader.h>
#include <lwconfig/core/disk_file.h>
#include <lwconfig/core/file_name.h>
#include <lwconfig/core/string_tools.h>
#include <lwconfig/core/text.h>
#include <lwconfig/core/xml_document.h>
#include <lwconfig/templates/phrases.h>

namespace lwconfig {
namespace {

/// Calls `add(name, text)` for every entry of an XML document.
template <class Add>
void ReadDocument(const DiskFile& file, std::string text, Add add) {
  XMLDocument document;
  document.LoadXMLWithOption(std::move(text), true, file.FullPath());
  document.TellParseFailure();
  ForEachChild(document.RootElement(), [&](const XMLElement& child) {
    AttributeReader in(child);
    std::string name;
    in.Require("name", name);
    add(name, child.Text());
  });
}

/// Calls `add(name, text)` for every line, "name~text". A further "~" ends the text.
template <class Add>
void ReadLines(std::string_view text, Add add) {
  for (auto line : Split(text, "\r\n")) {
    if (line.empty()) continue;
    const auto name = line.substr(0, line.find('~'));
    line.remove_prefix(std::min(name.size() + 1, line.size()));
    add(name, line.substr(0, line.find('~')));
  }
}

enum class Keep { Texts, Names };

void ReadEntries(const DiskFile& file, Keep keep, Collection& entries) {
  if (!file.Exists()) return;
  std::string text = file.ReadAll();
  const auto add = [&](std::string_view name, std::string_view entry) {
    if (!name.empty() && !StringTools::KeyExists(entries, name))
      entries.Add(std::string(keep == Keep::Names ? name : entry), name);
  };
  if (text.starts_with("<?xml")) {
    ReadDocument(file, std::move(text), add);
  } else {
    ReadLines(text, add);
  }
}

DiskFile FileOf(std::string_view rootFolder, std::string_view folder, std::string_view language) {
  CheckBaseName(language);
  return DiskFile(std::string(rootFolder).append(folder), language, "txt");
}

}  // namespace

void LanguageTexts::SetTexts(std::shared_ptr<Collection> texts) {
  mTexts = std::move(texts);
  mIncomplete = false;
}

const std::string* LanguageTexts::Find(std::string_view name) const {
  return mTexts ? mTexts->Item(name) : nullptr;
}

void LanguageTexts::Load(std::string_view rootFolder, std::string_view language) {
  if (mTexts && !mIncomplete && language == mLoadedLanguage) return;
  const DiskFile file = FileOf(rootFolder, mFolder, language);
  mTexts = std::make_shared<Collection>();
  mIncomplete = true;
  ReadEntries(file, Keep::Texts, *mTexts);
  mIncomplete = false;
  mLoadedLanguage = language;
}

std::shared_ptr<Collection> LanguageTexts::Names(std::string_view rootFolder) const {
  auto names = std::make_shared<Collection>();
  ReadEntries(FileOf(rootFolder, mFolder, mLoadedLanguage), Keep::Names, *names);
  return names;
}

}  // namespace lwconfig
