#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class TerminalTest : public ToolTest {
 protected:
  std::string Show(const std::string& what) { return Run("show " + what).Out; }
  std::string ShowOnTerminal(const std::string& what, unsigned short columns = 80) {
    return RunOnTerminal("show " + what, columns);
  }
};

TEST_F(TerminalTest, ColoursOnlyWhereTheyAreWanted) {
  EXPECT_THAT(Show("plugins"), Not(HasSubstr("\x1b")));
  EXPECT_THAT(ShowOnTerminal("plugins"), HasSubstr("\x1b[1;36mplugins\x1b[0m"));
  EXPECT_THAT(Show("plugins --color always"), HasSubstr("\x1b["));
  EXPECT_THAT(ShowOnTerminal("plugins --color=never"), Not(HasSubstr("\x1b")));
  Set("NO_COLOR", "1");
  EXPECT_THAT(ShowOnTerminal("plugins"), Not(HasSubstr("\x1b")));
  EXPECT_THAT(Show("plugins --color always"), HasSubstr("\x1b["));
  Set("NO_COLOR", nullptr);
  Set("TERM", "dumb");
  EXPECT_THAT(ShowOnTerminal("plugins"), Not(HasSubstr("\x1b")));
}

TEST_F(TerminalTest, ColourValuesShowThemselves) {
  Set("COLORTERM", "truecolor");
  EXPECT_THAT(RunOnTerminal("describe Root"), HasSubstr("\x1b[1mRoot\x1b[0m"));
  EXPECT_THAT(ShowOnTerminal("templates/small"), HasSubstr("fill \x1b[97;48;2;255;0;255m#ff00ff\x1b[0m"));
}

TEST_F(TerminalTest, FitsLinesIntoTheTerminal) {
  const std::string layouts = "templates/small/layouts --color=never";
  EXPECT_EQ(ShowOnTerminal(layouts, 40),
            "layouts (2)\n"
            "├─ method.html   method · per LW:Method…\n"
            "└─ template.hhc  help project → %%proje…\n");
  Set("COLUMNS", "30");
  EXPECT_THAT(ShowOnTerminal(layouts, 40), HasSubstr("├─ method.html  method · per …\n"));
  EXPECT_THAT(ShowOnTerminal("templates/small/layouts/method.html --color=never", 40),
              HasSubstr("   repeats\n     per\n     LW:Method,LW:Implemented\n     Method\n"));
  // What goes to a file or another program stays whole, unless a width is asked for.
  EXPECT_THAT(Show(layouts), HasSubstr("where Public\n"));
  EXPECT_THAT(Show("templates/small/layouts --width=25"), HasSubstr("├─ method.html  method ·…\n"));
}

TEST_F(TerminalTest, DrawsInAsciiWhereTheLocaleHasNoMore) {
  Set("LC_ALL", "C");
  EXPECT_EQ(Show("templates/small/layouts --width=40"),
            "layouts (2)\n"
            "|- method.html   method, per LW:Metho...\n"
            "`- template.hhc  help project -> %%pr...\n");
}

}  // namespace
}  // namespace lwconfig::testing
