#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <lwconfig/core/base/event.h>
#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/xml/xml_element.h>
#include <lwconfig/namespaces/namespace_def.h>
#include <lwconfig/namespaces/plug_in.h>
#include <lwconfig/pages/page_layout.h>
#include <lwconfig/pages/toc_definition.h>
#include <lwconfig/pages/variable_def.h>
#include <lwconfig/templates/phrases.h>

namespace lwconfig {

/// One look and feel of the generated documentation: a folder of page layouts and the settings
/// in its `config.xml`.
class PageTemplate : public Counted<PageTemplate>, public std::enable_shared_from_this<PageTemplate> {
 public:
  static constexpr const char* kClassName = "PageTemplate";

  PageTemplate();
  PageTemplate(const PageTemplate&) = delete;
  PageTemplate& operator=(const PageTemplate&) = delete;

  std::string RootFolder;           // the template's folder, with trailing backslash
  std::string Name;                 // the display name, by which the catalogue finds the template
  std::string Description;          // description of the template
  std::int32_t objFillColor = 0;    // relationship diagrams: colour that fills an object
  std::int32_t objTextColor = 0;    // relationship diagrams: colour of the text of an object
  std::int32_t objBorderColor = 0;  // relationship diagrams: colour of the border of an object
  std::int32_t colFillColor = 0;    // relationship diagrams: colour that fills a collection object
  std::int32_t colTextColor = 0;    // relationship diagrams: colour of the text of a collection object
  std::int32_t colBorderColor = 0;  // relationship diagrams: colour of the border of a collection object
  bool UseDropShadow = false;       // whether diagram items have a drop shadow
  bool CenterCaptions = false;      // whether captions of diagram items are centred
  std::int32_t BorderWidth = 0;     // width of the borders of diagram items
  bool DiagramBold = true;          // whether captions in diagrams are bold
  bool UseDiagramShapes = false;    // whether diagrams use shapes
  /// The tables of contents, filed under their names.
  Owned<lwconfig::TOCDefinitions> TOCDefinitions = std::make_shared<lwconfig::TOCDefinitions>();
  /// The variables, filed under their names.
  Owned<lwconfig::VariableDefs> VariableDefs = std::make_shared<lwconfig::VariableDefs>();
  std::string DefTOCVBProject;       // default contents definition for a single project
  std::string DefTOCVBProjectGroup;  // default contents definition for several projects
  std::string DefTOCMixture;         // default contents definition for sources and components together
  std::string DefTOCComponent;       // default contents definition for a single compiled component
  std::string DefTOCComponentGroup;  // default contents definition for several compiled components
  /// The names of the plug-ins that the template enables, each filed under itself.
  Owned<Collection> EnabledPlugins = std::make_shared<Collection>();
  /// The definitions of its namespace profiles.
  Owned<lwconfig::NamespaceDefs> NamespaceDefs = std::make_shared<lwconfig::NamespaceDefs>();
  bool NoStandardSupport = false;  // kept for other tools
  std::string TemplateCategory;    // the category under which the template is offered
  std::string Supports;            // free text
  std::string StyleSheet;          // relative path of the style sheet
  std::string Version;             // version of the file as read; a save writes the current one
  std::string Languages;           // free text
  /// Item types that the template supports, such as "source", each filed under itself.
  Owned<Collection> SupportedItemTypes = std::make_shared<Collection>();

  /// The layouts, filed under their file names.
  const Owned<lwconfig::PageLayouts>& PageLayouts() const { return mPageLayouts; }
  /// Replaces the layouts; the template then listens to the new collection only.
  void SetPageLayouts(std::shared_ptr<lwconfig::PageLayouts> layouts);
  /// Raised after every successful `Add` to `PageLayouts`.
  Event<> PageLayoutsChange;

  /// The names of the namespace profiles that the template uses, in load order, including unknown ones.
  const std::shared_ptr<Collection>& NamespaceProfileNames() const { return mNamespaceProfileNames; }
  /// The shared plug-ins that the template enables, filed under their names. Built on the first request and
  /// then kept. Two plug-ins of one enabled name are error 457; the list keeps the first.
  std::shared_ptr<lwconfig::PlugIns> PlugIns();
  /// Whether the item type is among `SupportedItemTypes`, letter case ignored.
  bool SupportsItemType(std::string_view itemType) const;

  /// The fixed texts of the loaded output language, filed under their names: short phrases, and scraps of
  /// HTML. Null before the first load.
  const std::shared_ptr<Collection>& Phrases() const { return mPhrases.Texts(); }
  const std::shared_ptr<Collection>& Scraps() const { return mScraps.Texts(); }
  /// The loaded language does not change.
  void SetPhrases(std::shared_ptr<Collection> phrases) { mPhrases.SetTexts(std::move(phrases)); }
  void SetScraps(std::shared_ptr<Collection> scraps) { mScraps.SetTexts(std::move(scraps)); }
  /// The languages whose phrases and scraps were loaded last; empty before the first load.
  const std::string& LoadedPhraseLanguage() const { return mPhrases.LoadedLanguage(); }
  const std::string& LoadedScrapLanguage() const { return mScraps.LoadedLanguage(); }
  /// The names in the file of the loaded language, each filed under itself, read anew on every call.
  std::shared_ptr<Collection> PhraseNames() const { return mPhrases.Names(RootFolder); }
  std::shared_ptr<Collection> ScrapNames() const { return mScraps.Names(RootFolder); }
  /// Loads the phrases and then the scraps of a language, unless they are the loaded ones (letter case
  /// counts); none where it has no file. Error 52 for a language that would lead out of their folders, 5 for
  /// an element without a name. A failure stops the load, and the texts before it are kept.
  void LoadPhrasesAndScraps(std::string_view Language);
  /// The phrase of that name, letter case ignored; "!MISSING PHRASE 'Name'!" where there is none.
  std::string Phrase(std::string_view Name) const;
  /// The scrap of that name, letter case ignored; "!MISSING Scrap 'Name'!" where there is none.
  std::string Scrap(std::string_view Name) const;

  /// Reads the root element of `config.xml`; `RootFolder` has been set. "Name" and "Description" are
  /// required. A failure stops the load, and everything read before it is kept.
  void Load(const XMLElement& e);
  /// Names the element `PageTemplate` and writes the template to it, in the current version of the format.
  void Save(XMLElement& e) const;
  /// A copy with layouts, variables and contents definitions of its own. It shares the namespace definitions
  /// and profile names with this template, and has no phrases or scraps.
  std::shared_ptr<PageTemplate> Clone() const;

 private:
  class Loader;

  Owned<lwconfig::PageLayouts> mPageLayouts;
  Connection mLayoutsConnection;
  std::shared_ptr<Collection> mNamespaceProfileNames = std::make_shared<Collection>();
  std::shared_ptr<lwconfig::PlugIns> mTemplatePlugins;
  LanguageTexts mPhrases{"Phrases"};
  LanguageTexts mScraps{"HTMLScraps"};
};

}  // namespace lwconfig
