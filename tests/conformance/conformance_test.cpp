#include <gtest/gtest.h>
#include <tests/automation/memory_host.h>
#include <tests/conformance/interpreter.h>
#include <tests/error_component.h>
#include <tests/paths.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {
namespace {

/// Late-bound calls in C++.
class DispatchFace final : public testing::Face {
 public:
  AnyObject New(const std::string& className) override {
    return Telling([&] { return FindClass(className)->Create(); });
  }
  std::string ClassOf(const AnyObject& object) override { return object.Class->Name(); }
  bool AreSame(const AnyObject& a, const AnyObject& b) override { return a == b; }

  Result Get(const AnyObject& object, const std::string& member, std::vector<Variant> arguments) override {
    return Telling([&]() -> Result {
      if (member.empty()) return {Invoke(object, kDefaultMemberId, kPropertyGet, {arguments})};
      const Variant value = Invoke(object, member, kPropertyGet, {arguments});
      const auto* getter = object.Class->Find(member)->Get;
      return Described(value, arguments.size() > getter->ParameterCount ? TypeInfo{} : getter->Result);
    });
  }

  void Set(const AnyObject& object, const std::string& member, Variant value) override {
    Telling([&] { return Invoke(object, member, kPropertyLet, {std::span(&value, 1)}); });
  }

  std::vector<Result> Call(const AnyObject& object, const std::string& member, Arguments arguments) override {
    std::vector<Variant> ordered;
    std::map<std::string, Variant> values;
    for (const auto& [name, value] : arguments) {
      if (name.empty()) {
        ordered.push_back(value);
      } else {
        values[name] = value;
      }
    }
    const auto* found = object.Class->Find(member);
    const auto parameters = found != nullptr && found->Method != nullptr ? found->Method->Parameters()
                                                                         : std::span<const ParameterInfo>();
    for (std::size_t at = ordered.size(); at < parameters.size(); ++at) {
      if (parameters[at].IsByReference) values.try_emplace(std::string(parameters[at].Name), Missing{});
    }
    std::vector<NamedArgument> named;
    for (auto& [name, value] : values) named.push_back({name, &value});
    const Variant result = Telling([&] { return Invoke(object, member, kMethod, {ordered, named}); });
    std::vector<Result> results{Described(result, found->Method->Result)};
    for (std::size_t at = 0; at < parameters.size(); ++at) {
      if (!parameters[at].IsByReference) continue;
      const Variant& value = at < ordered.size() ? ordered[at] : values.at(std::string(parameters[at].Name));
      results.push_back(Described(value, parameters[at].Type));
    }
    return results;
  }

  std::vector<Variant> Items(const AnyObject& collection) override {
    std::vector<Variant> items;
    const auto all = Enumerate(collection);
    for (Variant item; all->Next(item);) items.push_back(item);
    return items;
  }

  Closer Connect(const AnyObject& object, const std::string& event, std::function<void()> handler) override {
    const auto connection = std::make_shared<Connection>(
        Telling([&] { return automation::Connect(object, event, std::move(handler)); }));
    return [connection] { connection->Close(); };
  }

  std::optional<std::int32_t> Constant(const std::string& name) override {
    for (const EnumInfo* enumeration : PublishedEnumerations()) {
      for (const auto& member : enumeration->Members) {
        if (member.Name == name) return member.Value;
      }
    }
    return std::nullopt;
  }

 private:
  template <class Operation>
  static auto Telling(Operation operation) -> decltype(operation()) {
    try {
      return operation();
    } catch (const ReportedError& failure) {
      throw testing::FaceFailure{failure.Cause().Number()};
    } catch (const Error& failure) {
      throw testing::FaceFailure{failure.Number()};
    }
  }

  static Result Described(const Variant& value, const TypeInfo& type) {
    if (type.Kind == ValueKind::Enumeration) {
      for (const auto& member : type.Enumeration().Members) {
        if (value == Variant(member.Value))
          return {value, std::string(type.Enumeration().Name) + " " + member.Name};
      }
    }
    return {value};
  }
};

TEST(ConformanceTest, LateBoundCallsGiveTheTranscript) {
  const testing::MemoryHost host;
  const testing::ErrorComponent component;
  DispatchFace face;
  EXPECT_EQ(testing::Interpreter(face).Run(testing::kConformanceFolder),
            testing::Interpreter::Transcript(testing::kConformanceFolder));
}

}  // namespace
}  // namespace lwconfig::automation
