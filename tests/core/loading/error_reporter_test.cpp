#include <tests/configuration.h>
#include <tests/error_component.h>

#include <lwconfig/core/base/instance_count.h>

namespace lwconfig::testing {
namespace {

class ErrorReporter : public ConfigurationTest {
 protected:
  template <class Work>
  static auto Publish(const Operation& operation, Work work) {
    return RunPublished([&] { return operation; }, work);
  }
  /// A published operation that changes something and then fails inside another one.
  int Fail() {
    return Publish({"PageTemplates", "Save", {}}, [&] {
      return Publish({"PageTemplate", "Load", {{"e", "<\"Element\">"}}}, [&]() -> int {
        ++Changes;
        Error failure(kDuplicateKey, "The key is used twice");
        failure.SetPosition({"config.xml", 3, 14});
        throw failure;
      });
    });
  }
  int Changes = 0;
};

TEST_F(ErrorReporter, ShowsOneMessageAndReturnsNothingWithoutTheComponent) {
  EXPECT_EQ(Fail(), 0);
  EXPECT_EQ(Changes, 1);
  ASSERT_EQ(Messages.size(), 1U);
  EXPECT_EQ(Messages[0].Icon, platform::MessageIcon::Critical);
  EXPECT_THAT(Messages[0].Text,
              StartsWith("LWConfigObjects has encountered a problem. We are sorry for the inconvenience."));
  for (const char* line : {"\nModule: PageTemplates", "\nProcedure: Save",
                           "\nLine Number: ", "config.xml:3:14: The key is used twice", "457"})
    EXPECT_THAT(Messages[0].Text, HasSubstr(line));
  EXPECT_EQ(Publish({"A", "B", {}}, [] { return std::string("fine"); }), "fine");
  EXPECT_EQ(Messages.size(), 1U);
  // The next failure is reported again, and other exceptions too.
  Publish({"A", "B", {}}, [] { throw std::runtime_error("of another kind"); });
  ASSERT_EQ(Messages.size(), 2U);
  EXPECT_THAT(Messages[1].Text, HasSubstr("of another kind"));
}

TEST_F(ErrorReporter, ReportsOnceToTheComponentAndRaises65535) {
  const ErrorComponent component;
  const auto failure = ErrorOf([&] { Fail(); });
  EXPECT_EQ(failure.Number(), kReportedFailure);
  EXPECT_EQ(failure.Position().Line, 3);
  EXPECT_THAT(Messages, IsEmpty());
  ASSERT_EQ(component.Reports.size(), 1U);
  for (const char* part :
       {"<Module>PageTemplates</Module>", "<Procedure>Save</Procedure>", "<Number>457</Number>",
        "<Description>config.xml:3:14: The key is used twice</Description>",
        "<Source>LWConfigObjects</Source>"})
    EXPECT_THAT(component.Reports[0], HasSubstr(part));
  EXPECT_THAT(component.Reports[0], ::testing::ContainsRegex("<Line>[1-9]"));
}

// Code of others runs during a report. Its own failures are reported, but not those in reports of these.
TEST_F(ErrorReporter, ReportsFailuresDuringAReport) {
  std::vector<std::int32_t> raised;
  const auto failAgain = [&] { raised.push_back(ErrorOf([&] { Fail(); }).Number()); };
  {
    const ErrorComponent component(failAgain);
    failAgain();
    EXPECT_EQ(component.Reports.size(), 2U);
  }
  EXPECT_THAT(raised, ElementsAre(kDuplicateKey, kReportedFailure, kReportedFailure));

  int boxes = 0;
  const auto previous = platform::SetMessageBoxHandler([&](const platform::Message&) {
    if (++boxes == 1) {
      EXPECT_EQ(Fail(), 0);
    } else {
      EXPECT_ERROR(kDuplicateKey, Fail());
    }
  });
  EXPECT_EQ(Fail(), 0);
  platform::SetMessageBoxHandler(previous);
  EXPECT_EQ(boxes, 2);
}

TEST_F(ErrorReporter, ReportsParametersWhateverTheyHold) {
  const ErrorComponent component;
  for (const std::string& value : {std::string("a\0b", 3), std::string("\xFF")}) {
    const auto fail = [] { throw Error(kTypeMismatch, "Type mismatch"); };
    EXPECT_ERROR(kReportedFailure, Publish({"Root", "Item", {{"Key", value}}}, fail));
    EXPECT_THAT(component.Reports.back(), HasSubstr("Key"));
  }
  EXPECT_THAT(FailureReport(Error(5, "x"), {"M", "P", {{"Key", "<\"E\">"}}}), HasSubstr("&lt;\"E\"&gt;"));
}

}  // namespace
}  // namespace lwconfig::testing
