#include <utility>

#include <tools/lwconfig/session_interpreter.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/paths/collection_items.h>
#include <lwconfig/paths/value_text.h>

namespace lwconfig::tool {
namespace {

/// Type and value as every face of the library can tell them: no object, empty and Null are one.
std::string TypedText(const CallResult& result) {
  // Other faces know names of values, and no form for colours.
  const bool isNamed = result.Type.Kind == automation::ValueKind::Enumeration;
  const std::string text = ValueText(result.Value, isNamed ? result.Type : automation::TypeInfo{});
  struct Kind {
    const CallResult& Told;
    const std::string& Text;
    std::string operator()(bool) const { return "boolean "; }
    std::string operator()(std::int16_t) const { return "integer "; }
    std::string operator()(std::int32_t number) const {
      return Text != std::to_string(number) ? std::string(Told.Type.Enumeration().Name) + " " : "integer ";
    }
    std::string operator()(double) const { return "number "; }
    std::string operator()(const std::string&) const { return "text "; }
    std::string operator()(const AnyObject& object) const { return object ? "object " : ""; }
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(Null) const { return ""; }
    std::string operator()(Missing) const { return "null"; }
  };
  const std::string quote = std::holds_alternative<std::string>(result.Value) ? "\"" : "";
  return std::visit(Kind{result, text}, result.Value) + quote + text + quote;
}

const std::string& WordAt(const std::vector<std::string>& words, std::size_t at) {
  if (at >= words.size())
    throw PathError(PathErrorKind::Usage, "the command '" + words.front() + "' ends too early");
  return words[at];
}

}  // namespace

std::string SessionInterpreter::Run(const Words& words) {
  Tell(words);
  return std::exchange(mTold, {});
}

void SessionInterpreter::Tell(const Words& words) {
  mTold += ">";
  for (const std::string& word : words) mTold += " " + word;
  mTold += "\n";
  try {
    const bool isNamed = words.size() > 2 && words[1] == "=";
    const auto results = Do(isNamed ? words[0] : "", isNamed ? Words(words.begin() + 2, words.end()) : words);
    if (isNamed && !results.empty()) mModel.Name(words[0], std::get<AnyObject>(results.front().Value));
    for (const CallResult& result : results) mTold += "  " + TypedText(result) + "\n";
  } catch (const PathError& fault) {
    if (fault.Number() == 0) throw;
    mTold += "  error " + std::to_string(fault.Number()) + "\n";
  } catch (const Error& failure) {
    mTold += "  error " + std::to_string(failure.Number()) + "\n";
  }
}

std::vector<CallResult> SessionInterpreter::Do(const std::string& name, const Words& words) {
  const std::string& command = words.front();
  if (command == "new") {
    const auto* info = automation::FindClass(WordAt(words, 1));
    if (info == nullptr) throw PathError(PathErrorKind::Usage, "there is no class '" + words[1] + "'");
    return {{{}, info->Create(), {}}};
  }
  if (command == "get") {
    const PathTarget place = mModel.Follow(ParsePath(WordAt(words, 1)));
    return {{{}, place.Value, place.Type}};
  }
  if (command == "set") return mEditor.Run({EditKind::Set, WordAt(words, 1), {WordAt(words, 2)}});
  if (command == "call") {
    auto results = mEditor.Run({EditKind::Call, WordAt(words, 1), {words.begin() + 2, words.end()}});
    if (results.empty()) results.emplace_back();
    return results;
  }
  if (command == "each") return Each(WordAt(words, 1));
  if (command == "same") return {{{}, ObjectAt(WordAt(words, 1)) == ObjectAt(WordAt(words, 2)), {}}};
  if (command == "connect") {
    Connect(name, words);
  } else if (command == "close") {
    mConnections[WordAt(words, 1)].Close();
  } else {
    throw PathError::Unknown(PathErrorKind::Usage, "command", command, "",
                             {"new", "get", "set", "call", "each", "same", "connect", "close"});
  }
  return {};
}

AnyObject SessionInterpreter::ObjectAt(const std::string& path) {
  return mModel.FollowToObject(ParsePath(path)).back();
}

std::vector<CallResult> SessionInterpreter::Each(const std::string& path) {
  std::vector<CallResult> items;
  for (const CollectionItem& item : ItemsOf(ObjectAt(path))) items.push_back({{}, item.Value, {}});
  return items;
}

void SessionInterpreter::Connect(const std::string& name, const Words& words) {
  const AnyObject object = ObjectAt(WordAt(words, 1));
  const Words command(words.begin() + 3, words.end());
  mConnections[name] = automation::Connect(object, WordAt(words, 2), [this, command] { Tell(command); });
}

}  // namespace lwconfig::tool
