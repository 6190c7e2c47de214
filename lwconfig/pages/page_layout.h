#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/event.h>
#include <lwconfig/core/instance_count.h>
#include <lwconfig/core/keyed_collection.h>
#include <lwconfig/core/xml_element.h>
#include <lwconfig/pages/page_type.h>

namespace lwconfig {

/// One file of a template folder: a page from which output pages are produced, or a help project file.
class PageLayout : public Counted<PageLayout> {
 public:
  static constexpr const char* kClassName = "PageLayout";

  std::string Name;
  std::string FileName;  // within the template folder; the key in `PageLayouts`
  PageTypeEnum PageType = pgStandard;
  std::string TitleTemplate;  // file-name template of the pages produced, with variables in %%
  std::string NodeTag;        // for the caller's use; neither loaded nor saved
  std::string ControlTag;     // for the caller's use; neither loaded nor saved
  std::string Namespace;      // code element names, joined by ","
  std::string DependantOnNamespace;
  std::string DependantOnNamespace_Filter;
  std::int32_t DependantCount = -1;

  /// Whether `FileName` ends in the extension of a help project, contents, index or similar file.
  bool IsHTMLHelpProjectFile() const;

  /// A copy of all stored properties.
  std::shared_ptr<PageLayout> Clone() const;
  /// Reads a `PageLayout` element. "Name", "FileName" and "TitleTemplate" are required: error 5 ends the load
  /// where one is missing, and what was read before it is kept.
  void Load(const XMLElement& e);
  void Save(XMLElement& e) const;
  /// Fills what follows from the file name and page type: an empty `Namespace`, and a `TitleTemplate` that is
  /// empty or holds a title from an older file. `Load` ends with it.
  void FillDerivedValues();
};

/// The layouts of a template, filed under their file names.
class PageLayouts : public KeyedCollection<PageLayout>, public Counted<PageLayouts> {
 public:
  static constexpr const char* kClassName = "PageLayouts";

  /// Raised at the end of every `Add` that succeeded.
  Event<> ContentsChange;

  void Add(Pointer obj, std::string_view Key = {}, const ItemKey& Before = {},
           const ItemKey& After = {}) override;
};

}  // namespace lwconfig
