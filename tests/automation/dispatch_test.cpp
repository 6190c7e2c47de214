#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/configuration.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/error_reporter.h>
#include <lwconfig/platform/components.h>

namespace lwconfig::automation {
namespace {

constexpr unsigned kCall = kMethod | kPropertyGet;

/// Late-bound callers as the product's tools are, with the error component registered.
class DispatchTest : public testing::ConfigurationTest {
 protected:
  struct Receiver final : platform::Component {
    explicit Receiver(std::vector<std::string>& reports) : Reports(reports) {}
    void Receive(std::string_view text) override { Reports.emplace_back(text); }
    std::vector<std::string>& Reports;
  };

  DispatchTest() {
    mPrevious = platform::RegisterComponent(std::string(kErrorComponent),
                                            [this] { return std::make_unique<Receiver>(Reports); });
  }
  ~DispatchTest() override { platform::RegisterComponent(std::string(kErrorComponent), mPrevious); }

  static AnyObject New(std::string_view className) { return FindClass(className)->Create(); }
  static Variant Call(const AnyObject& object, std::string_view member, std::vector<Variant> arguments = {},
                      unsigned kinds = kCall) {
    return Invoke(object, member, kinds, {arguments});
  }
  static AnyObject Get(const AnyObject& object, std::string_view member,
                       std::vector<Variant> arguments = {}) {
    return ToObject(Call(object, member, std::move(arguments)));
  }
  static void Let(const AnyObject& object, std::string_view member, Variant value) {
    Call(object, member, {std::move(value)}, kPropertyLet);
  }
  static std::string Text(const Variant& value) { return std::get<std::string>(value); }

  std::vector<std::string> Reports;

 private:
  platform::ComponentFactory mPrevious;
};

TEST_F(DispatchTest, ConvertsValuesAsClientsExpect) {
  const AnyObject layout = New("pagelayout");
  const std::vector<std::tuple<const char*, Variant, Variant>> rows{
      {"NAME", std::int32_t{12}, std::string("12")},
      {"Name", true, std::string("True")},
      {"Name", 2.5, std::string("2.5")},
      {"Name", Variant(), std::string()},
      {"DependantCount", std::string(" 7 "), 7},
      {"DependantCount", 2.5, 2},
      {"DependantCount", 3.5, 4},
      {"DependantCount", true, -1},
      {"DependantCount", std::int16_t{-3}, -3},
      {"PageType", std::string("3"), 3}};
  for (const auto& [member, value, expected] : rows) {
    Let(layout, member, value);
    EXPECT_EQ(Call(layout, member), expected) << member << " " << DescribeValue(value);
  }
  const AnyObject registry = New("RegistryAccess");
  const Variant user = std::int32_t{-0x7FFFFFFF};
  const std::vector<std::tuple<Variant, std::int32_t, Variant>> values{
      {true, 1, std::string("True")}, {1.5, 1, std::string("1.5")}, {1.5, 4, 2}, {true, 4, -1}};
  for (const auto& [value, type, expected] : values) {
    const Variant key = std::string("Software\\Test");
    const Variant name = std::string("Value");
    Call(registry, "SetValue", {user, key, name, value, type});
    EXPECT_EQ(Call(registry, "GetValue", {user, key, name}), expected) << DescribeValue(value);
  }
  const AnyObject file = New("PlugIn");
  const std::vector<std::pair<Variant, bool>> flags{{std::string("true"), true},
                                                    {std::string("0"), false},
                                                    {0.5, true},
                                                    {std::int32_t{-1}, true},
                                                    {Variant(), false}};
  for (const auto& [value, expected] : flags) {
    Let(file, "ExtendsWizard", value);
    EXPECT_EQ(Call(file, "ExtendsWizard"), Variant(expected)) << DescribeValue(value);
  }
}

TEST_F(DispatchTest, NamesMemberAndArgumentOfWrongCalls) {
  const AnyObject layouts = New("PageLayouts");
  const AnyObject layout = New("PageLayout");
  const AnyObject other = New("PlugIn");
  Variant named = std::string("x");
  const NamedArgument unknown{"Nothing", &named};
  const NamedArgument twice{"key", &named};
  using Row = std::tuple<std::function<void()>, std::int32_t, const char*>;
  std::vector<Variant> one{std::int32_t{1}};
  const std::vector<Row> rows{
      {[&] { Call(layouts, "Items"); }, kNoSuchMember, "The class PageLayouts has no member \"Items\""},
      {[&] { Call(layouts, "Count", {}, kMethod); }, kNoSuchMember, "PageLayouts.Count"},
      {[&] { Call(layouts, "Add", {layout}, kPropertyGet); }, kNoSuchMember, "PageLayouts.Add is a method"},
      {[&] { Let(layouts, "Count", 3); }, kReadOnlyProperty, "PageLayouts.Count is read-only"},
      {[&] { Call(layouts, "Count", {1}); }, kWrongArgumentCount, "PageLayouts.Count takes no arguments"},
      {[&] { Call(layouts, "Add"); }, kArgumentNotOptional, "PageLayouts.Add: the argument 1 (obj)"},
      {[&] {
         Call(layouts, "Add", {layout, 1, 2, 3, 4});
       },
       kWrongArgumentCount, "at most 4 arguments, 5"},
      {[&] { Call(layouts, "Add", {other}); }, kTypeMismatch,
       "PageLayouts.Add, argument 1 (obj): An object of the class PageLayout was expected, an object of the "
       "class "
       "PlugIn was found"},
      {[&] {
         Call(layouts, "Add", {AnyObject{std::make_shared<int>(), nullptr}});
       },
       kTypeMismatch, "another library"},
      {[&] { Let(layout, "DependantCount", std::string("many")); }, kTypeMismatch,
       "PageLayout.DependantCount, argument 1 (Value): \"many\""},
      {[&] { Let(layout, "DependantCount", 3e9); }, kOverflow, "3e+09"},
      {[&] { Let(layout, "Name", Null{}); }, kInvalidUseOfNull, "Null"},
      {[&] { Let(layout, "Name", layout); }, kTypeMismatch, "A text was expected"},
      {[&] {
         Invoke(layouts, "Item", kCall, {one, std::span(&unknown, 1)});
       },
       kNamedArgumentNotFound, "\"Nothing\""},
      {[&] {
         Invoke(layouts, "Item", kCall, {one, std::span(&twice, 1)});
       },
       kNamedArgumentNotFound, "given twice"},
      {[&] { Call({}, "Name"); }, kObjectNotSet, "No object"},
      {[&] { Invoke(layout, 0, kCall); }, kNoSuchMember, "no default member"},
      {[&] { Invoke(layout, 99, kCall); }, kNoSuchMember, "no member number 99"},
      {[&] { New("XMLElement"); }, kCannotCreateObject, "XMLElement"},
      {[&] { (void)Connect(layouts, "Changed", [] {}); }, kNoSuchEvent, "no event \"Changed\""}};
  for (const auto& [call, number, text] : rows) {
    const Error failure = testing::ErrorOf(call);
    EXPECT_EQ(failure.Number(), number) << text;
    EXPECT_THAT(failure.Description(), ::testing::HasSubstr(text));
  }
  EXPECT_TRUE(Reports.empty());
}

TEST_F(DispatchTest, FailuresAreReportedOnceAtTheOutermostOperation) {
  Write("modelcomments/a.xml", "<ModelCommentProfile/>");
  const AnyObject root = New("Root");
  const Error failure = testing::ErrorOf([&] { Call(root, "ModelCommentProfiles"); });
  EXPECT_EQ(failure.Number(), kReportedFailure);
  ASSERT_EQ(Reports.size(), 1U);
  EXPECT_THAT(Reports[0], ::testing::HasSubstr("<Procedure>ModelCommentProfiles</Procedure>"));
  // The object is told of as the failure leaves it.
  const AnyObject comment = New("ModelComment");
  const AnyObject element = Get(New("XMLDocument"), "RootElement");
  Call(element, "AddAttribute", {std::string("MemberType_Namespace"), std::string("LW:X")});
  EXPECT_EQ(testing::ErrorOf([&] { Call(comment, "Load", {element}); }).Number(), kReportedFailure);
  EXPECT_THAT(Reports.back(),
              ::testing::HasSubstr("<Variable Name=\"MemberType_Namespace\">the text \"LW:X\"</Variable>"));
}

TEST_F(DispatchTest, WithoutTheComponentFailuresGiveTheEmptyValueOfTheResultsType) {
  platform::RegisterComponent(std::string(kErrorComponent), nullptr);
  Write("modelcomments/a.xml", "<ModelCommentProfile/>");
  const AnyObject nothing;
  const std::vector<std::tuple<const char*, const char*, std::vector<Variant>, Variant>> rows{
      {"Root", "ModelCommentProfiles", {}, nothing},
      {"NamespaceDef", "Tag", {}, nothing},
      {"NodeDef", "Clone", {}, nothing},
      {"StringTools", "KeyExists", {nothing, std::string("k")}, false},
      {"StringTools", "JoinCollection", {nothing, std::string(",")}, std::string()},
      {"ElementAttributes", "Parse", {"a=" + std::string(40000, ' ')}, std::int16_t{0}},
      // No object is the operation's failure, however it takes its objects.
      {"ModelComment", "Load", {nothing}, Variant()},
      {"TOCDefinition", "Load", {Null{}, nothing}, Variant()},
      {"PageLayouts", "Add", {nothing}, Variant()}};
  for (const auto& [className, member, arguments, expected] : rows) {
    Messages.clear();
    const Variant result = Call(New(className), member, arguments);
    EXPECT_EQ(result, expected) << className << "." << member;
    EXPECT_EQ(result.index(), expected.index()) << className << "." << member;
    ASSERT_EQ(Messages.size(), 1U) << className << "." << member;
    EXPECT_THAT(Messages[0].Text, ::testing::HasSubstr(std::string("Procedure: ") + member));
  }
}

TEST_F(DispatchTest, ReachesItemsByPositionKeyAndDefaultMember) {
  const AnyObject pageTemplate = New("PageTemplate");
  const AnyObject layout = New("PageLayout");
  Variant key = std::string("Method.html");
  const NamedArgument named{"KEY", &key};
  std::vector<Variant> item{layout};
  Invoke(Get(pageTemplate, "PageLayouts"), "Add", kCall, {item, std::span(&named, 1)});

  EXPECT_EQ(Get(pageTemplate, "PageLayouts", {std::string("method.HTML")}), layout);
  EXPECT_EQ(Get(pageTemplate, "PageLayouts", {1.0}), layout);
  for (const Variant& nothing :
       {Variant(0), Variant(2), Variant(true), Variant(layout), Variant(std::string())})
    EXPECT_EQ(Get(pageTemplate, "PageLayouts", {nothing}), AnyObject{}) << DescribeValue(nothing);
  EXPECT_EQ(Call(pageTemplate, "Phrase", {std::string("x")}), Variant(std::string("!MISSING PHRASE 'x'!")));

  const auto items = Enumerate(Get(pageTemplate, "PageLayouts"));
  Variant next;
  EXPECT_TRUE(items->Next(next));
  EXPECT_EQ(next, Variant(layout));
  EXPECT_FALSE(items->Next(next));
  items->Reset();
  EXPECT_TRUE(items->Clone()->Next(next));
}

TEST_F(DispatchTest, ReadsIndexesAndKeysOfOtherTypes) {
  const AnyObject attributes = New("ElementAttributes");
  Call(attributes, "Parse", {std::string("a=1 true=2 0.4=3")});
  const std::vector<std::pair<Variant, const char*>> rows{
      {true, "2"}, {false, ""}, {0.4, ""}, {1.5, "2"},   {0.0, ""},        {std::string("A"), "1"},
      {3, "3"},    {1e300, ""}, {-1, ""},  {Null{}, ""}, {attributes, ""}, {std::int16_t{2}, "2"}};
  for (const auto& [index, value] : rows)
    EXPECT_EQ(Text(Call(attributes, "AttributeData", {index})), value) << DescribeValue(index);
  const AnyObject layouts = New("PageLayouts");
  const std::vector<std::pair<Variant, const char*>> keys{{true, "no item with the key True;"},
                                                          {layouts, "no item with an object as its key;"}};
  for (const auto& [key, text] : keys) {
    const Variant given = key;
    EXPECT_THAT(testing::ErrorOf([&] { Call(layouts, "Remove", {given}); }).Description(),
                ::testing::HasSubstr(text));
  }
}

TEST_F(DispatchTest, ReferencesKeepNothingAlive) {
  const AnyObject reference = New("ObjectReference");
  EXPECT_EQ(Get(reference, "Object"), AnyObject{});
  AnyObject layout = New("PageLayout");
  Let(reference, "Object", layout);
  EXPECT_EQ(Get(reference, "Object"), layout);
  EXPECT_EQ(Get(reference, "Object").Class, layout.Class);
  const AnyObject foreign{std::make_shared<int>(1), nullptr};
  EXPECT_EQ(testing::ErrorOf([&] { Let(reference, "Object", foreign); }).Number(), kReportedFailure);
  EXPECT_EQ(Get(reference, "Object"), layout);
  layout = {};
  EXPECT_EQ(Get(reference, "Object"), AnyObject{});
  Let(reference, "Object", reference);
  Let(reference, "Object", {});
  EXPECT_EQ(Get(reference, "Object"), AnyObject{});
}

TEST_F(DispatchTest, AddedAttributesAreGivenBack) {
  const AnyObject element = Get(New("XMLDocument"), "RootElement");
  Call(element, "AddAttribute", {std::string("a"), std::string("1")});
  const AnyObject second = Get(element, "AddAttribute", {std::string("A"), std::string("2")});
  EXPECT_EQ(Text(Call(second, "Value")), "2");
}

TEST_F(DispatchTest, ByReferenceArgumentsComeBack) {
  const AnyObject profile = New("NamespaceDefs");
  const AnyObject definition = New("NamespaceDef");
  Let(definition, "Name", std::string("LW:A"));
  Call(profile, "Add", {definition, std::string("LW:A")});
  std::vector<Variant> arguments{std::string("lw:a"), Variant()};
  const AnyObject found = ToObject(Invoke(profile, "GetNamespaceDefsByName", kCall, {arguments}));
  EXPECT_EQ(ToObject(arguments[1]), found);
  EXPECT_EQ(Get(found, "Item", {1}), definition);

  struct Provider final : INamespaceProvider {
    bool VerifyMoniker(std::string_view moniker, std::string& message) override {
      message += std::string(moniker) + " is no file";
      return false;
    }
  };
  std::vector<Variant> moniker{std::string("x.dll"), std::string("Sorry: ")};
  const AnyObject provider = ToAnyObject<INamespaceProvider>(std::make_shared<Provider>());
  EXPECT_EQ(Invoke(provider, "VerifyMoniker", kCall, {moniker}), Variant(false));
  EXPECT_EQ(moniker[1], Variant(std::string("Sorry: x.dll is no file")));
}

TEST_F(DispatchTest, SetsObjectsAndForeignObjects) {
  const AnyObject comment = New("ModelComment");
  const AnyObject foreign{std::make_shared<int>(1), nullptr};
  for (const Variant& tag :
       {Variant(foreign), Variant(comment), Variant(std::string("t")), Variant(Null{}), Variant()}) {
    Let(comment, "Tag", tag);
    EXPECT_EQ(Call(comment, "Tag"), tag);
  }
  Let(comment, "Tag", {});
}

TEST_F(DispatchTest, PropertiesHaveTheirNewValueWhenTheOldOneEnds) {
  const AnyObject comment = New("ModelComment");
  for (const Variant& tag : {Variant(New("PlugIn")), Variant(7), Variant(AnyObject{})}) {
    std::vector<Variant> seen;
    const auto look = [&](void*) {
      if (seen.empty()) seen.push_back(Call(comment, "Tag"));
    };
    Let(comment, "Tag", AnyObject{{&seen, look}, nullptr});
    Let(comment, "Tag", tag);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0], tag);
    if (const auto* object = std::get_if<AnyObject>(&tag)) {
      EXPECT_EQ(std::get<AnyObject>(seen[0]).Class, object->Class);
    }
  }
}

TEST_F(DispatchTest, EventHandlersDoNoHarm) {
  const AnyObject layouts = New("PageLayouts");
  int calls = 0;
  Connection second;
  Connection first = Connect(layouts, "contentschange", [&] {
    ++calls;
    second.Close();
    first.Close();
    Call(layouts, "Remove", {1});
    // A failure of an operation that a handler begins is reported on its own.
    EXPECT_EQ(testing::ErrorOf([&] { Call(layouts, "Remove", {7}); }).Number(), kReportedFailure);
  });
  second = Connect(layouts, "ContentsChange", [&] { calls += 100; });
  Call(layouts, "Add", {New("PageLayout")});
  Call(layouts, "Add", {New("PageLayout")});
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(Reports.size(), 1U);
  EXPECT_EQ(Call(layouts, "Count"), Variant(1));
}

}  // namespace
}  // namespace lwconfig::automation
