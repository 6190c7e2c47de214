#include <gmock/gmock.h>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class TerminalTest : public ToolTest {
 protected:
  std::vector<std::string> Arguments(std::vector<std::string> more) {
    more.insert(more.begin(), {"show", "--config", Below("config")});
    return more;
  }
};

TEST_F(TerminalTest, ColoursOnlyWhereTheyAreWanted) {
  const auto plugins = Arguments({"plugins"});
  EXPECT_THAT(Run(plugins).Out, Not(HasSubstr("\x1b")));
  EXPECT_THAT(RunOnTerminal(plugins, 80), HasSubstr("\x1b[1;36mplugins\x1b[0m"));
  EXPECT_THAT(Run(Arguments({"plugins", "--color", "always"})).Out, HasSubstr("\x1b["));
  EXPECT_THAT(RunOnTerminal(Arguments({"plugins", "--color=never"}), 80), Not(HasSubstr("\x1b")));
  Set("NO_COLOR", "1");
  EXPECT_THAT(RunOnTerminal(plugins, 80), Not(HasSubstr("\x1b")));
  EXPECT_THAT(Run(Arguments({"plugins", "--color", "always"})).Out, HasSubstr("\x1b["));
  Set("NO_COLOR", nullptr);
  Set("TERM", "dumb");
  EXPECT_THAT(RunOnTerminal(plugins, 80), Not(HasSubstr("\x1b")));
}

TEST_F(TerminalTest, ColourValuesShowThemselves) {
  Set("COLORTERM", "truecolor");
  EXPECT_THAT(RunOnTerminal(Arguments({"templates/small"}), 80),
              HasSubstr("fill \x1b[97;48;2;255;0;255m#ff00ff\x1b[0m"));
}

TEST_F(TerminalTest, FitsLinesIntoTheTerminal) {
  const auto layouts = Arguments({"templates/small/layouts", "--color=never"});
  EXPECT_EQ(RunOnTerminal(layouts, 40),
            "layouts (2)\n"
            "├─ method.html   method · per LW:Method…\n"
            "└─ template.hhc  help project → %%proje…\n");
  Set("COLUMNS", "30");
  EXPECT_THAT(RunOnTerminal(layouts, 40), HasSubstr("├─ method.html  method · per …\n"));
  EXPECT_THAT(RunOnTerminal(Arguments({"templates/small/layouts/method.html", "--color=never"}), 40),
              HasSubstr("   repeats\n     per\n     LW:Method,LW:ImplementedM\n     ethod\n"));
  // What goes to a file or another program stays whole, unless a width is asked for.
  EXPECT_THAT(Run(layouts).Out, HasSubstr("where Public\n"));
  EXPECT_THAT(Run(Arguments({"templates/small/layouts", "--width=25"})).Out,
              HasSubstr("├─ method.html  method ·…\n"));
}

TEST_F(TerminalTest, DrawsInAsciiWhereTheLocaleHasNoMore) {
  Set("LC_ALL", "C");
  EXPECT_EQ(Show({"templates/small/layouts", "--width=40"}).Out,
            "layouts (2)\n"
            "|- method.html   method, per LW:Metho...\n"
            "`- template.hhc  help project -> %%pr...\n");
}

TEST_F(TerminalTest, TellsThatTheOutputCannotBeWritten) {
  const int device = ::open("/dev/full", O_WRONLY);
  const auto full = Run(Arguments({}), device);
  ::close(device);
  EXPECT_EQ(full.Status, 4);
  EXPECT_THAT(full.Err, HasSubstr("lwconfig: error: the output could not be written: No space left"));
}

TEST_F(TerminalTest, AReaderThatWentAwayIsNoNoise) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const auto gone = Run(Arguments({}), ends[1]);
  ::close(ends[1]);
  EXPECT_EQ(gone.Status, 4);
  EXPECT_EQ(gone.Err, "");
}

}  // namespace
}  // namespace lwconfig::testing
