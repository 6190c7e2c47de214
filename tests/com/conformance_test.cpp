#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

/// Runs the script of all faces through late-bound calls of the automation server.
class Interpreter {
 public:
  Interpreter(const Server& server, const ErrorComponent& errors) : mServer(server), mErrors(errors) {}

  /// The transcript.
  std::string Run(std::istream& script) {
    static const std::regex word(R"('([^']*)'|"([^"]*)\"|(\S+))");
    for (std::string line; std::getline(script, line);) {
      Words words;
      if (line.starts_with('#')) continue;
      for (std::sregex_iterator found(line.begin(), line.end(), word), end; found != end; ++found)
        words.push_back((*found)[1].str() + (*found)[2].str() + (*found)[3].str());
      if (!words.empty()) Tell(words);
    }
    return mTold;
  }

 private:
  using Words = std::vector<std::string>;
  struct Failure {
    std::int32_t Number;
  };
  struct Result {
    Value Held;
    std::string Enumeration{};  // of the value, if any
  };

  void Tell(const Words& words) {
    mTold += ">";
    for (const auto& word : words) mTold += " " + word;
    mTold += "\n";
    try {
      const bool isNamed = words.size() > 2 && words[1] == "=";
      const auto results =
          Do(isNamed ? words[0] : "", isNamed ? Words(words.begin() + 2, words.end()) : words);
      if (isNamed && !results.empty()) mNamed[words[0]] = results.front().Held.ToObject();
      for (const auto& result : results) mTold += "  " + Describe(result) + "\n";
    } catch (const Failure& failure) {
      mTold += "  error " + std::to_string(failure.Number) + "\n";
    }
  }

  std::vector<Result> Do(const std::string& name, const Words& words) {
    const std::string& command = words[0];
    if (command == "new") return {{New(words[1])}};
    if (command == "get") return {Get(words[1])};
    if (command == "same") return {{Value(ObjectAt(words[1]).Get() == ObjectAt(words[2]).Get())}};
    if (command == "call") return Call(words[1], {words.begin() + 2, words.end()});
    std::vector<Result> items;
    if (command == "each") {
      for (const Value& item : ItemsOf(ObjectAt(words[1]))) items.push_back({item});
    } else if (command == "set") {
      const auto [object, member] = Last(words[1]);
      Checked(Invoke(object.Get(), IdsOf(object, {member})[0], DISPATCH_PROPERTYPUT, {ValueOf(words[2])}));
    } else if (command == "connect") {
      Connect(name, ObjectAt(words[1]), words[2], {words.begin() + 3, words.end()});
    } else {
      EXPECT_EQ(command, "close");
      EXPECT_EQ(mConnections.at(words[1]).Close(), S_OK);
    }
    return items;
  }

  Object New(const std::string& className) {
    Object object;
    const HRESULT code = mServer.Create(Published().at(className).Id, object);
    if (FAILED(code)) throw Failure{NumberOf(code)};
    return object;
  }

  /// Follows a path such as `a.Items("key").Name`, but for the last steps.
  Result Get(const std::string& path, std::size_t without = 0) {
    const auto steps = StepsOf(path);
    Result at{mNamed.at(steps[0].first)};
    for (std::size_t step = 0; step + without < steps.size(); ++step) {
      const auto& [name, argument] = steps[step];
      if (step == 0 && argument.empty()) continue;
      const Object object = at.Held.ToObject();
      const DISPID id = step == 0 ? DISPID_VALUE : IdsOf(object, {name})[0];
      std::vector<Value> arguments;
      if (!argument.empty()) arguments.push_back(ValueOf(argument));
      at = {Checked(Invoke(object.Get(), id, DISPATCH_PROPERTYGET, arguments)).Result};
      const Slot* slot = Published().at(ClassOf(object.Get())).Find(id, DISPATCH_PROPERTYGET);
      if (slot != nullptr && slot->Inputs.size() == arguments.size())
        at.Enumeration = slot->Result[0].Declared;
    }
    return at;
  }
  Object ObjectAt(const std::string& path) { return Get(path).Held.ToObject(); }
  std::pair<Object, std::string> Last(const std::string& path) {
    return {Get(path, 1).Held.ToObject(), StepsOf(path).back().first};
  }
  /// The names of a path, each with its argument.
  static std::vector<std::pair<std::string, std::string>> StepsOf(const std::string& path) {
    static const std::regex step(R"((\w+)(?:\(([^)]*)\))?)");
    std::vector<std::pair<std::string, std::string>> steps;
    for (std::sregex_iterator found(path.begin(), path.end(), step), end; found != end; ++found)
      steps.emplace_back((*found)[1], (*found)[2]);
    return steps;
  }

  /// The result, and behind it the by-reference arguments, given or not.
  std::vector<Result> Call(const std::string& path, const Words& words) {
    const auto [object, member] = Last(path);
    std::vector<std::string> names{member};
    std::vector<Value> values;
    for (const auto& word : words) {
      const auto end = word.find(":=");
      const bool isNamed = end != std::string::npos;
      if (isNamed) names.push_back(word.substr(0, end));
      values.push_back(ValueOf(isNamed ? word.substr(end + 2) : word));
    }
    std::vector<DISPID> places = IdsOf(object, names);
    const DISPID id = places[0];
    places.erase(places.begin());
    const Slot& slot = *Published().at(ClassOf(object.Get())).Find(id, DISPATCH_METHOD);
    const std::size_t ordered = values.size() - places.size();
    for (std::size_t place = ordered; place < slot.Inputs.size(); ++place) {
      const auto name = static_cast<DISPID>(place);
      if (!slot.Inputs[place].IsReference() || std::ranges::count(places, name) > 0) continue;
      places.push_back(name);
      values.push_back(Value::Missing());
    }
    std::vector<Value> arguments = values;
    for (std::size_t at = 0; at < values.size(); ++at) {
      const std::size_t place = at < ordered ? at : static_cast<std::size_t>(places[at - ordered]);
      const bool isReference = place < slot.Inputs.size() && slot.Inputs[place].IsReference();
      if (isReference) arguments[at] = Value::Reference(values[at]);
    }
    std::vector<Result> results{
        {Checked(Invoke(object.Get(), id, DISPATCH_METHOD, arguments, places)).Result}};
    for (std::size_t at = 0; at < values.size(); ++at) {
      if ((arguments[at].vt & VT_BYREF) != 0) results.push_back({values[at]});
    }
    return results;
  }

  void Connect(const std::string& name, const Object& object, const std::string& event,
               const Words& handler) {
    if (Published().at(ClassOf(object.Get())).Event != event) throw Failure{459};
    mConnections.emplace(name,
                         Connected(object.Get(), [=, this](DISPID, const DISPPARAMS&) { Tell(handler); }));
  }

  Value ValueOf(const std::string& word) {
    static const std::regex number("-?[0-9]+");
    if (word.starts_with('@')) return Get(word.substr(1)).Held;
    if (word == "null") return Object();
    if (word == "True" || word == "False") return word == "True";
    if (word.starts_with('"')) return Wide(word.substr(1, word.size() - 2)).c_str();
    if (std::regex_match(word, number)) {
      const double value = std::stod(word);
      return std::abs(value) <= INT_MAX ? Value(std::stoi(word)) : Value(VT_R8, &VARIANT::dblVal, value);
    }
    for (const Constant& constant : Published().Constants) {
      if (constant.Name == word) return static_cast<int>(constant.Value);
    }
    return Wide(word).c_str();
  }

  static std::string Describe(const Result& result) {
    for (const Constant& constant : Published().Constants) {
      if (constant.Enumeration == result.Enumeration && constant.Value == result.Held.lVal)
        return constant.Enumeration + " " + constant.Name;
    }
    return result.Held.Describe();
  }

  static std::vector<DISPID> IdsOf(const Object& object, const std::vector<std::string>& names) {
    std::vector<std::wstring> wide;
    for (const auto& name : names) wide.push_back(Wide(name));
    std::vector<wchar_t*> pointers;
    for (auto& name : wide) pointers.push_back(name.data());
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    const HRESULT code = object->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(names.size()),
                                               LOCALE_USER_DEFAULT, ids.data());
    EXPECT_EQ(code == S_OK, std::ranges::count(ids, DISPID_UNKNOWN) == 0);
    if (FAILED(code)) throw Failure{ids[0] == DISPID_UNKNOWN ? 438 : 448};
    return ids;
  }

  Outcome Checked(Outcome outcome) const {
    if (outcome.Succeeded()) return outcome;
    EXPECT_FALSE(outcome.Description.empty() || outcome.Source.empty());
    // The report names the failure itself.
    throw Failure{outcome.Number == 65535 ? std::stoi(mErrors.Last(L"Number")) : outcome.Number};
  }

  const Server& mServer;
  const ErrorComponent& mErrors;
  std::map<std::string, Object> mNamed;
  std::map<std::string, Connected> mConnections;
  std::string mTold;
};

using ServerConformanceTest = ServerTest;

TEST_F(ServerConformanceTest, AutomationGivesTheTranscript) {
  const ErrorComponent errors;
  std::ifstream script(LWCONFIG_CONFORMANCE "/script.txt");
  std::ostringstream transcript;
  transcript << std::ifstream(LWCONFIG_CONFORMANCE "/transcript.txt", std::ios::binary).rdbuf();
  EXPECT_EQ(Interpreter(*mServer, errors).Run(script), transcript.str());
}

}  // namespace
}  // namespace lwconfig::testing
