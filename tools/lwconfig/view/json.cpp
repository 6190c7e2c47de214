#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include <nlohmann/json.hpp>
#include <tools/lwconfig/view/json.h>

namespace lwconfig::tool {
namespace {

constexpr int kIndentation = 2;

/// A value without others inside. Bytes that are not UTF-8 become replacement characters.
template <class Value>
std::string Dump(const Value& value) {
  using Library = nlohmann::json;
  return Library(value).dump(-1, ' ', false, Library::error_handler_t::replace);
}

/// Writes objects one after the other: none is kept, whatever their number.
class JsonWriter {
 public:
  explicit JsonWriter(const Sink& sink) : mSink(sink) {}

  void Add(const Json& json) { std::visit(*this, json.Value()); }
  void Add(const Target& target, const ValueToJson& toJson) {
    std::visit([&](const auto& object) { Add(object, toJson); }, target);
  }
  void Add(const std::vector<Target>& targets, const ValueToJson& toJson) {
    if (targets.size() == 1) return Add(targets.front(), toJson);
    Enclose('[', ']', [&](auto next) {
      for (const Target& target : targets) {
        next();
        Add(target, toJson);
      }
    });
  }
  void Add(const Group& group, const ValueToJson& toJson) {
    if (group.IsSingle) return Add(group.Nodes[0], toJson);
    const bool isList = group.Nodes.IsEmpty() || std::holds_alternative<AnyObject>(group.Nodes[0].Value);
    Enclose(isList ? '[' : '{', isList ? ']' : '}', [&](auto next) {
      for (std::size_t at = 0; at < group.Nodes.Count(); ++at) {
        const Node node = group.Nodes[at];
        next();
        if (!isList) AddName(node.Title);
        Add(node, toJson);
      }
    });
  }
  void Add(const Node& node, const ValueToJson& toJson) {
    if (!std::holds_alternative<std::monostate>(node.Value)) return Add(toJson(node.Value));
    if (!node.Groups.empty() && node.Groups.front().Name.empty()) return Add(node.Groups.front(), toJson);
    Enclose('{', '}', [&](auto next) {
      for (const Group& group : node.Groups) {
        next();
        AddName(group.Published);
        Add(group, toJson);
      }
    });
  }
  void End() {
    mText += '\n';
    mSink(std::exchange(mText, {}));
  }

  template <class Value>
  void operator()(const Value& value) {
    mText += Dump(value);
  }
  void operator()(const Json::List& items) {
    Enclose('[', ']', [&](auto next) {
      for (const Json& item : items) {
        next();
        Add(item);
      }
    });
  }
  void operator()(const Json::Object& members) {
    Enclose('{', '}', [&](auto next) {
      for (const auto& [name, value] : members) {
        next();
        AddName(name);
        Add(value);
      }
    });
  }

 private:
  /// Writes brackets and, through `body(next)`, what is in them; `next()` is called before each member.
  template <class Body>
  void Enclose(char opening, char closing, Body body) {
    bool isEmpty = true;
    mText += opening;
    ++mDepth;
    body([&] {
      mText += isEmpty ? "\n" : ",\n";
      Indent();
      isEmpty = false;
    });
    --mDepth;
    if (!isEmpty) {
      mText += '\n';
      Indent();
    }
    mText += closing;
    constexpr std::size_t kPart = 65536;
    if (mText.size() > kPart) mSink(std::exchange(mText, {}));
  }
  void AddName(const std::string& name) { (mText += Dump(name)) += ": "; }
  void Indent() { mText.append(mDepth * kIndentation, ' '); }

  const Sink& mSink;
  std::string mText;
  std::size_t mDepth = 0;
};

}  // namespace

void WriteJson(const std::vector<Target>& targets, const ValueToJson& toJson, const Sink& sink) {
  JsonWriter writer(sink);
  writer.Add(targets, toJson);
  writer.End();
}

std::string JsonText(const Json& json) {
  std::string text;
  const Sink sink = [&text](std::string_view part) { text += part; };
  JsonWriter writer(sink);
  writer.Add(json);
  writer.End();
  return text;
}

}  // namespace lwconfig::tool
