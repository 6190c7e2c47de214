#include <filesystem>
#include <functional>
#include <memory>

#include <tests/configuration.h>
#include <tests/language_element.h>

#include <lwconfig/comments/comment_file_locations.h>
#include <lwconfig/comments/model_comment_profiles.h>
#include <lwconfig/comments/tagged_comment_defs.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/externaldocs/external_docs.h>
#include <lwconfig/namespaces/language.h>
#include <lwconfig/namespaces/namespace_profiles.h>
#include <lwconfig/namespaces/plug_in.h>
#include <lwconfig/templates/page_templates.h>

namespace lwconfig::testing {
namespace {

using Names = std::vector<std::string>;

/// What reads a file, the names of the items that it then holds, and what writes the file again, if anything.
struct Reader {
  std::function<void()> Load;
  std::function<Names()> Loaded;
  std::function<void()> Save{};
};

template <class Set, auto Load, auto Loaded, auto Save = nullptr>
Reader Open() {
  const auto set = std::make_shared<Set>();
  Reader reader{[=] { std::invoke(Load, *set); }, [=] { return Loaded(*set); }};
  if constexpr (Save != nullptr) reader.Save = [=] { std::invoke(Save, *set); };
  return reader;
}
template <auto Name>
constexpr auto kNames = [](const auto& set) { return Each(set, Name); };
/// The names of the items in the sets that could be loaded.
template <auto ItemsOf, auto Name>
constexpr auto kNamesInSets = [](const auto& sets) {
  Names all;
  for (const auto& set : sets) std::ranges::copy(Each(ItemsOf(*set), Name), std::back_inserter(all));
  return all;
};
constexpr auto kItself = [](const auto& set) -> const auto& {
  return set;
};
constexpr auto kVariables = [](const PageTemplate& set) -> const auto& {
  return *set.VariableDefs;
};

constexpr auto OpenTags = Open<TaggedCommentDefs, &TaggedCommentDefs::Load,
                               kNames<&TaggedCommentDef::TagIdentifier>, &TaggedCommentDefs::Save>;
constexpr auto OpenComments = Open<ModelComments, &ModelComments::LoadGlobal,
                                   kNames<&ModelComment::MemberName>, &ModelComments::SaveToGlobal>;
constexpr auto OpenProfiles =
    Open<ModelCommentProfiles, &ModelCommentProfiles::Load, kNamesInSets<kItself, &ModelComment::MemberName>,
         &ModelCommentProfiles::Save>;
constexpr auto OpenCommentFiles =
    Open<CommentFileLocations, &CommentFileLocations::Load, kNames<&CommentFileLocation::AssemblyFileName>,
         &CommentFileLocations::Save>;
constexpr auto OpenDocs =
    Open<ExternalDocs, &ExternalDocs::Load, kNames<&ExternalDoc::NamespaceName>, &ExternalDocs::Save>;
constexpr auto OpenPlugIns = Open<PlugIns, &PlugIns::Load, kNames<&PlugIn::Name>>;
constexpr auto OpenNamespaces =
    Open<NamespaceProfiles, &NamespaceProfiles::Load, kNamesInSets<kItself, &NamespaceDef::Name>>;
constexpr auto OpenPages = Open<PageTemplates, &PageTemplates::Load,
                                kNamesInSets<kVariables, &VariableDef::Name>, &PageTemplates::Save>;
Reader OpenLanguages() {
  return {[] { Languages::Shared(); }, [] { return Each(*Languages::Shared(), &Language::Name); }};
}
template <const std::shared_ptr<Collection>& (PageTemplate::*Entries)() const>
Reader OpenTexts() {
  const auto pageTemplate = std::make_shared<PageTemplate>();
  pageTemplate->RootFolder = ConfigPath() + "\\Templates\\T\\";
  const auto names = [=] {
    const auto& texts = *((*pageTemplate).*Entries)();
    Names keys;
    for (std::int32_t at = 1; at <= texts.Count(); ++at) keys.push_back(texts.KeyAt(at));
    return keys;
  };
  return {[=] { pageTemplate->LoadPhrasesAndScraps("L"); }, names};
}

struct Format {
  const char* File;
  Reader (*Open)();
  const char* Root;  // the root element's name and attributes; null for lines of "name~text"
  const char* Tag;
  const char* Name;      // the attribute that holds an item's name
  const char* Required;  // the required attributes in the order in which they are read
  Names OfSameName;      // what is loaded of the items A, B and a
  int OfSameNameError = 0;
  bool NeedsRoot = false;  // a file without a root element is an error
  bool IsWhole = false;    // nothing is kept of a file with an item that cannot be loaded

  std::string Item(const std::string& name, std::size_t attributes = std::string::npos) const {
    if (Root == nullptr) return name + "~text\r\n";
    std::string element = std::string("<") + Tag;
    for (const auto attribute : Split(Required, " ")) {
      if (attributes-- == 0) break;
      (element += ' ').append(attribute) += attribute == Name ? "='" + name + "'" : "='2'";
    }
    return element + "/>\n";
  }
  /// The items in one line each, from line 2.
  std::string Document(const std::string& items, const std::string& encoding = "UTF-8") const {
    if (Root == nullptr) return items;
    const std::string root = Root;
    return "<?xml version='1.0' encoding='" + encoding + "'?><" + root + ">\n" + items + "</" +
           root.substr(0, root.find(' ')) + ">";
  }
};

constexpr const char* kTag = "Hidden Identifier Elementtype Description Format General WrapType";
constexpr const char* kModel = "MemberType_Namespace MemberName TaggedCommentPrefix TaggedCommentText";
constexpr const char* kLocation = "AssemblyFileName CommentFilePath";
constexpr const char* kSet = "ModelCommentProfile Name='P' Description='d'";
constexpr const char* kSpace = "Name Handler Caption";
constexpr const char* kDef = "Name Description";
constexpr const char* kPlugIn =
    "Name Description ExtendsWizard WizardProgID ExtendsContent ContentProgID ExtendsTableOfContents "
    "TableOfContentsProgID";

const Format kFormats[] = {
    {"taggedcomments_standard.xml", OpenTags, "x", "t", "Identifier", kTag, {"B", "a"}},
    {"taggedcomments_custom.xml", OpenTags, "x", "t", "Identifier", kTag, {"B", "a"}},
    {"taggedcomments.xml", OpenTags, "x", "t", "Identifier", kTag, {"B", "a"}},
    {"modelcomments.xml", OpenComments, kSet, "MC", "MemberName", kModel, {"A", "B", "a"}, 0, true},
    {"modelcomments/P.xml", OpenProfiles, kSet, "MC", "MemberName", kModel, {"A", "B", "a"}, 0, true, true},
    {"CommentFileLocations.xml", OpenCommentFiles, "x", "f", "AssemblyFileName", kLocation, {"A", "B", "a"}},
    {"languages.xml", OpenLanguages, "x", "Language", "Name", kLanguageWords, {"A", "B"}, kDuplicateKey},
    {"ExternalDocs.xml", OpenDocs, "x", "ExternalDoc", "Namespace", "Namespace", {"A", "B"}, kDuplicateKey},
    {"PlugIns/P.xml", OpenPlugIns, "x", "PlugIn", "Name", kPlugIn, {"A", "B", "a"}},
    {"Namespaces/N.xml", OpenNamespaces, "x", "lwnamespace", "Name", kSpace, {}, kDuplicateKey, false, true},
    {"Templates/T/config.xml", OpenPages, kSet, "VariableDef", "Name", kDef, {}, kDuplicateKey, true, true},
    {"Templates/T/Phrases/L.txt", OpenTexts<&PageTemplate::Phrases>, "x", "p", "name", "name", {"A", "B"}},
    {"Templates/T/HTMLScraps/L.txt", OpenTexts<&PageTemplate::Scraps>, "x", "p", "name", "name", {"A", "B"}},
    {"Templates/T/Phrases/L.txt", OpenTexts<&PageTemplate::Phrases>, nullptr, "", "", "", {"A", "B"}},
    {"Templates/T/HTMLScraps/L.txt", OpenTexts<&PageTemplate::Scraps>, nullptr, "", "", "", {"A", "B"}},
};

/// What is expected of one file. The place is that of the error or, where there is none, of the diagnostic;
/// none for line 0.
struct Row {
  std::string Damage;
  std::string Content;
  Names Loaded;
  int Number = 0;  // of the error
  int Line = 0;
  int Column = 0;
  std::string Message{};
  bool Saves = true;
};

std::string Utf16(std::string_view latin) {
  std::string text = "\xff\xfe";
  for (const char c : latin) text += {c, '\0'};
  return text;
}

/// The file of the items A and B, cut at each of its bytes. Only a few are saved, since that takes long.
std::vector<Row> CutsOf(const Format& format, const std::string& whole) {
  constexpr std::size_t kSavedStep = 120;
  const bool isText = std::string_view(format.File).ends_with(".txt");
  std::vector<Row> rows;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    Row row{"cut", whole.substr(0, length), {}};
    row.Saves = length % kSavedStep == 0;
    for (const char* name : {"A", "B"}) {
      const std::string item = format.Item(name);
      // An element counts once its start tag is finished, a line once it has a name.
      const std::size_t needed = format.Root == nullptr ? 1 : item.size() - 1;
      if (length >= whole.find(item) + needed) row.Loaded.emplace_back(name);
    }
    if (isText && length > 0 && whole.starts_with("<?xml") && length < 5) {
      row.Loaded = {row.Content};  // a line of text
    } else if (format.NeedsRoot && length < whole.find('\n')) {
      row.Number = kInvalidCall;
      row.Line = 1;
    } else if (format.Root != nullptr && length < whole.size() && (length > 0 || !isText)) {
      // The last character is where the text goes wrong.
      row.Line = 1 + static_cast<int>(std::ranges::count(row.Content.substr(0, length - 1), '\n'));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<Row> RowsOf(const Format& format) {
  const std::string a = format.Item("A");
  const std::string b = format.Item("B");
  const std::string odd = format.Item("\xdc") + b;  // in Windows-1252
  const int unusable = format.NeedsRoot ? kInvalidCall : 0;
  std::vector<Row> rows = CutsOf(format, format.Document(a + b));
  rows.push_back({"Windows-1252", format.Document(odd, "Windows-1252"), {"Ü", "B"}});
  rows.push_back({"UTF-16", Utf16(format.Document(odd, "UTF-16")), {"Ü", "B"}});
  const int fault = format.OfSameNameError != 0 ? 4 : 0;
  rows.push_back({"same name", format.Document(a + b + format.Item("a")), format.OfSameName,
                  format.OfSameNameError, fault, fault / 2});
  if (format.Root == nullptr) return rows;
  rows.push_back({"no XML", "<?xml no document", {}, unusable, 1, unusable == 0 ? 0 : 1});
  const auto required = Split(format.Required, " ");
  for (std::size_t missing = 0; missing < required.size(); ++missing) {
    // The attributes after the missing one are missing too, so that the message tells the order of reading.
    const std::string faulty = format.Item("Z", missing);
    const std::string message =
        "needs the attribute \"" + std::string(required[missing]) + "\": it is missing";
    const auto add = [&](const char* place, const std::string& items, int line, Names before) {
      if (format.IsWhole) before.clear();
      rows.push_back(
          {place + message, format.Document(items), std::move(before), kInvalidCall, line, 2, message});
    };
    add("in the middle: ", a + faulty + b, 3, {"A"});
    if (missing > 0) continue;
    add("first: ", faulty + a + b, 2, {});
    add("last: ", a + b + faulty, 4, {"A", "B"});
  }
  return rows;
}

class DamagedFiles : public ConfigurationTest {
 protected:
  /// How many files of the configuration have this content.
  auto CopiesOf(const std::string& content) const {
    const auto all = std::filesystem::recursive_directory_iterator(Folder.Path());
    return std::ranges::count_if(all, [&](const auto& entry) {
      return entry.is_regular_file() &&
             Folder.Read(std::filesystem::relative(entry.path(), Folder.Path()).string()) == content;
    });
  }
  /// Removes all files; removing their folders too would take longer.
  void Begin(const Format& format) {
    ResetSharedSlots();
    Diagnostics.clear();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Folder.Path()))
      if (entry.is_regular_file()) std::filesystem::remove(entry.path());
    if (std::string_view(format.File) == "taggedcomments_custom.xml")
      Write("taggedcomments_standard.xml", "<x/>");
  }
  void Check(const Format& format, const Row& row) {
    Write(format.File, row.Content);
    const Reader reader = format.Open();
    FilePosition place;
    if (row.Number != 0) {
      const auto failure = ErrorOf(reader.Load);
      EXPECT_EQ(failure.Number(), row.Number) << failure.what();
      EXPECT_THAT(failure.Description(), HasSubstr(row.Message));
      place = failure.Position();
    } else {
      reader.Load();
      EXPECT_EQ(Diagnostics.size(), row.Line > 0 ? 1U : 0U);
      if (!Diagnostics.empty()) place = Diagnostics.front().Position;
    }
    EXPECT_EQ(place.Line, row.Line);
    EXPECT_TRUE(row.Column == 0 || place.Column == row.Column) << place.Column;
    EXPECT_EQ(place.File, row.Line > 0 ? Product(Folder.Path() / "Config" / format.File) : "");
    EXPECT_EQ(reader.Loaded(), row.Loaded);
    if (!row.Saves || !reader.Save) return;
    reader.Save();
    EXPECT_TRUE(row.Line == 0 || CopiesOf(row.Content) == 1) << "what was not read is lost, or kept twice";

    ResetSharedSlots();
    if (row.Number != 0) return;
    const Reader again = format.Open();
    again.Load();
    EXPECT_EQ(again.Loaded(), row.Loaded) << "after saving";
  }
};

TEST_F(DamagedFiles, LoadAsFarAsTheyGoAndAreNotLost) {
  for (const Format& format : kFormats) {
    for (const Row& row : RowsOf(format)) {
      SCOPED_TRACE(std::string(format.File) + ", " + row.Damage + ":\n" + row.Content);
      Begin(format);
      Check(format, row);
    }
    SCOPED_TRACE(std::string(format.File) + ", missing");
    Begin(format);
    const Reader reader = format.Open();
    if (std::string_view(format.File) == "modelcomments.xml") {
      EXPECT_EQ(ErrorOf(reader.Load).Number(), kInvalidCall);
    } else {
      reader.Load();
    }
    EXPECT_EQ(reader.Loaded(), Names());
    EXPECT_TRUE(Diagnostics.empty());
  }
}

TEST_F(DamagedFiles, AreNotMadeByAFailingSave) {
  for (const Format& format : kFormats) {
    const std::string content = format.Document(format.Item("A"));
    Begin(format);
    Write(format.File, content);
    const Reader reader = format.Open();
    reader.Load();
    Files.Fail(FileOperation::Commit, ".xml", ENOSPC);
    if (reader.Save) {
      EXPECT_ERROR(kPathFileAccess, reader.Save()) << format.File;
    }
    EXPECT_EQ(Read(format.File), content) << format.File;
    Files.Heal();
  }
}

TEST_F(DamagedFiles, ThatAFailureLeavesUnreadAreNotLostEither) {
  const Format& format = kFormats[0];
  const std::string standard = format.Document(format.Item("S"));
  Write("taggedcomments_standard.xml", standard);
  Write("taggedcomments_custom.xml", "<x><t/></x>");
  TaggedCommentDefs definitions;
  EXPECT_ERROR(kInvalidCall, definitions.Load());
  definitions.Save();
  EXPECT_EQ(CopiesOf(standard), 1);

  Write("ExternalDocs.xml", "<x><ExternalDoc Namespace='A'/></x>");
  Files.Fail(FileOperation::Read, "ExternalDocs.xml", EIO);
  ExternalDocs docs;
  EXPECT_ERROR(kPathFileAccess, docs.Load());
  EXPECT_ERROR(kPathFileAccess, docs.Save()) << "there is no copy, so nothing is written";
  EXPECT_EQ(Read("ExternalDocs.xml"), "<x><ExternalDoc Namespace='A'/></x>");
}

TEST_F(DamagedFiles, AreCopiedOnceEachUnderANameOfTheirOwn) {
  const std::string cut = "<x><f AssemblyFileName='A' CommentFilePath=''/><f";
  CommentFileLocations locations;
  for (const std::string copy : {".damaged", ".damaged-2"}) {
    Write("CommentFileLocations.xml", cut);
    locations.Load();
    locations.Save();
    locations.Save();
    EXPECT_EQ(Read("CommentFileLocations.xml" + copy), cut);
  }
  locations.Load();
  locations.Save();
  EXPECT_EQ(CopiesOf(cut), 2);
}

}  // namespace
}  // namespace lwconfig::testing
