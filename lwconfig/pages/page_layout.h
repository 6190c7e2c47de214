#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/base/event.h>
#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/xml/xml_element.h>
#include <lwconfig/pages/page_type.h>

namespace lwconfig {

/// One file of a template folder: a page from which output pages are produced, or a help project file.
class PageLayout : public Counted<PageLayout> {
 public:
  static constexpr const char* kClassName = "PageLayout";

  std::string Name;                         // kept for other tools
  std::string FileName;                     // within the template folder; the key in `PageLayouts`
  PageTypeEnum PageType = pgStandard;       // kind of page; -1 where the file had no usable value
  std::string TitleTemplate;                // file-name template of the pages produced, with variables in %%
  std::string NodeTag;                      // for the caller's use; neither loaded nor saved
  std::string ControlTag;                   // for the caller's use; neither loaded nor saved
  std::string Namespace;                    // code element names, joined by ","
  std::string DependantOnNamespace;         // code element name of the items that the page depends on
  std::string DependantOnNamespace_Filter;  // filter for these items, kept as it is
  std::int32_t DependantCount = -1;         // the number of items that the page depends on

  /// Whether `FileName` has the extension of a help project, contents, index or similar file.
  bool IsHTMLHelpProjectFile() const;

  /// A copy of all stored properties.
  std::shared_ptr<PageLayout> Clone() const;
  /// Reads a `PageLayout` element. "Name", "FileName" and "TitleTemplate" are required: error 5 stops the
  /// load where one is missing, and everything read before it is kept.
  void Load(const XMLElement& e);
  /// Names the element `PageLayout` and writes all properties but the two tags to it.
  void Save(XMLElement& e) const;
  /// Derives values from the file name and page type: an empty `Namespace`, and a `TitleTemplate` that is
  /// empty or holds a title from an older file. `Load` calls it last.
  void FillDerivedValues();
};

/// The layouts of a template, filed under their file names.
class PageLayouts : public KeyedCollection<PageLayout>, public Counted<PageLayouts> {
 public:
  static constexpr const char* kClassName = "PageLayouts";

  /// Raised at the end of every successful `Add`.
  Event<> ContentsChange;

  void Add(Pointer obj, std::string_view Key = {}, const ItemKey& Before = {},
           const ItemKey& After = {}) override;
};

}  // namespace lwconfig
