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

  void Add(const Node& node, int level = 0) {
    Enclose('{', '}', [&](auto next) {
      for (const Property& property : node.Properties) {
        if (property.Name.empty()) continue;
        next();
        AddName(property.Name);
        Add(property.Value);
      }
      for (const Group& group : node.Groups) {
        if (group.Name.empty() && level >= kShownLevels) continue;
        next();
        AddName(group.Published);
        Add(group, level);
      }
      if (const auto notShown = CountNotShown(node, level)) {
        next();
        AddName("DeeperLevelsNotShown");
        mText += std::to_string(notShown);
      }
    });
  }
  void Add(const Group& group, int level = 0) {
    if (group.IsSingle) return Add(group.Nodes[0], level);
    Enclose('[', ']', [&](auto next) {
      for (std::size_t at = 0; at < group.Nodes.Count(); ++at) {
        next();
        Add(group.Nodes[at], level + 1);
      }
    });
  }
  void Add(const std::vector<Target>& targets) {
    const auto add = [this](const Target& target) {
      std::visit([this](const auto& object) { Add(object); }, target);
    };
    if (targets.size() == 1) return add(targets.front());
    Enclose('[', ']', [&](auto next) {
      for (const Target& target : targets) {
        next();
        add(target);
      }
    });
  }
  void Add(const Json& json) { std::visit(*this, json.Value()); }
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

template <class Shown>
void Write(const Shown& shown, const Sink& sink) {
  JsonWriter writer(sink);
  writer.Add(shown);
  writer.End();
}

}  // namespace

void WriteJson(const Node& node, const Sink& sink) {
  Write(node, sink);
}
void WriteJson(const Group& group, const Sink& sink) {
  Write(group, sink);
}
void WriteJson(const std::vector<Target>& targets, const Sink& sink) {
  Write(targets, sink);
}

std::string JsonText(const Json& json) {
  std::string text;
  Write(json, [&text](std::string_view part) { text += part; });
  return text;
}

}  // namespace lwconfig::tool
