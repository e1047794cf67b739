#include "ui/scroll_bar.h"

#include "tests/printing.h"
#include "tests/support/test_terminal.h"

namespace {

class ScrollBarTest : public testing::Test {
 protected:
  void SetUp() override {
    owner_ = platform::MakeWindow({.className = u"Static",
                                   .style = platform::style::kPopup | platform::style::kVisible,
                                   .width = 240,
                                   .height = 300});
    bar_.Create(owner_, 220, 17, 123);
  }

  tests::TestTerminal terminal_;
  platform::WindowHandle owner_ = nullptr;
  ui::ScrollBar bar_;
};

TEST_F(ScrollBarTest, HasABorder) { EXPECT_NE(0u, platform::StyleOf(bar_.Handle()) & platform::style::kBorder); }

TEST_F(ScrollBarTest, OnePageShowsNoBar) {
  bar_.SetPageCount(1);
  EXPECT_FALSE(platform::IsVisible(bar_.Handle()));
  EXPECT_EQ(124, ui::CurrentScrollThumb().length);
  bar_.SetPageCount(0);
  EXPECT_FALSE(platform::IsVisible(bar_.Handle()));
  EXPECT_EQ(123, ui::CurrentScrollThumb().length);
}

TEST_F(ScrollBarTest, ThreePagesPlaceTheThumbByThirds) {
  bar_.SetPageCount(3);
  EXPECT_TRUE(platform::IsVisible(bar_.Handle()));
  EXPECT_EQ(42, ui::CurrentScrollThumb().length);
  const int tops[] = {0, 41, 82};
  for (int page = 0; page < 3; ++page) {
    bar_.SetPosition(page);
    EXPECT_EQ(tops[page], ui::CurrentScrollThumb().top) << page;
  }
}

TEST_F(ScrollBarTest, APageBeyondTheLastDrawsTheThumbAtTheTop) {
  bar_.SetPageCount(2);
  bar_.SetPosition(1);
  EXPECT_EQ(61, ui::CurrentScrollThumb().top);
  bar_.SetPosition(2);
  EXPECT_EQ(0, ui::CurrentScrollThumb().top);
}

TEST_F(ScrollBarTest, TheBarIsEightPixelsWideAtItsFixedPlace) {
  EXPECT_EQ((platform::Rect{220, 17, 228, 140}), platform::RectInParent(bar_.Handle()));
}

TEST_F(ScrollBarTest, ItPaintsItsTrackGreyAndItsThumbBlack) {
  bar_.SetPageCount(3);
  bar_.SetPosition(1);
  platform::Update(bar_.Handle());
  const auto drawings = platform::host::DrawingsOf(bar_.Handle());
  ASSERT_EQ(2u, drawings.size());
  EXPECT_EQ((platform::Color{175, 175, 175}), drawings[0].color);
  EXPECT_EQ(platform::kBlack, drawings[1].color);
  EXPECT_EQ(41, drawings[1].rect.top);
  EXPECT_EQ(83, drawings[1].rect.bottom);
}

}  // namespace
