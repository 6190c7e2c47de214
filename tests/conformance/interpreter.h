#pragma once

#include <cstdint>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <regex>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <lwconfig/core/base/variant.h>

namespace lwconfig::testing {

/// A failure of a face, with the number that the transcript shows.
struct FaceFailure {
  std::int32_t Number;
};

/// What a face has to be able to do so that it can run the script of all faces. Members are named as in the
/// script; an empty name is the default member. Failures are `FaceFailure`.
class Face {
 public:
  using Closer = std::function<void()>;
  using Arguments = std::vector<std::pair<std::string, Variant>>;  // without names first
  struct Result {
    Variant Value{};
    std::string Constant{};  // "PageTypeEnum pgMethod", where the type is an enumeration that has the value
  };

  virtual ~Face() = default;
  virtual AnyObject New(const std::string& className) = 0;
  virtual std::string ClassOf(const AnyObject& object) = 0;
  virtual bool AreSame(const AnyObject& a, const AnyObject& b) = 0;
  virtual Result Get(const AnyObject& object, const std::string& member, std::vector<Variant> arguments) = 0;
  virtual void Set(const AnyObject& object, const std::string& member, Variant value) = 0;
  /// The result, and behind it what is in the by-reference arguments, left out or not.
  virtual std::vector<Result> Call(const AnyObject& object, const std::string& member,
                                   Arguments arguments) = 0;
  virtual std::vector<Variant> Items(const AnyObject& collection) = 0;
  virtual Closer Connect(const AnyObject& object, const std::string& event,
                         std::function<void()> handler) = 0;
  /// The value of a member of an enumeration.
  virtual std::optional<std::int32_t> Constant(const std::string& name) = 0;
};

/// Runs the script of all faces through one of them.
class Interpreter {
 public:
  explicit Interpreter(Face& face) : mFace(face) {}

  /// The transcript of the script in this folder.
  std::string Run(const std::string& folder) {
    std::istringstream script(TextOf(folder + "/script.txt"));
    for (std::string line; std::getline(script, line);) {
      static const std::regex word(R"('([^']*)'|"([^"]*)\"|(\S+))");
      Words words;
      if (line.starts_with('#')) continue;
      for (std::sregex_iterator found(line.begin(), line.end(), word), end; found != end; ++found)
        words.push_back((*found)[1].str() + (*found)[2].str() + (*found)[3].str());
      if (!words.empty()) Tell(words);
    }
    return std::move(mTold);
  }

  static std::string Transcript(const std::string& folder) { return TextOf(folder + "/transcript.txt"); }

 private:
  using Words = std::vector<std::string>;
  using Result = Face::Result;

  static std::string TextOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }

  void Tell(const Words& words) {
    mTold += ">";
    for (const auto& word : words) mTold += " " + word;
    mTold += "\n";
    try {
      const bool isNamed = words.size() > 2 && words[1] == "=";
      const auto results =
          Do(isNamed ? words[0] : "", isNamed ? Words(words.begin() + 2, words.end()) : words);
      if (isNamed && !results.empty()) mNamed[words[0]] = ObjectIn(results.front().Value);
      for (const auto& result : results) mTold += "  " + Describe(result) + "\n";
    } catch (const FaceFailure& failure) {
      mTold += "  error " + std::to_string(failure.Number) + "\n";
    }
  }

  std::vector<Result> Do(const std::string& name, const Words& words) {
    const std::string& command = words[0];
    if (command == "new") return {{mFace.New(words[1])}};
    if (command == "get") return {Get(words[1])};
    if (command == "same")
      return {{mFace.AreSame(ObjectIn(Get(words[1]).Value), ObjectIn(Get(words[2]).Value))}};
    if (command == "set") {
      const auto [object, member] = Last(words[1]);
      mFace.Set(object, member, ValueOf(words[2]));
    } else if (command == "call") {
      const auto [object, member] = Last(words[1]);
      return mFace.Call(object, member, ArgumentsOf({words.begin() + 2, words.end()}));
    } else if (command == "each") {
      std::vector<Result> items;
      for (const Variant& item : mFace.Items(ObjectIn(Get(words[1]).Value))) items.push_back({item});
      return items;
    } else if (command == "connect") {
      mClosers[name] =
          mFace.Connect(ObjectIn(Get(words[1]).Value), words[2],
                        [this, handler = Words(words.begin() + 3, words.end())] { Tell(handler); });
    } else if (command == "close") {
      mClosers.at(words[1])();
    } else {
      throw std::invalid_argument(command);
    }
    return {};
  }

  /// Follows a path such as `a.Items("key").Name`, but for the last steps.
  Result Get(const std::string& path, std::size_t without = 0) {
    const auto steps = StepsOf(path);
    Result at;
    for (std::size_t step = 0; step + without < steps.size(); ++step) {
      const auto& [name, argument] = steps[step];
      std::vector<Variant> arguments;
      if (!argument.empty()) arguments.push_back(ValueOf(argument));
      if (step == 0) {
        at.Value = mNamed.at(name);
        if (!arguments.empty()) at = mFace.Get(ObjectIn(at.Value), "", arguments);
      } else {
        at = mFace.Get(ObjectIn(at.Value), name, arguments);
      }
    }
    return at;
  }
  std::pair<AnyObject, std::string> Last(const std::string& path) {
    return {ObjectIn(Get(path, 1).Value), StepsOf(path).back().first};
  }
  /// The names of a path, each with its argument.
  static std::vector<std::pair<std::string, std::string>> StepsOf(const std::string& path) {
    static const std::regex step(R"((\w+)(?:\(([^)]*)\))?)");
    std::vector<std::pair<std::string, std::string>> steps;
    for (std::sregex_iterator found(path.begin(), path.end(), step), end; found != end; ++found)
      steps.emplace_back((*found)[1], (*found)[2]);
    return steps;
  }

  Face::Arguments ArgumentsOf(const Words& words) {
    Face::Arguments arguments;
    for (const auto& word : words) {
      const auto end = word.find(":=");
      const bool isNamed = end != std::string::npos;
      arguments.emplace_back(isNamed ? word.substr(0, end) : "",
                             ValueOf(isNamed ? word.substr(end + 2) : word));
    }
    return arguments;
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
    const auto constant = mFace.Constant(word);
    return constant ? Variant(*constant) : Variant(word);
  }

  static AnyObject ObjectIn(const Variant& value) {
    const auto* object = std::get_if<AnyObject>(&value);
    return object != nullptr ? *object : AnyObject{};
  }

  std::string Describe(const Result& result) {
    const Variant& value = result.Value;
    if (!result.Constant.empty()) return result.Constant;
    if (const auto* text = std::get_if<std::string>(&value)) return "text \"" + *text + "\"";
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? "boolean True" : "boolean False";
    if (const auto* number = std::get_if<std::int32_t>(&value)) return "integer " + std::to_string(*number);
    if (const auto* number = std::get_if<std::int16_t>(&value)) return "integer " + std::to_string(*number);
    const auto object = ObjectIn(value);
    return object ? "object (" + mFace.ClassOf(object) + ")" : "null";
  }

  Face& mFace;
  std::map<std::string, AnyObject> mNamed;
  std::map<std::string, Face::Closer> mClosers;
  std::string mTold;
};

}  // namespace lwconfig::testing
