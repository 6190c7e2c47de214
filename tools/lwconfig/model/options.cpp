#include <charconv>
#include <utility>

#include <tools/lwconfig/model/options.h>
#include <tools/lwconfig/view/listing.h>

#include <lwconfig/automation/published.h>
#include <lwconfig/core/files/application_values.h>

namespace lwconfig::tool {
namespace {

std::optional<std::int32_t> WholeNumber(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

void Append(std::vector<UserOption>& options, std::string_view set, const OptionSet& from) {
  for (AnyOption* option : from.Options()) options.push_back({set, option});
}

Variant TypedValue(const UserOption& option, const std::optional<std::string>& text) {
  if (!text) return Null();
  if (option.Option->Type() == OptionType::Boolean) return *text == "True";
  const auto number = option.Option->Type() == OptionType::Text ? std::nullopt : WholeNumber(*text);
  return number ? Variant(*number) : Variant(*text);
}

Node Describe(const OptionState& state) {
  Node node{"option", state.Of.Option->Name()};
  const bool isStored = !state.Stored.empty();
  const std::string standard = "default " + state.ShownDefault();
  node.Summary = {{"= " + state.Shown()},
                  {isStored ? "stored" : "default", isStored ? Tone::Condition : Tone::Quiet},
                  {isStored ? standard : "", Tone::Quiet}};
  node.Value = TypedValue(state.Of, state.Value);
  const auto show = [&node](const char* label, std::string text) {
    node.Properties.push_back({label, {std::move(text)}});
  };
  show("type", std::string(TypeName(state.Of.Option->Type())));
  show("value", state.Shown());
  show("value", isStored ? "stored" : "default");
  show("default", state.ShownDefault());
  show("section", state.Of.Option->Section());
  return node;
}

}  // namespace

std::string UserOption::Name() const {
  return std::string(Set) + "." + Option->Name();
}

std::string UserOption::Stored() const {
  return GetAppValue(Option->ValueName(), "", Option->Section());
}

std::span<const automation::EnumMember> UserOption::Enumerators() const {
  if (Option->Type() != OptionType::Enumeration) return {};
  return automation::FindClass(Set)->Find(Option->Name())->Get->Result.Enumeration().Members;
}

std::vector<UserOption> UserOptions(Root& root) {
  std::vector<UserOption> options;
  Append(options, "VSNETOptions", *root.VSNETOptions());
  Append(options, "VBOptions", *root.VBOptions());
  Append(options, "LWCommenterOptions", *root.LWCommenterOptions());
  Append(options, "IDEOptions", *root.IDEOptions());
  Append(options, "SpellingOptions", *root.SpellingOptions());
  return options;
}

std::string_view TypeName(OptionType type) {
  switch (type) {
    case OptionType::Boolean:
      return "boolean";
    case OptionType::Integer:
      return "integer";
    case OptionType::Enumeration:
      return "enumeration";
    case OptionType::Text:
      break;
  }
  return "text";
}

OptionState::OptionState(const UserOption& option, Reporter& reporter) : Of(option), Stored(option.Stored()) {
  const auto read = [&](std::optional<std::string>& text, std::string (AnyOption::*get)() const) {
    try {
      text = (Of.Option->*get)();
    } catch (const Error& failure) {
      reporter.Fail(failure);
    }
  };
  read(Value, &AnyOption::Text);
  read(Default, &AnyOption::DefaultText);
}

Json OptionState::ToJson() const {
  return {{"Set", Of.Set},
          {"Name", Of.Option->Name()},
          {"Section", Of.Option->Section()},
          {"ValueName", Of.Option->ValueName()},
          {"Type", TypeName(Of.Option->Type())},
          {"Default", ValueJson(TypedValue(Of, Default))},
          {"Stored", Stored.empty() ? Json() : Json(Stored)},
          {"Value", ValueJson(TypedValue(Of, Value))}};
}

std::string OptionState::Shown(const std::optional<std::string>& text) const {
  if (!text) return "not readable";
  if (Of.Option->Type() == OptionType::Text) return "\"" + *text + "\"";
  const char* name = NameOf(*text);
  return name != nullptr ? *text + " " + name : *text;
}

std::string OptionState::Plain() const {
  if (!Value) return {};
  const char* name = NameOf(*Value);
  return name != nullptr ? name : *Value;
}

const char* OptionState::NameOf(const std::string& number) const {
  for (const auto& [name, value] : Of.Enumerators()) {
    if (value == WholeNumber(number)) return name;
  }
  return nullptr;
}

Group DescribeOptions(Root& root, Reporter& reporter) {
  std::vector<Node> sets;
  std::vector<Node> members;
  const auto finishSet = [&] {
    if (!sets.empty()) sets.back().Groups.push_back({"", "Options", std::exchange(members, {})});
  };
  for (const UserOption& option : UserOptions(root)) {
    if (sets.empty() || sets.back().Title != option.Set) {
      finishSet();
      sets.push_back({"set", std::string(option.Set)});
    }
    members.push_back(Describe(OptionState(option, reporter)));
  }
  finishSet();
  return {"options", "Options", std::move(sets)};
}

}  // namespace lwconfig::tool
