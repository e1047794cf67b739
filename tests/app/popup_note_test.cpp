#include "app/popup_note.h"

#include "platform/host/desktop.h"
#include "tests/printing.h"
#include "tests/support/look.h"
#include "tests/support/scripted_terminal.h"

namespace {

namespace style = platform::style;
using platform::WindowHandle;

TEST(PopupNote, StandsInTheActiveWindowForSevenTenthsOfASecondWhileTheListIsHidden) {
  tests::ScriptedTerminal terminal;
  const WindowHandle window = platform::MakeWindow(
      {.className = u"Static", .style = style::kPopup | style::kVisible, .width = 240, .height = 300});
  const WindowHandle list = platform::MakeWindow({.className = u"ListBox",
                                                  .style = style::kChild | style::kVisible,
                                                  .width = 100,
                                                  .height = 90,
                                                  .parent = window});
  platform::Activate(window);
  int pauses = 0;
  terminal.display.whilePaused = [&] {
    ++pauses;
    EXPECT_FALSE(platform::IsVisible(list));
    const std::vector<WindowHandle> children = platform::host::ChildrenOf(window);
    ASSERT_EQ(2U, children.size());
    const WindowHandle note = children.back();
    EXPECT_EQ("0 Static 1,18 150x100, System 20 600", tests::LookOfControl(note));
    EXPECT_EQ(u"\n\nSaved", platform::TextOf(note));
    EXPECT_EQ(style::kThickFrame | style::kStaticCentre,
              platform::StyleOf(note) & (style::kThickFrame | style::kStaticCentre));
    EXPECT_EQ(style::kExtendedModalFrame, platform::host::ExtendedStyleOf(note));
  };
  app::ShowPopupNote(list, u"\n\nSaved");
  EXPECT_EQ(1, pauses);
  EXPECT_EQ(std::chrono::milliseconds(700), terminal.display.paused);
  EXPECT_TRUE(platform::IsVisible(list));
  EXPECT_EQ(1U, platform::host::ChildrenOf(window).size());
  platform::Destroy(window);
}

}  // namespace
