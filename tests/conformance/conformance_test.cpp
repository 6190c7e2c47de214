#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>
#include <tests/automation/memory_host.h>
#include <tools/lwconfig/members/path.h>
#include <tools/lwconfig/members/words.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/error_reporter.h>
#include <lwconfig/platform/components.h>

namespace lwconfig::automation {
namespace {

/// Runs the script of all faces through late-bound calls.
class DispatchFace {
 public:
  std::string Run(std::string_view script) {
    tool::WordReader reader(script);
    for (std::vector<tool::Word> command; reader.Next(command);) {
      std::vector<std::string> words;
      for (const auto& word : command) words.push_back(word.Text);
      Tell(words);
    }
    return std::move(mTold);
  }

 private:
  using Words = std::vector<std::string>;
  struct Typed {
    Variant Value;
    TypeInfo Type;
  };

  void Tell(const Words& words) {
    mTold += ">";
    for (const auto& word : words) mTold += " " + word;
    mTold += "\n";
    try {
      const bool isNamed = words.size() > 2 && words[1] == "=";
      const auto results =
          Do(isNamed ? words[0] : "", isNamed ? Words(words.begin() + 2, words.end()) : words);
      if (isNamed && !results.empty()) mNamed[words[0]] = ToObject(results.front().Value);
      for (const auto& [value, type] : results) mTold += "  " + TextOf(value, type) + "\n";
    } catch (const ReportedError& failure) {
      mTold += "  error " + std::to_string(failure.Cause().Number()) + "\n";
    } catch (const Error& failure) {
      mTold += "  error " + std::to_string(failure.Number()) + "\n";
    }
  }

  std::vector<Typed> Do(const std::string& name, const Words& words) {
    const std::string& command = words[0];
    if (command == "new") return {{FindClass(words[1])->Create(), {}}};
    if (command == "get") return {Get(words[1])};
    if (command == "set") {
      const auto [object, member] = Last(words[1]);
      Variant value = ValueOf(words[2]);
      Invoke(object, member, kPropertyLet, {std::span(&value, 1)});
    } else if (command == "call") {
      return Call(words);
    } else if (command == "each") {
      std::vector<Typed> items;
      const auto all = Enumerate(ToObject(Get(words[1]).Value));
      for (Variant item; all->Next(item);) items.push_back({item, {}});
      return items;
    } else if (command == "same") {
      return {{Get(words[1]).Value == Get(words[2]).Value, {}}};
    } else if (command == "connect") {
      mConnections[name] =
          Connect(ToObject(Get(words[1]).Value), words[2],
                  [this, handler = Words(words.begin() + 3, words.end())] { Tell(handler); });
    } else {
      EXPECT_EQ(command, "close");
      mConnections[words[1]].Close();
    }
    return {};
  }

  std::vector<Typed> Call(const Words& words) {
    const auto [object, member] = Last(words[1]);
    std::vector<Variant> ordered;
    std::map<std::string, Variant> values;
    for (auto word = words.begin() + 2; word != words.end(); ++word) {
      const auto end = word->find(":=");
      if (end == std::string::npos) {
        ordered.push_back(ValueOf(*word));
      } else {
        values[word->substr(0, end)] = ValueOf(word->substr(end + 2));
      }
    }
    const auto* found = object.Class->Find(member);
    const auto parameters = found != nullptr && found->Method != nullptr ? found->Method->Parameters()
                                                                         : std::span<const ParameterInfo>();
    // By-reference arguments come back, also those that were left out.
    for (std::size_t at = ordered.size(); at < parameters.size(); ++at) {
      if (parameters[at].IsByReference) values.try_emplace(std::string(parameters[at].Name), Missing{});
    }
    std::vector<NamedArgument> named;
    for (auto& [name, value] : values) named.push_back({name, &value});
    const Variant result = Invoke(object, member, kMethod, {ordered, named});
    std::vector<Typed> results{{result, found->Method->Result}};
    for (std::size_t at = 0; at < parameters.size(); ++at) {
      if (!parameters[at].IsByReference) continue;
      const Variant& value = at < ordered.size() ? ordered[at] : values.at(std::string(parameters[at].Name));
      results.push_back({value, parameters[at].Type});
    }
    return results;
  }

  Typed Get(const std::string& text, std::size_t without = 0) {
    const auto path = tool::ParsePath(text);
    Typed at{mNamed.at(path.Steps[0].Name), {}};
    for (std::size_t step = 0; step + without < path.Steps.size(); ++step) {
      std::vector<Variant> arguments;
      for (const auto& argument : path.Steps[step].Arguments) {
        const auto* position = std::get_if<std::int32_t>(&argument.Value);
        arguments.push_back(position != nullptr ? *position : ValueOf(std::get<std::string>(argument.Value)));
      }
      const AnyObject object = ToObject(at.Value);
      if (step > 0) {
        at.Value = Invoke(object, path.Steps[step].Name, kPropertyGet, {arguments});
        const auto* getter = object.Class->Find(path.Steps[step].Name)->Get;
        at.Type = arguments.size() > getter->ParameterCount ? TypeInfo{} : getter->Result;
      } else if (!arguments.empty()) {
        at.Value = Invoke(object, kDefaultMemberId, kPropertyGet, {arguments});
      }
    }
    return at;
  }
  std::pair<AnyObject, std::string> Last(const std::string& path) {
    return {ToObject(Get(path, 1).Value), tool::ParsePath(path).Steps.back().Name};
  }

  Variant ValueOf(const std::string& word) {
    static const std::regex number("-?[0-9]+");
    if (word.starts_with('@')) return Get(word.substr(1)).Value;
    if (word == "null") return AnyObject{};
    if (word == "True" || word == "False") return word == "True";
    if (word.starts_with('"')) return word.substr(1, word.size() - 2);
    if (std::regex_match(word, number)) {
      const long long value = std::stoll(word);
      return std::in_range<std::int32_t>(value) ? Variant(static_cast<std::int32_t>(value))
                                                : Variant(static_cast<double>(value));
    }
    for (const EnumInfo* enumeration : PublishedEnumerations()) {
      for (const auto& member : enumeration->Members) {
        if (member.Name == word) return member.Value;
      }
    }
    return word;
  }

  static std::string TextOf(const Variant& value, const TypeInfo& type) {
    if (type.Kind == ValueKind::Enumeration) {
      for (const auto& member : type.Enumeration().Members) {
        if (value == Variant(member.Value)) return std::string(type.Enumeration().Name) + " " + member.Name;
      }
    }
    if (const auto* text = std::get_if<std::string>(&value)) return "text \"" + *text + "\"";
    if (std::holds_alternative<bool>(value)) return "boolean " + ToText(value);
    if (std::holds_alternative<double>(value)) return "number " + ToText(value);
    if (const auto* object = std::get_if<AnyObject>(&value); object != nullptr && *object)
      return std::string("object (") + object->Class->Name() + ")";
    const bool isInteger =
        std::holds_alternative<std::int32_t>(value) || std::holds_alternative<std::int16_t>(value);
    return isInteger ? "integer " + ToText(value) : "null";
  }

  std::map<std::string, AnyObject> mNamed;
  std::map<std::string, Connection> mConnections;
  std::string mTold;
};

struct SilentComponent final : platform::Component {
  void Receive(std::string_view) override {}
};

std::string TextOfFile(const std::string& name) {
  std::ifstream file(std::string(LWCONFIG_CONFORMANCE) + "/" + name, std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST(ConformanceTest, LateBoundCallsGiveTheTranscript) {
  const testing::MemoryHost host;
  const auto previous = platform::RegisterComponent(std::string(kErrorComponent),
                                                    [] { return std::make_unique<SilentComponent>(); });
  EXPECT_EQ(DispatchFace().Run(TextOfFile("script.txt")), TextOfFile("transcript.txt"));
  platform::RegisterComponent(std::string(kErrorComponent), previous);
}

}  // namespace
}  // namespace lwconfig::automation
