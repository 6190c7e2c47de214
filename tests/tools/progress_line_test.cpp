#include <gtest/gtest.h>
#include <tools/lwconfig/progress_line.h>

namespace lwconfig::testing {
namespace {

using std::chrono::milliseconds;

TEST(ProgressLine, WaitsASecondAndIsErased) {
  std::string shown;
  tool::ProgressLine::Time now;
  {
    tool::ProgressLine line({[&](std::string_view text) { shown += text; }, [&] { return now; },
                             /*Columns=*/30, /*IsUnicode=*/true});
    const auto tell = [&](int later, std::size_t done) {
      now += milliseconds(later);
      line.Show({DiskFile("C:\\Config\\Templates\\Small\nest\\config.xml"), done, 2000});
    };
    tell(999, 0);
    line.Erase();
    EXPECT_EQ(shown, "");
    tell(1, 1);
    tell(99, 2);  // too soon for the next
    tell(1, 3);
    EXPECT_EQ(shown,
              "\r\x1b[Kreading 2 of 2000: Small\\nes…"
              "\r\x1b[Kreading 4 of 2000: Small\\nes…");
    shown.clear();
    line.Erase();
    line.Erase();
    EXPECT_EQ(shown, "\r\x1b[K");
    tell(100, 4);
    shown.clear();
  }
  EXPECT_EQ(shown, "\r\x1b[K");
}

}  // namespace
}  // namespace lwconfig::testing
