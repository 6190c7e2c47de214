#include <sstream>

#include <gmock/gmock.h>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

TEST_F(ToolTest, TheManualPageNamesEveryCommand) {
  std::ifstream file(LWCONFIG_MANUAL);
  const std::string manual((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  std::istringstream help(Run({"--help"}).Out);
  std::string line;
  while (std::getline(help, line) && line != "Commands:") {
  }
  int count = 0;
  for (; std::getline(help, line) && line.starts_with("  ");) {
    if (line[2] == ' ') continue;  // the description goes on
    const std::string name = line.substr(2, line.find(' ', 2) - 2);
    EXPECT_TRUE(manual.find(".It Cm " + name) != std::string::npos ||
                manual.find(" , Cm " + name) != std::string::npos)
        << name;
    ++count;
  }
  EXPECT_GT(count, 10);
}

}  // namespace
}  // namespace lwconfig::testing
