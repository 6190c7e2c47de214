#include <tests/configuration.h>

#include <lwconfig/core/error_reporter.h>
#include <lwconfig/core/instance_count.h>
#include <lwconfig/platform/components.h>

namespace lwconfig {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Parse;
using ::testing::StartsWith;

class ErrorReporter : public testing::ConfigurationTest {
 protected:
  ~ErrorReporter() override { platform::RegisterComponent(std::string(kErrorComponent), mPrevious); }

  /// Installs the error-reporting component; its reports are kept in `Reports`.
  void InstallComponent(const std::function<void()>& onReport = [] {}) {
    struct Recorder final : platform::Component {
      Recorder(std::vector<std::string>& reports, std::function<void()> onReport)
          : Reports(reports), OnReport(std::move(onReport)) {}
      void Receive(std::string_view text) override {
        Reports.emplace_back(text);
        OnReport();
      }
      std::vector<std::string>& Reports;
      std::function<void()> OnReport;
    };
    mPrevious = platform::RegisterComponent(std::string(kErrorComponent), [this, onReport] {
      return std::make_unique<Recorder>(Reports, onReport);
    });
  }
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
  std::vector<std::string> Reports;
  int Changes = 0;

 private:
  platform::ComponentFactory mPrevious;
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
  InstallComponent();
  const auto failure = ErrorOf([&] { Fail(); });
  EXPECT_EQ(failure.Number(), kReportedFailure);
  EXPECT_EQ(failure.Position().Line, 3);
  EXPECT_THAT(Messages, IsEmpty());
  ASSERT_EQ(Reports.size(), 1U);
  const auto report = Parse(Reports[0]);
  const auto text = [&](const char* name) {
    for (const XMLElement child : report.Children())
      if (child.IsNamed(name)) return child.Text();
    return std::string("none");
  };
  EXPECT_EQ(text("Module"), "PageTemplates");
  EXPECT_EQ(text("Procedure"), "Save");
  EXPECT_EQ(text("Number"), "457");
  EXPECT_EQ(text("Description"), "config.xml:3:14: The key is used twice");
  EXPECT_EQ(text("Source"), "LWConfigObjects");
  EXPECT_NE(text("Line"), "0");
}

// Code of others runs during a report. Its own failures are reported, but not those in reports of these.
TEST_F(ErrorReporter, ReportsFailuresDuringAReport) {
  std::vector<std::int32_t> raised;
  const auto failAgain = [&] { raised.push_back(ErrorOf([&] { Fail(); }).Number()); };
  InstallComponent(failAgain);
  failAgain();
  EXPECT_EQ(Reports.size(), 2U);
  EXPECT_THAT(raised, ElementsAre(kDuplicateKey, kReportedFailure, kReportedFailure));

  platform::RegisterComponent(std::string(kErrorComponent), nullptr);
  int boxes = 0;
  const auto previous = platform::SetMessageBoxHandler([&](const platform::Message&) {
    ++boxes;
    if (boxes == 1) {
      EXPECT_EQ(Fail(), 0);
    } else {
      EXPECT_EQ(ErrorOf([&] { Fail(); }).Number(), kDuplicateKey);
    }
  });
  EXPECT_EQ(Fail(), 0);
  platform::SetMessageBoxHandler(previous);
  EXPECT_EQ(boxes, 2);
}

TEST_F(ErrorReporter, ReportsParametersWhateverTheyHold) {
  InstallComponent();
  for (const std::string& value :
       {std::string("<\"Element\">"), std::string("a\0b", 3), std::string("\xFF")}) {
    Reports.clear();
    const auto failure = ErrorOf([&] {
      Publish({"Root", "Item", {{"Key", value}}}, [] { throw Error(kTypeMismatch, "Type mismatch"); });
    });
    EXPECT_EQ(failure.Number(), kReportedFailure) << failure.what();
    ASSERT_EQ(Reports.size(), 1U);
    EXPECT_THAT(Reports[0], HasSubstr("Key"));
  }
  EXPECT_THAT(FailureReport(Error(5, "x"), {"M", "P", {{"Key", "<\"E\">"}}}), HasSubstr("&lt;\"E\"&gt;"));
}

}  // namespace
}  // namespace lwconfig
