#include "app/layout.h"

#include "app/dialog_templates.h"

#include <gtest/gtest.h>

namespace {

TEST(Layout, ABottomOf160IsSmallAnd161IsLarge) {
  EXPECT_FALSE(app::IsLargeLayout(160));
  EXPECT_TRUE(app::IsLargeLayout(161));
  EXPECT_EQ(105, app::MainTemplate(false).id);
  EXPECT_EQ(119, app::MainTemplate(true).id);
}

TEST(Layout, TheProbeStandsAtTheScreensCornerInTheSizeOfAnyWindow) {
  const platform::WindowSpec probe = app::ScreenProbe();
  EXPECT_EQ(u"Edit", probe.className);
  EXPECT_EQ(platform::style::kCaption, probe.style);
  EXPECT_EQ(0, probe.x);
  EXPECT_EQ(0, probe.y);
  EXPECT_EQ(platform::kUseDefault, probe.width);
  EXPECT_EQ(platform::kUseDefault, probe.height);
}

}  // namespace
