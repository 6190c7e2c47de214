#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/namespaces/namespace_profiles.h>
#include <lwconfig/templates/page_template.h>

namespace lwconfig {
namespace {

constexpr std::string_view kDefaultStyleSheet = "stylesheets\\stylesheet.css";
constexpr std::string_view kDefaultCategory = "VB source code, COM Components and Type Libraries";
constexpr std::string_view kCoreProfile = "LW.Core";
constexpr std::string_view kDefaultTOC = "Default";

/// Whether a file of the template folder is not a layout.
bool IsNoLayout(std::string_view fileName) {
  constexpr std::string_view kConfig = "config";
  const DiskFile file(fileName);
  const std::string_view baseName = file.BaseName();
  return EqualIgnoringCase(baseName, "sample") ||
         EqualIgnoringCase(baseName.substr(0, kConfig.size()), kConfig) ||
         EqualIgnoringCase(baseName, "vssver");
}

/// The entries of a template folder, listed once: examining each layout file separately would cost more than
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
  /// Whether the file exists, in a sub-folder too.
  bool HasFile(const std::string& fileName) const {
    return mFiles.contains(FoldCase(fileName)) || DiskFile(mRootFolder + fileName).Exists();
  }

 private:
  std::string mRootFolder;
  std::vector<platform::FolderEntry> mEntries;
  std::unordered_set<std::string> mFiles;  // their names in one letter case
};

/// Whether the parent of a node that was just linked is not linked yet. In a loop this holds at least for
/// the first node.
bool IsAheadOf(const NodeDef* parent, const NodeDef* node) {
  return parent == node || (parent != nullptr && !parent->ParentKey().empty() && !parent->ParentNodeDef());
}

bool HasValue(const XMLElement& e, const char* attribute, const std::string& value) {
  const auto found = e.Attributes().Find(attribute);
  return found && found->Value() == value;
}

}  // namespace

// config.xml of a template. The letter case of element names counts.
//
//   <PageTemplate Name= Description= SupportedItemTypes="binary,source" ...>
//     <NamespaceDef Name="LW.Core"/>                        the default where there is none
//     <EnabledPlugins> <Plugin>LW.Core</Plugin> ... </EnabledPlugins>
//     <VariableDef Name= Description= Type="0" .../>
//     <PageLayout Name= FileName= TitleTemplate= .../>      skipped where the folder has no such file
//     <TOCDefinition Name= Description=>
//       <NodeDef Key="N2" ParentKey="N1" .../>              the tree, flat
//     </TOCDefinition>
//     <NodeDef .../>                                        older files: the contents "Default"
//   </PageTemplate>

/// One load of a template: the steps and their shared state.
class PageTemplate::Loader {
 public:
  Loader(PageTemplate& target, const XMLElement& e)
      : mTarget(target), mShared(SelfOf(target)), mElement(e), mAttributes(e) {
    mLooseNodes->Name = kDefaultTOC;
    mLooseNodes->SetPageTemplate(mShared);
  }

  void Run() {
    ReadSettings();
    ReadChildren();
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
  /// List on first use: a template that fails earlier does not need its folder.
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

  void ReadChildren() {
    lwconfig::ReadChildren(mElement,
                           {
                               {"PageLayout", [this](const XMLElement& child) { ReadLayout(child); }},
                               {"TOCDefinition", [this](const XMLElement& child) { ReadContents(child); }},
                               {"NodeDef", [this](const XMLElement& child) { ReadLooseNode(child); }},
                               {"VariableDef", [this](const XMLElement& child) { ReadVariable(child); }},
                               {"EnabledPlugins", [this](const XMLElement& child) { ReadPlugIns(child); }},
                               {"NamespaceDef", [this](const XMLElement& child) { ReadNamespace(child); }},
                           });
  }

  void ReadLayout(const XMLElement& e) {
    auto layout = std::make_shared<PageLayout>();
    layout->Load(e);
    const std::string& fileName = layout->FileName;
    const std::string leftOut = "the page layout is left out: ";
    if (IsNoLayout(fileName)) {
      if (fileName.empty()) return;  // the missing name was reported
      Report(Problem::ReservedFileName, e, "FileName", leftOut + "a file \"" + fileName + "\" is never one");
    } else if (StringTools::ObjectKeyExists(*mTarget.PageLayouts(), fileName)) {
      Report(Problem::DuplicateName, e, "FileName",
             leftOut + "an earlier one has the file \"" + fileName + "\"");
    } else if (Folder().HasFile(fileName)) {
      mTarget.PageLayouts()->Add(layout, fileName);
    } else if (!fileName.empty()) {
      Report(Problem::MissingLayoutFile, e, "FileName",
             leftOut + "the folder of the template has no file \"" + fileName + "\"", [&] {
               std::vector<std::string> names;
               for (const auto& entry : Folder().Entries()) names.push_back(entry.Name);
               return Nearest(fileName, names);
             });
    }
  }

  void ReadContents(const XMLElement& e) {
    auto toc = std::make_shared<TOCDefinition>();
    toc->Load(e, mShared);
    mTarget.TOCDefinitions->Add(toc, toc->Name);
  }

  void ReadLooseNode(const XMLElement& e) {
    auto node = std::make_shared<NodeDef>();
    node->Load(e, mLooseNodes);
    mLooseNodes->NodeDefs->Add(node, node->Key);
  }

  void ReadVariable(const XMLElement& e) {
    auto variable = std::make_shared<VariableDef>();
    variable->Load(e, mShared);
    mTarget.VariableDefs->Add(variable, variable->Name);
  }

  void ReadPlugIns(const XMLElement& e) {
    ForEachChild(e, [&](const XMLElement& plugIn) {
      const std::string name = plugIn.Text();
      mTarget.EnabledPlugins->Add(name, name);
    });
  }

  void ReadNamespace(const XMLElement& e) {
    std::string name;
    AttributeReader(e).Require("Name", name);
    UseNamespaceProfile(name);
  }

  void UseNamespaceProfile(const std::string& name) {
    if (const auto profile = SharedSlot<NamespaceProfiles>::Obtain()->Item(name)) {
      for (const auto& definition : *profile) mTarget.NamespaceDefs->Add(definition, definition->Name);
    }
    mTarget.mNamespaceProfileNames->Add(name);
  }

  void LinkNodes() {
    for (const auto& toc : *mTarget.TOCDefinitions) {
      bool mayLoop = false;
      for (const auto& node : *toc->NodeDefs) {
        node->CementReferences(toc->NodeDefs);
        mayLoop = mayLoop || IsAheadOf(node->ParentNodeDef().get(), node.get());
      }
      if (mayLoop) ReportLoops(*toc);
    }
  }

  void ReportLoops(const TOCDefinition& toc) const {
    constexpr std::size_t kNamed = 5;
    for (const auto& loop : toc.NodeDefs->ParentLoops()) {
      std::string keys;
      for (std::size_t i = 0; i < std::min(loop.size(), kNamed); ++i)
        keys += (i > 0 ? ", " : "") + loop[i]->Key;
      if (loop.size() > kNamed) keys += " and so on";
      Report(Problem::ParentLoop, ElementOf(*loop.front(), toc), "ParentKey",
             "the parents go round in a loop: " + keys);
    }
  }

  XMLElement ElementOf(const NodeDef& node, const TOCDefinition& toc) const {
    for (const XMLElement parent : mElement.Children()) {
      const bool isLoose = &toc == mLooseNodes.get();
      if (!isLoose && !(parent.IsNamed("TOCDefinition") && HasValue(parent, "Name", toc.Name))) continue;
      for (XMLElement child : (isLoose ? mElement : parent).Children()) {
        if (child.IsNamed("NodeDef") && HasValue(child, "Key", node.Key)) return child;
      }
    }
    return mElement;
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
