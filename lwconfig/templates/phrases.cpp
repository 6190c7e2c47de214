#include <algorithm>
#include <utility>

#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/file_name.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/core/xml/xml_document.h>
#include <lwconfig/templates/phrases.h>

namespace lwconfig {
namespace {

constexpr std::string_view kExtension = "txt";
constexpr std::string_view kNameless = "the text is left out: it has no name";

// A file of phrases or scraps, in one of two forms. Both hold the text "Contents" under the name "Title".
//
//   Title~Contents\r\n             the text is between the first and the second "~" of the line
//   Index~Index of terms\r\n
//
//   <?xml version="1.0"?>
//   <Phrases>                     elements of any name; the text may contain markup
//     <Phrase name="Title">Contents</Phrase>
//   </Phrases>

/// Takes the entries of one file, the first of each name.
class EntryReader {
 public:
  enum class Keep { Texts, Names };
  EntryReader(const DiskFile& file, Keep keep, Collection& entries)
      : mFile(file), mKeep(keep), mEntries(entries), mReportsLines(IsWanted(Problem::MalformedLine)) {}

  void Read() {
    if (!mFile.Exists()) return;
    LoadListener::Current().BeginFile(mFile.FullPath());
    RunStep([this] { ReadText(); }, [this] { return FilePosition{mFile.FullPath(), 0, 0}; });
  }

 private:
  void ReadText() {
    std::string doubt;
    std::string text = mFile.ReadAll(IsWanted(Problem::DoubtfulEncoding) ? &doubt : nullptr);
    if (!doubt.empty()) Report(Problem::DoubtfulEncoding, {mFile.FullPath(), 1, 1}, doubt);
    if (text.starts_with("<?xml")) return ReadDocument(std::move(text));
    ReadLines(text);
    LoadListener::Current().EndText(mFile.FullPath(), text);
  }

  void ReadDocument(std::string text) {
    XMLDocument document;
    document.LoadXMLWithOption(std::move(text), true, mFile.FullPath(), LoadListener::Current().Observe());
    ReportParseFailure(document);
    const XMLElement root = document.RootElement();
    ForEachChild(root, [&](const XMLElement& child) {
      AttributeReader in(child);
      std::string name;
      in.Require("name", name);
      const bool isNew = Add(name, child.Text());
      if (name.empty()) Report(Problem::EmptyName, child, "name", kNameless);
      if (!isNew) Report(Problem::DuplicateName, child, "name", Repeated(name));
    });
    LoadListener::Current().EndFile(root);
  }

  /// Reads one entry a line, "name~text". A further "~" terminates the text.
  void ReadLines(std::string_view text) {
    std::int32_t number = 0;
    for (auto line : Split(text, "\r\n")) {
      ++number;
      if (line.empty()) continue;
      const std::string_view whole = line;
      const auto name = line.substr(0, line.find('~'));
      line.remove_prefix(std::min(name.size() + 1, line.size()));
      const bool isNew = Add(name, line.substr(0, line.find('~')));
      if (mReportsLines) ReportLine(number, whole, isNew);
    }
  }

  /// False where an entry of the name is present.
  bool Add(std::string_view name, std::string_view entry) {
    if (name.empty()) return true;
    if (StringTools::KeyExists(mEntries, name)) return false;
    mEntries.Add(std::string(mKeep == Keep::Names ? name : entry), name);
    return true;
  }

  void ReportLine(std::int32_t number, std::string_view line, bool isNew) {
    const auto report = [&](Problem problem, std::string_view message) {
      Report(problem, {mFile.FullPath(), number, 1}, message);
    };
    const auto count = std::count(line.begin(), line.end(), '~');
    if (line.find('\n') != std::string_view::npos) {
      report(
          Problem::LineEnds,
          "lines that end in a line feed alone are one line; a line ends in carriage return and line feed");
    } else if (line.starts_with('~')) {
      report(Problem::MalformedLine, kNameless);
    } else if (count != 1) {
      report(Problem::MalformedLine, count == 0 ? "the line has no \"~\": all of it is a name, without a text"
                                                : "the text ends at the second \"~\"");
    }
    if (!isNew) report(Problem::DuplicateName, Repeated(line.substr(0, line.find('~'))));
  }

  static std::string Repeated(std::string_view name) {
    return "the name \"" + std::string(name) + "\" appears earlier; only the first text counts";
  }

  const DiskFile& mFile;
  const Keep mKeep;
  Collection& mEntries;
  const bool mReportsLines;
};

DiskFile FileOf(std::string_view rootFolder, std::string_view folder, std::string_view language) {
  DiskFile file(std::string(rootFolder).append(folder), language, kExtension);
  CheckStaysBelow(file.FileName());
  return file;
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
  EntryReader(file, EntryReader::Keep::Texts, *mTexts).Read();
  mIncomplete = false;
  mLoadedLanguage = language;
}

std::vector<std::string> LanguageTexts::Languages(std::string_view rootFolder) const {
  std::vector<std::string> languages;
  for (const auto& entry : ListFolder(std::string(rootFolder).append(mFolder))) {
    const DiskFile file(entry.Name);
    const bool isText = EqualIgnoringCase(file.Extension(), kExtension);
    if (isText && entry.Kind == platform::EntryKind::File && !entry.IsHidden)
      languages.push_back(file.BaseName());
  }
  return languages;
}

std::shared_ptr<Collection> LanguageTexts::Names(std::string_view rootFolder) const {
  auto names = std::make_shared<Collection>();
  EntryReader(FileOf(rootFolder, mFolder, mLoadedLanguage), EntryReader::Keep::Names, *names).Read();
  return names;
}

}  // namespace lwconfig
