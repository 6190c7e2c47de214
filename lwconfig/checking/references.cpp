#include <algorithm>
#include <string>
#include <string_view>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/paths/possible_names.h>

namespace lwconfig {
namespace {

using automation::NameOf;

/// How names of one sort are told when nothing has them.
struct Sort {
  automation::NameOf Names;
  const NameSet KnownNames::*Known;
  lwconfig::Problem Problem;
  const char* What;
};

constexpr Sort kSorts[] = {
    {NameOf::CodeElements, &KnownNames::CodeElements, Problem::UnknownCodeElement, "code element"},
    {NameOf::Profile, &KnownNames::Profiles, Problem::UnknownProfile, "namespace profile"},
    {NameOf::PlugIn, &KnownNames::PlugIns, Problem::UnknownPlugIn, "plug-in"},
    {NameOf::Comment, &KnownNames::Comments, Problem::UnknownComment, "tagged comment"},
};

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

class ReferenceCheck {
 public:
  explicit ReferenceCheck(const RuleInput& input) : mInput(input) {}

  void Run() {
    const auto isName = [](const auto& property) { return property.Facts.Names != NameOf::Nothing; };
    ForEachProperty(mInput, isName, [this](const XMLElement& e, const auto& property, const char* text) {
      CheckValue(e, property.Attribute(), text, property.Facts.Names);
    });
    if (mInput.Part != Part::Templates) return;
    // What a template holds as texts or takes from elsewhere is no property of an object in its file.
    ForEachElement(mInput.Root, [this](const XMLElement& e, const std::string& tag) {
      const char* profile = tag == "NamespaceDef" ? AttributeReader(e).Find("Name") : nullptr;
      if (profile != nullptr) CheckName(e, "Name", profile, NameOf::Profile);
      if (tag != "EnabledPlugins") return;
      for (const XMLElement plugIn : e.Children()) CheckName(plugIn, {}, plugIn.Text(), NameOf::PlugIn);
    });
  }

 private:
  void CheckValue(const XMLElement& e, std::string_view attribute, std::string_view value, NameOf names) {
    if (!IsNameList(names)) return CheckName(e, attribute, value, names);
    for (const std::string_view piece : Split(value, ",")) {
      const std::string_view name = Trimmed(piece);
      if (name.size() != piece.size()) {
        mInput.Inspection.Report(
            Problem::BlankInList, e, attribute,
            "the blank beside \"" + std::string(name) + "\" belongs to the name; it is not found without it",
            [&] { return std::string(name); });
      }
      CheckName(e, attribute, name, names);
    }
  }

  void CheckName(const XMLElement& e, std::string_view attribute, std::string_view name, NameOf names) {
    const auto* sort = std::ranges::find(kSorts, names, &Sort::Names);
    if (name.empty() || sort == std::end(kSorts)) return;
    const KnownNames& all = mInput.Context.Names;
    const NameSet& known = all.*sort->Known;
    // Without any profile that is one problem, not one for each name.
    const bool isOfProfiles = names == NameOf::Profile || names == NameOf::CodeElements;
    if (known.Has(name) || (all.Profiles.Empty() && isOfProfiles)) return;
    mInput.Inspection.Report(sort->Problem, e, attribute,
                             std::string("there is no ") + sort->What + " \"" + std::string(name) + "\"",
                             [&] { return Nearest(name, known.Names()); });
  }

  const RuleInput& mInput;
};

}  // namespace

void CheckReferences(const RuleInput& input) {
  ReferenceCheck(input).Run();
}

}  // namespace lwconfig
