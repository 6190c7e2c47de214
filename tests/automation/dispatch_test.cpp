#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/configuration.h>
#include <tests/error_component.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {
namespace {

constexpr unsigned kCall = kMethod | kPropertyGet;

/// Late-bound callers as the product's tools are, with the error component registered.
class DispatchTest : public testing::ConfigurationTest {
 protected:
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

  static std::function<void()> Calling(const AnyObject& object, std::string_view member,
                                       std::vector<Variant> arguments = {}, unsigned kinds = kCall) {
    return [=] { Call(object, member, arguments, kinds); };
  }

  testing::ErrorComponent Component;
};

TEST_F(DispatchTest, ConvertsValuesAsClientsExpect) {
  const AnyObject layout = New("pagelayout");
  const AnyObject plugIn = New("PlugIn");
  using Row = std::tuple<AnyObject, const char*, Variant, Variant>;
  for (const auto& [object, member, value, expected] :
       {Row{layout, "NAME", 12, "12"}, Row{layout, "Name", true, "True"}, Row{layout, "Name", 2.5, "2.5"},
        Row{layout, "Name", Variant(), ""}, Row{layout, "DependantCount", " 7 ", 7},
        Row{layout, "DependantCount", 2.5, 2}, Row{layout, "DependantCount", 3.5, 4},
        Row{layout, "DependantCount", true, -1}, Row{layout, "DependantCount", std::int16_t{-3}, -3},
        Row{layout, "PageType", "3", 3}, Row{plugIn, "ExtendsWizard", "true", true},
        Row{plugIn, "ExtendsWizard", "0", false}, Row{plugIn, "ExtendsWizard", 0.5, true},
        Row{plugIn, "ExtendsWizard", -1, true}, Row{plugIn, "ExtendsWizard", Variant(), false}}) {
    Let(object, member, value);
    EXPECT_EQ(Call(object, member), expected) << member << " " << DescribeValue(value);
  }
  const AnyObject registry = New("RegistryAccess");
  using Stored = std::tuple<Variant, std::int32_t, Variant>;
  for (const auto& [value, type, expected] :
       {Stored{true, 1, "True"}, Stored{1.5, 1, "1.5"}, Stored{1.5, 4, 2}, Stored{true, 4, -1}}) {
    Call(registry, "SetValue", {-0x7FFFFFFF, "Software\\Test", "Value", value, type});
    EXPECT_EQ(Call(registry, "GetValue", {-0x7FFFFFFF, "Software\\Test", "Value"}), expected)
        << DescribeValue(value);
  }
}

TEST_F(DispatchTest, NamesMemberAndArgumentOfWrongCalls) {
  const AnyObject layouts = New("PageLayouts");
  const AnyObject layout = New("PageLayout");
  const AnyObject foreign{std::make_shared<int>(), nullptr};
  const auto naming = [&](std::string_view name) {
    return [=] {
      std::vector<Variant> position{1};
      Variant value = "x";
      const NamedArgument named{name, &value};
      Invoke(layouts, "Item", kCall, {position, std::span(&named, 1)});
    };
  };
  const auto setting = [&](const char* member, Variant value) {
    return Calling(layout, member, {std::move(value)}, kPropertyLet);
  };
  using Row = std::tuple<std::function<void()>, std::int32_t, const char*>;
  for (const auto& [call, number, text] :
       {Row{Calling(layouts, "Items"), kNoSuchMember, "The class PageLayouts has no member \"Items\""},
        Row{Calling(layouts, "Count", {}, kMethod), kNoSuchMember, "PageLayouts.Count"},
        Row{Calling(layouts, "Add", {layout}, kPropertyGet), kNoSuchMember, "PageLayouts.Add is a method"},
        Row{Calling(layouts, "Count", {3}, kPropertyLet), kReadOnlyProperty, "Count is read-only"},
        Row{Calling(layouts, "Count", {1}), kWrongArgumentCount, "PageLayouts.Count takes no arguments"},
        Row{Calling(layouts, "Add"), kArgumentNotOptional, "PageLayouts.Add: the argument 1 (obj)"},
        Row{Calling(layouts, "Add", {layout, 1, 2, 3, 4}), kWrongArgumentCount, "at most 4 arguments, 5"},
        Row{Calling(layouts, "Add", {New("PlugIn")}), kTypeMismatch,
            "PageLayout was expected, an object of the class PlugIn was found"},
        Row{Calling(layouts, "Add", {foreign}), kTypeMismatch, "another library"},
        Row{setting("DependantCount", "many"), kTypeMismatch,
            "PageLayout.DependantCount, argument 1 (Value): \"many\""},
        Row{setting("DependantCount", 3e9), kOverflow, "3e+09"},
        Row{setting("Name", Null{}), kInvalidUseOfNull, "Null"},
        Row{setting("Name", layout), kTypeMismatch, "A text was expected"},
        Row{naming("Nothing"), kNamedArgumentNotFound, "\"Nothing\""},
        Row{naming("key"), kNamedArgumentNotFound, "given twice"},
        Row{Calling({}, "Name"), kObjectNotSet, "No object"},
        Row{[&] { Invoke(layout, 0, kCall); }, kNoSuchMember, "no default member"},
        Row{[&] { Invoke(layout, 99, kCall); }, kNoSuchMember, "no member number 99"},
        Row{[&] { New("XMLElement"); }, kCannotCreateObject, "XMLElement"},
        Row{[&] { (void)Connect(layouts, "Changed", [] {}); }, kNoSuchEvent, "no event \"Changed\""},
        Row{Calling(layouts, "Remove", {true}), kReportedFailure, "no item with the key True;"},
        Row{Calling(layouts, "Remove", {layouts}), kReportedFailure, "no item with an object as its key;"}}) {
    const bool isReported = number == kReportedFailure;
    Component.Reports.clear();
    const Error failure = testing::ErrorOf(call);
    EXPECT_EQ(failure.Number(), number) << text;
    EXPECT_THAT(failure.Description(), ::testing::HasSubstr(text));
    EXPECT_EQ(Component.Reports.size(), isReported ? 1U : 0U) << text;
  }
}

TEST_F(DispatchTest, FailuresAreReportedOnceAtTheOutermostOperation) {
  Write("modelcomments/a.xml", "<ModelCommentProfile/>");
  const AnyObject root = New("Root");
  const Error failure = testing::ErrorOf([&] { Call(root, "ModelCommentProfiles"); });
  EXPECT_EQ(failure.Number(), kReportedFailure);
  ASSERT_EQ(Component.Reports.size(), 1U);
  EXPECT_THAT(Component.Reports[0], ::testing::HasSubstr("<Procedure>ModelCommentProfiles</Procedure>"));
  // Describe the object after the failure: its state is what the report is for.
  const AnyObject comment = New("ModelComment");
  const AnyObject element = Get(New("XMLDocument"), "RootElement");
  Call(element, "AddAttribute", {"MemberType_Namespace", "LW:X"});
  EXPECT_EQ(testing::ErrorOf([&] { Call(comment, "Load", {element}); }).Number(), kReportedFailure);
  EXPECT_THAT(Component.Reports.back(),
              ::testing::HasSubstr("<Variable Name=\"MemberType_Namespace\">the text \"LW:X\"</Variable>"));
}

TEST_F(DispatchTest, WithoutTheComponentFailuresGiveTheEmptyValueOfTheResultsType) {
  platform::RegisterComponent(std::string(kErrorComponent), nullptr);
  Write("modelcomments/a.xml", "<ModelCommentProfile/>");
  const AnyObject nothing;
  using Row = std::tuple<const char*, const char*, std::vector<Variant>, Variant>;
  for (const auto& [className, member, arguments, expected] :
       {Row{"Root", "ModelCommentProfiles", {}, nothing}, Row{"NamespaceDef", "Tag", {}, nothing},
        Row{"NodeDef", "Clone", {}, nothing}, Row{"StringTools", "KeyExists", {nothing, "k"}, false},
        Row{"StringTools", "JoinCollection", {nothing, ","}, std::string()},
        Row{"ElementAttributes", "Parse", {"a=" + std::string(40000, ' ')}, std::int16_t{0}},
        // No object is the operation's failure, however it takes its objects.
        Row{"ModelComment", "Load", {nothing}, Variant()},
        Row{"TOCDefinition", "Load", {Null{}, nothing}, Variant()},
        Row{"PageLayouts", "Add", {nothing}, Variant()}}) {
    Messages.clear();
    const Variant result = Call(New(className), member, arguments);
    EXPECT_EQ(result, expected) << className << "." << member;
    EXPECT_EQ(result.index(), expected.index()) << className << "." << member;
    ASSERT_EQ(Messages.size(), 1U) << className << "." << member;
    EXPECT_THAT(Messages[0].Text, ::testing::HasSubstr(std::string("Procedure: ") + member));
  }
}

TEST_F(DispatchTest, FindsNothingWhereAKeyIsOfAnotherKind) {
  const AnyObject pageTemplate = New("PageTemplate");
  const AnyObject layout = New("PageLayout");
  Call(Get(pageTemplate, "PageLayouts"), "Add", {layout});
  EXPECT_EQ(Get(pageTemplate, "PageLayouts", {1.0}), layout);
  for (const Variant& nothing : {Variant(0), Variant(2), Variant(true), Variant(layout), Variant("")})
    EXPECT_EQ(Get(pageTemplate, "PageLayouts", {nothing}), AnyObject{}) << DescribeValue(nothing);
}

TEST_F(DispatchTest, ReadsIndexesOfOtherTypes) {
  const AnyObject attributes = New("ElementAttributes");
  Call(attributes, "Parse", {"a=1 true=2 0.4=3"});
  using Row = std::pair<Variant, const char*>;
  for (const auto& [index, value] :
       {Row{true, "2"}, Row{false, ""}, Row{0.4, ""}, Row{1.5, "2"}, Row{0.0, ""}, Row{"A", "1"}, Row{3, "3"},
        Row{1e300, ""}, Row{-1, ""}, Row{Null{}, ""}, Row{attributes, ""}, Row{std::int16_t{2}, "2"}})
    EXPECT_EQ(Call(attributes, "AttributeData", {index}), Variant(value)) << DescribeValue(index);
}

TEST_F(DispatchTest, ReferencesKeepNothingAlive) {
  const AnyObject reference = New("ObjectReference");
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

TEST_F(DispatchTest, ByReferenceArgumentsComeBack) {
  struct Provider final : INamespaceProvider {
    bool VerifyMoniker(std::string_view moniker, std::string& message) override {
      message += std::string(moniker) + " is no file";
      return false;
    }
  };
  std::vector<Variant> moniker{"x.dll", "Sorry: "};
  Variant named = moniker[1];
  const NamedArgument message{"MESSAGE", &named};
  const AnyObject provider = ToAnyObject<INamespaceProvider>(std::make_shared<Provider>());
  EXPECT_EQ(Invoke(provider, "VerifyMoniker", kCall, {moniker}), Variant(false));
  EXPECT_EQ(moniker[1], Variant("Sorry: x.dll is no file"));
  Invoke(provider, "VerifyMoniker", kCall, {std::span(moniker).first(1), std::span(&message, 1)});
  EXPECT_EQ(named, moniker[1]);
}

TEST_F(DispatchTest, PropertiesHaveTheirNewValueWhenTheOldOneEnds) {
  const AnyObject comment = New("ModelComment");
  for (const Variant& tag : {Variant(New("PlugIn")), Variant(7), Variant(AnyObject{}), Variant(Null{}),
                             Variant(), Variant(AnyObject{std::make_shared<int>(1), nullptr})}) {
    std::vector<Variant> seen;
    const auto look = [&](void*) {
      if (seen.empty()) seen.push_back(Call(comment, "Tag"));
    };
    Let(comment, "Tag", AnyObject{{&seen, look}, nullptr});
    Let(comment, "Tag", tag);
    EXPECT_EQ(seen, std::vector{tag});
    EXPECT_EQ(DescribeValue(seen.at(0)), DescribeValue(tag));
  }
}

TEST_F(DispatchTest, FailuresOfEventHandlersAreReportedOnTheirOwn) {
  const AnyObject layouts = New("PageLayouts");
  Connection connection = Connect(layouts, "contentschange", [&] {
    connection.Close();
    EXPECT_EQ(testing::ErrorOf([&] { Call(layouts, "Remove", {7}); }).Number(), kReportedFailure);
  });
  for (int i = 0; i < 2; ++i) Call(layouts, "Add", {New("PageLayout")});
  EXPECT_EQ(Component.Reports.size(), 1U);
  EXPECT_EQ(Call(layouts, "Count"), Variant(2));
}

}  // namespace
}  // namespace lwconfig::automation
