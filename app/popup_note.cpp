#include "app/popup_note.h"

namespace app {
namespace {

constexpr int kShownMs = 700;
constexpr platform::FontSpec kFont{.face = u"System", .heightPx = 20, .weight = 600};

}  // namespace

void ShowPopupNote(platform::WindowHandle list, WideStringView text) {
  using namespace platform::style;
  platform::Hide(list);
  const platform::WindowHandle note = platform::MakeWindow({.className = u"Static",
                                                            .text = text,
                                                            .style = kChild | kThickFrame | kStaticCentre,
                                                            .extendedStyle = kExtendedModalFrame,
                                                            .x = 1,
                                                            .y = 18,
                                                            .width = 150,
                                                            .height = 100,
                                                            .parent = platform::ActiveWindow()});
  platform::SetFont(note, kFont);
  platform::Show(note);
  platform::BringToForeground(note);
  platform::PauseMs(kShownMs);
  platform::Destroy(note);
  platform::Show(list);
}

}  // namespace app
