#include <filesystem>

#include <tests/locations.h>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

std::vector<std::string> SessionNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kSessionsFolder)) {
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  }
  return names;
}

class Session : public ToolTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(Session, GoesAsWritten) {
  Play(GetParam() + ".txt");
}

INSTANTIATE_TEST_SUITE_P(Tool, Session, ::testing::ValuesIn(SessionNames()),
                         [](const auto& session) { return session.param; });

}  // namespace
}  // namespace lwconfig::testing
