#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/loading/attribute_reader.h>

namespace lwconfig {
namespace {

/// What the names in an attribute are names of.
struct Sort {
  const NameSet KnownNames::*Names;  // null where they are no names of the configuration
  lwconfig::Problem Problem;
  const char* What;
};

constexpr Sort kCodeElements{&KnownNames::CodeElements, Problem::UnknownCodeElement, "code element"};
constexpr Sort kProfiles{&KnownNames::Profiles, Problem::UnknownProfile, "namespace profile"};
constexpr Sort kPlugIns{&KnownNames::PlugIns, Problem::UnknownPlugIn, "plug-in"};
constexpr Sort kComments{&KnownNames::Comments, Problem::UnknownComment, "tagged comment"};
constexpr Sort kFreeWords{nullptr, Problem::BlankInList, ""};

enum class Form { One, List };

struct Reference {
  lwconfig::Part Part;
  const char* Element;  // null for every one
  const char* Attribute;
  const Sort& Names;
  lwconfig::Form Form;
};

constexpr Reference kReferences[] = {
    {Part::Namespaces, "lwelement", "Namespaces", kCodeElements, Form::List},
    {Part::Comments, nullptr, "Namespace", kCodeElements, Form::List},
    {Part::Comments, nullptr, "LegacyFor", kComments, Form::One},
    {Part::Comments, nullptr, "XMLCommentTypes", kFreeWords, Form::List},
    {Part::ModelComments, "ModelCommentProfile", "Namespace", kProfiles, Form::One},
    {Part::ModelComments, "MC", "MemberType_Namespace", kCodeElements, Form::List},
    {Part::ModelComments, "MC", "TaggedCommentPrefix", kComments, Form::One},
    {Part::Templates, "PageTemplate", "SupportedItemTypes", kFreeWords, Form::List},
    {Part::Templates, "PageLayout", "Namespace", kCodeElements, Form::List},
    {Part::Templates, "PageLayout", "DependantOnNamespace", kCodeElements, Form::List},
    {Part::Templates, "NodeDef", "DependantOnNamespace", kCodeElements, Form::List},
    {Part::Templates, "NodeDef", "PageTypeNamespace", kCodeElements, Form::List},
    {Part::Templates, "NodeDef", "PlugInName", kPlugIns, Form::One},
    {Part::Templates, "NamespaceDef", "Name", kProfiles, Form::One},
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
    ForEachElement(mInput.Root, [this](const XMLElement& e, const std::string& tag) {
      std::optional<AttributeReader> in;
      for (const Reference& reference : kReferences) {
        if (reference.Part != mInput.Part || (reference.Element != nullptr && tag != reference.Element))
          continue;
        if (!in) in.emplace(e);
        if (const char* value = in->Find(reference.Attribute))
          CheckValue(e, reference.Attribute, value, reference.Names, reference.Form);
      }
      if (mInput.Part == Part::Templates && tag == "EnabledPlugins") {
        for (const XMLElement plugIn : e.Children())
          CheckValue(plugIn, {}, plugIn.Text(), kPlugIns, Form::One);
      }
    });
  }

 private:
  void CheckValue(const XMLElement& e, std::string_view attribute, std::string_view value, const Sort& sort,
                  Form form) {
    if (form == Form::One) return CheckName(e, attribute, value, sort);
    for (const std::string_view piece : Split(value, ",")) {
      const std::string_view name = Trimmed(piece);
      if (name.size() != piece.size()) {
        mInput.Inspection.Report(
            Problem::BlankInList, e, attribute,
            "the blank beside \"" + std::string(name) + "\" belongs to the name; it is not found without it",
            [&] { return std::string(name); });
      }
      CheckName(e, attribute, name, sort);
    }
  }

  void CheckName(const XMLElement& e, std::string_view attribute, std::string_view name, const Sort& sort) {
    if (name.empty() || sort.Names == nullptr) return;
    const KnownNames& known = mInput.Context.Names;
    const NameSet& names = known.*sort.Names;
    // Without any profile that is one problem, not one for each name.
    if (names.Has(name) || (known.Profiles.Empty() && &sort != &kPlugIns && &sort != &kComments)) return;
    mInput.Inspection.Report(sort.Problem, e, attribute,
                             std::string("there is no ") + sort.What + " \"" + std::string(name) + "\"",
                             [&] { return Nearest(name, names.Names()); });
  }

  const RuleInput& mInput;
};

}  // namespace

void CheckReferences(const RuleInput& input) {
  ReferenceCheck(input).Run();
}

}  // namespace lwconfig
