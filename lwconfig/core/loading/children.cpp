#include <lwconfig/core/loading/children.h>

namespace lwconfig {

void ReadChildren(const XMLElement& e, std::initializer_list<ChildReader> readers) {
  ForEachChild(e, [&](const XMLElement& child) {
    for (const auto& [name, read] : readers) {
      if (name.IsOf(child)) return read(child);
      e.NoteAbsentChild(name.Text);
    }
  });
}

}  // namespace lwconfig
