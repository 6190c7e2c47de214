#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include <lwconfig/automation/published.h>
#include <lwconfig/checking/model_path.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/paths/member_path.h>

namespace lwconfig {
namespace {

using automation::ClassInfo;
using automation::ClassOf;

/// The step of a path from an object to its items of a class; empty where the object is the collection.
std::optional<std::string> StepTo(const ClassInfo& item, const ClassInfo& owner) {
  if (owner.ItemClass() == &item) return "";
  // Nodes outside of contents definitions are those of the default one.
  if (&owner == &ClassOf<PageTemplate>() && &item == &ClassOf<NodeDef>())
    return "TOCDefinitions[Default].NodeDefs";
  for (const auto& member : owner.Members()) {
    const ClassInfo* held = member.HeldClass();
    // An object that may be absent is not below this one, but above it.
    if (held != nullptr && !member.Get->Result.MayBeNull && held->ItemClass() == &item) return member.Name;
  }
  return std::nullopt;
}

/// From 1, among the elements of its name.
std::size_t PositionOf(const XMLElement& e) {
  std::size_t position = 1;
  if (const auto parent = e.Parent()) {
    for (const XMLElement sibling : parent->Children()) {
      if (sibling == e) break;
      if (sibling.Name() == e.Name()) ++position;
    }
  }
  return position;
}

std::string WrittenItem(const ClassInfo& item, const XMLElement& e) {
  const ClassInfo::Member* property = item.Key();
  const auto key = property != nullptr ? e.Attributes().Find(property->Attribute()) : std::nullopt;
  const bool hasKey = key && !key->Value().empty();
  return "[" + (hasKey ? WrittenKey(key->Value()) : std::to_string(PositionOf(e))) + "]";
}

}  // namespace

const ClassInfo* ClassOfElement(std::string_view name) {
  const auto classes = automation::PublishedClasses();
  const auto found = std::ranges::find_if(classes, [name](const ClassInfo* info) {
    return info->Element() != nullptr && EqualIgnoringCase(info->Element(), name);
  });
  return found == classes.end() ? nullptr : *found;
}

std::string ModelPathOf(const XMLElement& e) {
  std::vector<XMLElement> way;
  for (std::optional<XMLElement> at = e; at; at = at->Parent()) way.push_back(*at);
  std::string path;
  const ClassInfo* owner = &ClassOf<Root>();
  for (auto at = way.rbegin(); at != way.rend(); ++at) {
    const ClassInfo* item = ClassOfElement(at->Name());
    const auto step = item != nullptr ? StepTo(*item, *owner) : std::nullopt;
    if (!step) continue;
    path += (path.empty() || step->empty() ? "" : ".") + *step + WrittenItem(*item, *at);
    owner = item;
  }
  return path;
}

}  // namespace lwconfig
