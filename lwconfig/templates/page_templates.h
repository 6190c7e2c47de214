#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/templates/page_template.h>

namespace lwconfig {

/// The catalogue of page templates: one for every folder below the templates folder with a `config.xml`.
class PageTemplates : public KeyedCollection<PageTemplate>, public Counted<PageTemplates> {
 public:
  static constexpr const char* kClassName = "PageTemplates";

  /// The folder under which templates are found and saved; `Load` sets it from the configuration path.
  std::string TemplateFolder;

  /// As of every collection; a text that is no key finds the first template of that name,
  /// letter case ignored.
  Pointer Item(const ItemKey& Key) const override;
  bool Contains(const ItemKey& Key) const override { return Item(Key) != nullptr; }
  /// The key of the template at that position; its name, which finds it as well, where it has no key.
  const std::string& KeyAt(std::int32_t position) const {
    const std::string& key = KeyedCollection::KeyAt(position);
    return key.empty() ? KeyedCollection::Item(position)->Name : key;
  }
  /// As of every collection, but a key that is present shows a message box: nothing is added or raised.
  void Add(Pointer obj, std::string_view Key = {}, const ItemKey& Before = {},
           const ItemKey& After = {}) override;

  /// Replaces the catalogue by the templates on disk, without keys, in the order in which their folders are
  /// listed, without hidden ones. A missing templates folder shows a message box and leaves the catalogue
  /// empty. A failing template stops the load, and the templates before it are kept.
  void Load();
  /// Saves every template, in order. The first failure stops the save.
  void Save();
  /// Writes the template's `config.xml` to its folder, created when missing. An older `config.xml` is first
  /// copied to `config.xml.bak`, the only backup; when that fails, `config.xml` is not touched.
  void SaveTemplate(const std::shared_ptr<PageTemplate>& pt);
};

template <>
inline constexpr Slot kSlotOf<PageTemplates> = Slot::PageTemplates;

}  // namespace lwconfig
