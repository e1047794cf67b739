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

}  // namespace
