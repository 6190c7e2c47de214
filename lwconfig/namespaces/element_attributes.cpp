#include <algorithm>
#include <limits>

#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/namespaces/element_attributes.h>
#include <lwconfig/platform/host.h>

namespace lwconfig {
namespace {

constexpr char kSeparator = ' ';
constexpr char kQuote = '"';
constexpr std::size_t kMostAttributes = std::numeric_limits<std::int16_t>::max();

std::string ProcessCommandLine() {
  Collection arguments;
  for (const auto& argument : platform::Host<platform::Environment>().ProcessArguments())
    arguments.Add(argument);
  return StringTools::JoinCollection(arguments, {&kSeparator, 1});
}

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kSeparator);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kSeparator) + 1 - first));
}

std::vector<std::string> Tokens(std::string text) {
  if (!text.ends_with(kSeparator)) text += kSeparator;
  std::vector<std::string> tokens;
  std::string pending;
  const auto emit = [&] {
    if (tokens.size() == kMostAttributes) {
      throw Error(kOverflow, "The text has more than " + std::to_string(kMostAttributes) + " attributes");
    }
    tokens.push_back(Trimmed(pending));
    pending.clear();
  };
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == kSeparator) {
      emit();
    } else if (text[at] != kQuote) {
      pending += text[at];
    } else if (text.compare(at, 3, "\"\"\"") == 0) {
      pending += kQuote;
      at += 2;
    } else {
      const auto start = at + 1;
      at = std::min(text.find(kQuote, start), text.size());
      pending.append(text, start, at - start);
    }
  }
  emit();
  return tokens;
}

std::string_view WithoutSwitchMark(std::string_view name) {
  return name.substr(name.starts_with('-') || name.starts_with('/') ? 1 : 0);
}

std::string WithoutQuotes(std::string_view value) {
  std::string result(value);
  std::erase(result, kQuote);
  return result;
}

}  // namespace

std::int16_t ElementAttributes::Parse(std::string_view CommandLine) {
  const std::string input = CommandLine.empty() ? ProcessCommandLine() : std::string(CommandLine);
  if (input.empty()) return Count();
  std::vector<Attribute> attributes;
  const auto add = [&](std::string_view name, std::string_view value) {
    attributes.push_back({std::string(WithoutSwitchMark(name)), WithoutQuotes(value)});
  };
  if (input.find('=') == std::string::npos) {
    add(input, input);
  } else {
    for (const std::string_view token : Tokens(input)) {
      const auto equals = token.find('=');
      const bool isPair = equals != std::string_view::npos;
      add(token.substr(0, equals), isPair ? token.substr(equals + 1) : token);
    }
  }
  mAttributes = std::move(attributes);
  return Count();
}

std::string ElementAttributes::AttributeName(const ItemKey& Index) const {
  const auto* attribute = Find(Index);
  return attribute != nullptr ? attribute->Name : std::string();
}

std::string ElementAttributes::AttributeData(const ItemKey& Index) const {
  const auto* attribute = Find(Index);
  return attribute != nullptr ? attribute->Value : std::string();
}

const ElementAttributes::Attribute* ElementAttributes::Find(const ItemKey& index) const {
  const std::string text = index.IsPosition() ? ToText(index.Position()) : std::string(index.Text());
  if (LeadingNumber(text) != 0) {
    const auto position = StrictInteger(text);
    if (!position || position.Value < 1 || position.Value > Count()) return nullptr;
    return &mAttributes[static_cast<std::size_t>(position.Value - 1)];
  }
  for (const auto& attribute : mAttributes) {
    if (EqualIgnoringCase(attribute.Name, text)) return &attribute;
  }
  return nullptr;
}

}  // namespace lwconfig
