#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/inspection.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/namespaces/namespace_profiles.h>
#include <lwconfig/templates/page_template.h>

namespace lwconfig {
namespace {

constexpr std::string_view kDefaultStyleSheet = "stylesheets\\stylesheet.css";
constexpr std::string_view kDefaultCategory = "VB source code, COM Components and Type Libraries";
constexpr std::string_view kCoreProfile = "LW.Core";
constexpr std::string_view kDefaultTOC = "Default";

/// Whether a file of the template folder serves another purpose than that of a layout.
bool IsNoLayout(std::string_view fileName) {
  constexpr std::string_view kConfig = "config";
  const DiskFile file(fileName);
  const std::string_view baseName = file.BaseName();
  return EqualIgnoringCase(baseName, "sample") ||
         EqualIgnoringCase(baseName.substr(0, kConfig.size()), kConfig) ||
         EqualIgnoringCase(baseName, "vssver");
}

/// The entries of a template folder, listed once: asking the file system for each layout would cost more than
/// reading its configuration.
class TemplateFolder {
 public:
  explicit TemplateFolder(const std::string& rootFolder)
      : mRootFolder(rootFolder), mEntries(ListFolder(rootFolder)) {
    for (const auto& entry : mEntries) {
      if (entry.Kind == platform::EntryKind::File) mFiles.insert(FoldCase(entry.Name));
    }
  }

  const std::vector<platform::FolderEntry>& Entries() const { return mEntries; }
  /// Whether the file exists, also below a sub-folder.
  bool HasFile(const std::string& fileName) const {
    return mFiles.contains(FoldCase(fileName)) || DiskFile(mRootFolder + fileName).Exists();
  }

 private:
  std::string mRootFolder;
  std::vector<platform::FolderEntry> mEntries;
  std::unordered_set<std::string> mFiles;  // their names in one letter case
};

/// Whether the parent of a node that was just linked is still to be linked itself. In a circle that holds for
/// the first node at least.
bool IsAheadOf(const NodeDef* parent, const NodeDef* node) {
  return parent == node || (parent != nullptr && !parent->ParentKey().empty() && !parent->ParentNodeDef());
}

/// The nodes whose parents lead to no root, in order.
std::vector<const NodeDef*> NodesInCircles(const NodeDefs& nodes) {
  enum class State { BeingFollowed, Rooted, Circling };
  std::unordered_map<const NodeDef*, State> states;
  std::vector<const NodeDef*> circling;
  for (const auto& start : nodes) {
    std::vector<const NodeDef*> followed;
    State end = State::Rooted;
    for (auto node = start; node; node = node->ParentNodeDef()) {
      const auto [known, isNew] = states.try_emplace(node.get(), State::BeingFollowed);
      if (!isNew) {
        end = known->second == State::Rooted ? State::Rooted : State::Circling;
        break;
      }
      followed.push_back(node.get());
    }
    for (const NodeDef* node : followed) states[node] = end;
    if (states[start.get()] == State::Circling) circling.push_back(start.get());
  }
  return circling;
}

bool HasValue(const XMLElement& e, const char* attribute, const std::string& value) {
  const auto found = e.Attributes().Find(attribute);
  return found && found->Value() == value;
}

}  // namespace

/// One load of a template: the steps, and what they share.
class PageTemplate::Loader {
 public:
  Loader(PageTemplate& target, const XMLElement& e)
      : mTarget(target), mShared(SelfOf(target)), mElement(e), mAttributes(e) {
    mLooseNodes->Name = kDefaultTOC;
    mLooseNodes->SetPageTemplate(mShared);
  }

  void Run() {
    ReadSettings();
    ForEachChild(mElement, [this](const XMLElement& child) { ReadChild(child); });
    if (mTarget.mNamespaceProfileNames->Count() == 0) {
      UseNamespaceProfile(std::string(kCoreProfile));
      mTarget.EnabledPlugins->Add(std::string(kCoreProfile), kCoreProfile);
    }
    if (mLooseNodes->NodeDefs->Count() > 0) mTarget.TOCDefinitions->Add(mLooseNodes, mLooseNodes->Name);
    LinkNodes();
    AddUnlistedLayouts();
    ReadClosingSettings();
  }

 private:
  /// Listed when it is needed first: a template that fails before has no need of its folder.
  const TemplateFolder& Folder() {
    if (!mFolder) mFolder.emplace(mTarget.RootFolder);
    return *mFolder;
  }

  void ReadSettings() {
    AttributeReader& in = mAttributes;
    in.Skip("RootFolder");  // the template knows where it was found
    in.Require("Name", mTarget.Name);
    in.Require("Description", mTarget.Description);
    in.Try("ObjFillColor", mTarget.objFillColor, LeadingInteger);
    in.Try("ObjTextColor", mTarget.objTextColor, LeadingInteger);
    in.Try("ObjBorderColor", mTarget.objBorderColor, LeadingInteger);
    in.Try("ColFillColor", mTarget.colFillColor, LeadingInteger);
    in.Try("ColTextColor", mTarget.colTextColor, LeadingInteger);
    in.Try("ColBordercolor", mTarget.colBorderColor, LeadingInteger);
    in.Try("BorderWidth", mTarget.BorderWidth, LeadingInteger);
    in.Try("UseDropShadow", mTarget.UseDropShadow, ExactTrue);
    in.Try("CenterCaptions", mTarget.CenterCaptions, ExactTrue);
    in.Try("DiagramBold", mTarget.DiagramBold, ExactTrue);
    in.Try("UseDiagramShapes", mTarget.UseDiagramShapes, ExactTrue);
    in.Try("Supports", mTarget.Supports);
    in.Try("Version", mTarget.Version);
    in.Try("Languages", mTarget.Languages);
    in.Try("TemplateCategory", mTarget.TemplateCategory);
    in.Try("StyleSheet", mTarget.StyleSheet);
    if (mTarget.StyleSheet.empty()) mTarget.StyleSheet = kDefaultStyleSheet;
    if (mTarget.TemplateCategory.empty()) mTarget.TemplateCategory = kDefaultCategory;
  }

  void ReadChild(const XMLElement& child) {
    if (child.IsNamed("PageLayout")) {
      auto layout = std::make_shared<PageLayout>();
      layout->Load(child);
      const bool usable = !IsNoLayout(layout->FileName);
      const bool known = StringTools::ObjectKeyExists(*mTarget.PageLayouts(), layout->FileName);
      if (usable && !known && Folder().HasFile(layout->FileName)) {
        mTarget.PageLayouts()->Add(layout, layout->FileName);
      } else if (Inspection* const inspection = Inspection::Current()) {
        TellLeftOut(*inspection, child, layout->FileName, usable, known);
      }
    } else if (child.IsNamed("TOCDefinition")) {
      auto toc = std::make_shared<TOCDefinition>();
      toc->Load(child, mShared);
      mTarget.TOCDefinitions->Add(toc, toc->Name);
    } else if (child.IsNamed("NodeDef")) {
      auto node = std::make_shared<NodeDef>();
      node->Load(child, mLooseNodes);
      mLooseNodes->NodeDefs->Add(node, node->Key);
    } else if (child.IsNamed("VariableDef")) {
      auto variable = std::make_shared<VariableDef>();
      variable->Load(child, mShared);
      mTarget.VariableDefs->Add(variable, variable->Name);
    } else if (child.IsNamed("EnabledPlugins")) {
      ForEachChild(child, [&](const XMLElement& plugIn) {
        const std::string name = plugIn.Text();
        mTarget.EnabledPlugins->Add(name, name);
      });
    } else if (child.IsNamed("NamespaceDef")) {
      std::string name;
      AttributeReader(child).Require("Name", name);
      UseNamespaceProfile(name);
    }
  }

  /// Tells of a layout that the template does not get.
  void TellLeftOut(Inspection& inspection, const XMLElement& e, const std::string& fileName, bool isUsable,
                   bool isKnown) {
    if (fileName.empty()) return;  // that the name is missing was told
    const std::string leftOut = "the page layout is left out: ";
    if (!isUsable) {
      inspection.Tell(Problem::ReservedFileName, e, "FileName",
                      leftOut + "a file \"" + fileName + "\" is never one");
    } else if (isKnown) {
      inspection.Tell(Problem::DuplicateName, e, "FileName",
                      leftOut + "one with the file \"" + fileName + "\" stands before");
    } else {
      inspection.Tell(Problem::MissingLayoutFile, e, "FileName",
                      leftOut + "the folder of the template has no file \"" + fileName + "\"", [&] {
                        std::vector<std::string> names;
                        for (const auto& entry : Folder().Entries()) names.push_back(entry.Name);
                        return Nearest(fileName, names);
                      });
    }
  }

  void UseNamespaceProfile(const std::string& name) {
    if (const auto profile = SharedSlot<NamespaceProfiles>::Obtain()->Item(name)) {
      for (const auto& definition : *profile) mTarget.NamespaceDefs->Add(definition, definition->Name);
    }
    mTarget.mNamespaceProfileNames->Add(name);
  }

  void LinkNodes() {
    for (const auto& toc : *mTarget.TOCDefinitions) {
      bool mayCircle = false;
      for (const auto& node : *toc->NodeDefs) {
        node->CementReferences(toc->NodeDefs);
        mayCircle = mayCircle || IsAheadOf(node->ParentNodeDef().get(), node.get());
      }
      // An inspection tells of every circle itself.
      if (mayCircle && Inspection::Current() == nullptr) TellCircles(*toc);
    }
  }

  void TellCircles(const TOCDefinition& toc) const {
    const auto nodes = NodesInCircles(*toc.NodeDefs);
    if (nodes.empty()) return;
    Diagnose({PlaceOf(*nodes.front(), toc),
              "the parents of the node \"" + nodes.front()->Key + "\" lead in a circle; nodes of \"" +
                  toc.Name + "\" that belong to no tree: " + std::to_string(nodes.size())});
  }

  FilePosition PlaceOf(const NodeDef& node, const TOCDefinition& toc) const {
    for (const XMLElement parent : mElement.Children()) {
      const bool isLoose = &toc == mLooseNodes.get();
      if (!isLoose && !(parent.IsNamed("TOCDefinition") && HasValue(parent, "Name", toc.Name))) continue;
      for (const XMLElement child : (isLoose ? mElement : parent).Children()) {
        if (child.IsNamed("NodeDef") && HasValue(child, "Key", node.Key)) return child.Position();
      }
    }
    return mElement.Position();
  }

  void AddUnlistedLayouts() {
    for (const auto& [name, kind, isHidden] : Folder().Entries()) {
      if (kind != platform::EntryKind::File || isHidden) continue;
      if (StringTools::ObjectKeyExists(*mTarget.PageLayouts(), name)) continue;
      if (IsNoLayout(name)) continue;
      auto layout = std::make_shared<PageLayout>();
      layout->FileName = name;
      layout->FillDerivedValues();
      mTarget.PageLayouts()->Add(layout, name);
    }
  }

  void ReadClosingSettings() {
    AttributeReader& in = mAttributes;
    in.Try("DefTOCVBProject", mTarget.DefTOCVBProject);
    in.Try("DefTOCVBProjectGroup", mTarget.DefTOCVBProjectGroup);
    in.Try("DefTOCComponent", mTarget.DefTOCComponent);
    in.Try("DefTOCMixture", mTarget.DefTOCMixture);
    in.Try("DefTOCComponentGroup", mTarget.DefTOCComponentGroup);
    in.Try("NoStandardSupport", mTarget.NoStandardSupport, ExactTrue);
    mTarget.SupportedItemTypes = std::make_shared<Collection>();
    std::string itemTypes;
    in.Try("SupportedItemTypes", itemTypes);
    if (itemTypes.empty()) itemTypes = "binary,source";
    for (const auto piece : Split(itemTypes, ",")) mTarget.SupportedItemTypes->Add(std::string(piece), piece);
  }

  PageTemplate& mTarget;
  const std::shared_ptr<PageTemplate> mShared;
  const XMLElement& mElement;
  AttributeReader mAttributes;
  std::optional<TemplateFolder> mFolder;
  // Collects the nodes directly below the template's element.
  const std::shared_ptr<TOCDefinition> mLooseNodes = std::make_shared<TOCDefinition>();
};

void PageTemplate::Load(const XMLElement& e) {
  Loader(*this, e).Run();
}

}  // namespace lwconfig
