#include <utility>
#include <vector>

#include <python/collections.h>
#include <python/representation.h>
#include <python/values.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/core/base/error.h>
#include <lwconfig/options/option.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

using automation::ClassInfo;

constexpr std::size_t kMostShown = 3;
constexpr int kLongestText = 80;

using Values = std::vector<std::pair<const char*, py::object>>;

void AddValue(const AnyObject& object, const ClassInfo::Member& member, Values& values) {
  values.emplace_back(member.Name, ToPython(automation::Invoke(object, *member.Get), member.Get->Result));
}

/// Show None for a stored text that does not convert to its option's type.
void AddChangedOptions(const AnyObject& object, const OptionSet& options, Values& values) {
  for (const AnyOption* option : options.Options()) {
    try {
      if (option->Text() != option->DefaultText())
        AddValue(object, *object.Class->Find(option->Name()), values);
    } catch (const Error&) {
      values.emplace_back(option->Name(), py::none());
    }
    if (values.size() > kMostShown) return;
  }
}

/// Leave out a property that cannot be read.
void AddProperties(const AnyObject& object, Values& values) {
  for (const auto& member : object.Class->Members()) {
    const auto* get = member.Get;
    if (get == nullptr || get->ParameterCount != 0 || get->Result.Kind >= automation::ValueKind::Object)
      continue;
    try {
      AddValue(object, member, values);
    } catch (const Error&) {
      continue;
    }
    if (!py::bool_(values.back().second)) values.pop_back();
    if (values.size() > kMostShown) return;
  }
}

Values TellingValues(const AnyObject& object) {
  Values values;
  if (const auto* key = object.Class->Key()) {
    AddValue(object, *key, values);
  } else if (const OptionSet* options = object.Class->OptionsOf(object)) {
    AddChangedOptions(object, *options, values);
  } else if (!object.Class->IsCollection()) {
    AddProperties(object, values);
  }
  return values;
}

}  // namespace

py::str Representation(py::handle type, const AnyObject& object) {
  py::object shortener = py::module_::import("reprlib").attr("Repr")();
  shortener.attr("maxstring") = kLongestText;
  py::str text = py::str("<{}.{}").format(type.attr("__module__"), type.attr("__qualname__"));
  const Values values = TellingValues(object);
  for (std::size_t at = 0; at < values.size(); ++at) {
    const auto& [name, value] = values[at];
    const bool isEnumeration = py::hasattr(value, "name");
    text = text + (at == kMostShown
                       ? py::str(" ...")
                       : py::str(" {}={}").format(
                             name, isEnumeration ? value.attr("name") : shortener.attr("repr")(value)));
  }
  if (values.empty() && object.Class->OptionsOf(object) != nullptr) text = text + py::str(" at its defaults");
  if (object.Class->IsCollection()) text = text + py::str(" of {}").format(CountOf(object));
  return text + py::str(">");
}

}  // namespace lwconfig::python
