#include <optional>
#include <string>
#include <vector>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/loading/attribute_reader.h>

namespace lwconfig {
namespace {

struct NodePlace {
  XMLElement Element;
  std::string Key;
  std::string ParentKey;
};

/// The nodes directly below an element, and the links between them.
class NodeTree {
 public:
  explicit NodeTree(const XMLElement& owner) {
    for (const XMLElement child : owner.Children()) {
      if (child.Name() != "NodeDef") continue;
      AttributeReader in(child);
      const char* key = in.Find("Key");
      const char* parentKey = in.Find("ParentKey");
      if (key == nullptr || *key == '\0' || mPlaces.Find(key) != nullptr) continue;
      mPlaces.Add(mNodes.size(), key);
      mNodes.push_back({child, key, parentKey != nullptr ? parentKey : ""});
    }
  }

  bool Empty() const { return mNodes.empty(); }

  void Check(Inspection& inspection) const {
    for (const NodePlace& node : mNodes) {
      if (node.ParentKey.empty() || mPlaces.Find(node.ParentKey) != nullptr) continue;
      inspection.Report(Problem::UnknownParent, node.Element, "ParentKey",
                        "there is no node \"" + node.ParentKey + "\" here; the node becomes a root node");
    }
  }

 private:
  std::vector<NodePlace> mNodes;
  KeyedList<std::size_t> mPlaces;
};

class TemplateCheck {
 public:
  explicit TemplateCheck(const RuleInput& input)
      : mInspection(input.Inspection), mRoot(input.Root), mFolder(DiskFile(input.File).FolderPath()) {}

  void Run() {
    CheckNodes();
    CheckContents();
    AttributeReader in(mRoot);
    if (const char* sheet = in.Find("StyleSheet"); sheet != nullptr && *sheet != '\0') CheckStyleSheet(sheet);
    if (const char* languages = in.Find("Languages")) CheckLanguages(languages);
  }

 private:
  void CheckNodes() {
    const NodeTree loose(mRoot);
    loose.Check(mInspection);
    if (!loose.Empty()) mContents.Add("Default");
    for (const XMLElement child : mRoot.Children()) {
      if (child.Name() != "TOCDefinition") continue;
      NodeTree(child).Check(mInspection);
      if (const char* name = AttributeReader(child).Find("Name")) mContents.Add(name);
    }
  }

  void CheckContents() {
    AttributeReader in(mRoot);
    for (const auto& property : automation::ClassOf<PageTemplate>().Members()) {
      if (property.Facts.Names != automation::NameOf::Contents) continue;
      const char* attribute = property.Attribute();
      const char* name = in.Find(attribute);
      if (name == nullptr || *name == '\0' || mContents.Has(name)) continue;
      mInspection.Report(Problem::UnknownContents, mRoot, attribute,
                         "the template has no contents definition \"" + std::string(name) + "\"",
                         [&] { return Nearest(name, mContents.Names()); });
    }
  }

  void CheckStyleSheet(const std::string& sheet) {
    if (DiskFile(mFolder + sheet).Exists()) return;
    mInspection.Report(Problem::MissingStyleSheet, mRoot, "StyleSheet",
                       "the folder of the template has no file \"" + sheet + "\"");
  }

  void CheckLanguages(std::string_view languages) {
    constexpr std::string_view kBlanks = " \t";
    DiskFile scraps;
    scraps.SetFolder(mFolder + "HTMLScraps");
    const bool hasScraps = scraps.IsFolder();
    for (std::string_view language : Split(languages, ",")) {
      language.remove_prefix(std::min(language.find_first_not_of(kBlanks), language.size()));
      language = language.substr(0, language.find_last_not_of(kBlanks) + 1);
      if (language.empty()) continue;
      CheckTexts("Phrases", language);
      if (hasScraps) CheckTexts("HTMLScraps", language);
    }
  }

  void CheckTexts(std::string_view folder, std::string_view language) {
    const DiskFile file(mFolder + std::string(folder), language, "txt");
    if (file.Exists()) return;
    mInspection.Report(Problem::MissingPhrases, mRoot, "Languages",
                       "the template has no file \"" + std::string(folder) + "\\" + file.FileName() +
                           "\" for the language \"" + std::string(language) + "\"");
  }

  Inspection& mInspection;
  const XMLElement& mRoot;
  const std::string mFolder;
  NameSet mContents;
};

}  // namespace

void CheckTemplate(const RuleInput& input) {
  if (input.Part == Part::Templates) TemplateCheck(input).Run();
}

}  // namespace lwconfig
