#include "app/box_layout.h"

#include "app/dialog_templates.h"
#include "app/message_box.h"
#include "base/string_table.h"
#include "platform/host/desktop.h"
#include "tests/printing.h"
#include "tests/support/scripted_terminal.h"

namespace {

using platform::Rect;
using platform::WindowHandle;

struct Screen {
  int width = 0, height = 0;
};
constexpr Screen kLarge{240, 320};
constexpr Screen kSmall{160, 160};

// Where things stand in a shown box, in pixels of the screen.
struct Places {
  Rect box, message, below;
  int textHeight = 0;
};

class BoxLayoutTest : public testing::Test {
 protected:
  Places Show(const Screen& screen, WideStringView text, int kind = values::kErrorBox) {
    auto& environment = platform::host::CurrentEnvironment();
    environment.screenWidthPx = screen.width;
    environment.screenHeightPx = screen.height;
    const WindowHandle owner = platform::MakeWindow({.className = u"Static",
                                                     .style = platform::style::kPopup | platform::style::kVisible,
                                                     .width = screen.width,
                                                     .height = screen.height});
    app::MessageBox box;
    box.SetOwner(owner);
    Places places;
    terminal_.display.Then([&] { places = PlacesIn(platform::ActiveWindow(), text); });
    terminal_.display.Press("{Enter}");
    box.Show(text, u"Caption", kind);
    platform::Destroy(owner);
    return places;
  }

  static Places PlacesIn(WindowHandle box, WideStringView text) {
    using namespace app::control_id;
    const WindowHandle message = platform::ControlOf(box, kMessage);
    const WindowHandle answers = platform::ControlOf(box, kAnswers);
    const WindowHandle below = platform::IsVisible(answers) ? answers : platform::ControlOf(box, kPressEnter);
    const int lines = app::LinesOf(message, text, platform::ClientRect(message).Width());
    return {platform::WindowRect(box), platform::WindowRect(message), platform::WindowRect(below),
            lines * platform::LineHeight(message, app::kMessageFont)};
  }

  static void ExpectAllSeen(const Places& places, const Screen& screen) {
    EXPECT_LE(places.textHeight, places.message.Height());
    EXPECT_LE(places.message.bottom, places.below.top);
    EXPECT_LE(places.below.bottom, places.box.bottom);
    EXPECT_LE(places.box.bottom, screen.height);
    EXPECT_LE(places.message.right, screen.width);
    EXPECT_LE(places.below.right, screen.width);
  }

  tests::ScriptedTerminal terminal_;
};

TEST_F(BoxLayoutTest, TheLongestTextsAreSeenWholeOnBothScreens) {
  using base::LoadText;
  for (const Screen& screen : {kLarge, kSmall}) {
    SCOPED_TRACE(screen.height);
    ExpectAllSeen(Show(screen, LoadText(base::TextId::kEffectAfterAdapterResume)), screen);
    ExpectAllSeen(Show(screen, LoadText(base::TextId::kConfigurationDataError)), screen);
    ExpectAllSeen(Show(screen, LoadText(base::TextId::kRestoreNow), values::kYesNoBox), screen);
  }
}

TEST_F(BoxLayoutTest, BothAnswersOfAQuestionAreSeen) {
  for (const WideStringView text : {u"Short?", u"one two three\nfour\nfive\nsix\nseven\neight\nnine"}) {
    const Places places = Show(kLarge, text, values::kYesNoBox);
    EXPECT_LE(2 * 13, places.below.Height());
    ExpectAllSeen(places, kLarge);
  }
}

TEST_F(BoxLayoutTest, ABoxThatWouldLeaveTheScreenGetsWiderFirst) {
  WideString words;
  for (int i = 0; i < 150; ++i) words += u"word ";
  const Places places = Show(kLarge, words);
  EXPECT_EQ(kLarge.width, places.box.right);
  ExpectAllSeen(places, kLarge);
}

TEST_F(BoxLayoutTest, ABoxThatStaysOnTheScreenGetsHigherOnly) {
  const Rect usual = Show(kLarge, u"Short").box;
  WideString lines = u"line";
  for (int i = 1; i < 14; ++i) lines += u"\nline";
  const Places places = Show(kLarge, lines);
  EXPECT_EQ(usual.right, places.box.right);
  EXPECT_LT(usual.bottom, places.box.bottom);
  ExpectAllSeen(places, kLarge);
}

TEST_F(BoxLayoutTest, ATextThatNoScreenHoldsIsCutAboveWhatToPress) {
  WideString words;
  for (int i = 0; i < 1000; ++i) words += u"word ";
  for (const Screen& screen : {kLarge, kSmall}) {
    const Places places = Show(screen, words);
    EXPECT_LE(places.box.bottom, screen.height);
    EXPECT_LE(places.message.bottom, places.below.top);
    EXPECT_LE(places.below.bottom, places.box.bottom);
  }
}

TEST_F(BoxLayoutTest, ABoxGrowsToTheScreensEndAndNoFurther) {
  WideString words;
  for (int i = 0; i < 1000; ++i) words += u"word ";
  constexpr int least = 146;  // as its template has it
  ASSERT_EQ(least, Show({kSmall.width, 50}, words).box.bottom);
  for (int height = least - 20; height < least + 20; ++height)
    EXPECT_EQ(std::max(least, height), Show({kSmall.width, height}, words).box.bottom);
}

TEST_F(BoxLayoutTest, AShortTextStandsInTheMiddleOfItsRoom) {
  const Places one = Show(kLarge, u"Short");
  const Places two = Show(kLarge, u"Two\nlines");
  EXPECT_EQ(one.box.bottom, two.box.bottom);
  EXPECT_GT(one.message.top, two.message.top);
  EXPECT_EQ(13, (one.message.top - two.message.top) * 2 + 1);
}

}  // namespace
