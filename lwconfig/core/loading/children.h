#pragma once

#include <functional>
#include <initializer_list>

#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// Calls `visit(child)` for each child element in document order. A failure without a place in a file gets
/// the place of the child.
template <class Visit>
void ForEachChild(const XMLElement& e, Visit visit) {
  for (const XMLElement child : e.Children()) {
    RunStep([&] { visit(child); }, [&] { return child.Position(); });
  }
}

/// A name of child elements that a reader takes.
struct ChildName {
  ChildName(const char* name, bool ignoresCase = false) : Text(name), IgnoresCase(ignoresCase) {}
  bool IsOf(const XMLElement& e) const { return IgnoresCase ? e.IsNamedIgnoringCase(Text) : e.IsNamed(Text); }

  const char* Text;
  bool IgnoresCase;
};

inline ChildName AnyCase(const char* name) {
  return {name, true};
}

/// As `ForEachChild` for the children of that name; others are passed over.
template <class Visit>
void ReadChildren(const XMLElement& e, const ChildName& name, Visit visit) {
  ForEachChild(e, [&](const XMLElement& child) {
    if (name.IsOf(child)) return visit(child);
    e.NoteAbsentChild(name.Text);
  });
}

struct ChildReader {
  ChildName Name;
  std::function<void(const XMLElement&)> Read;
};

/// As above for children of several names.
void ReadChildren(const XMLElement& e, std::initializer_list<ChildReader> readers);

}  // namespace lwconfig
