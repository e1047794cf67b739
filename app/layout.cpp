#include "app/layout.h"

#include "platform/window.h"

namespace app {

bool MeasureLargeLayout() {
  const platform::WindowHandle probe = platform::MakeWindow({.className = u"Edit",
                                                             .style = platform::style::kCaption,
                                                             .x = platform::kUseDefault,
                                                             .y = platform::kUseDefault,
                                                             .width = platform::kUseDefault,
                                                             .height = platform::kUseDefault});
  const int bottom = platform::WindowRect(probe).bottom;
  platform::Destroy(probe);
  return IsLargeLayout(bottom);
}

}  // namespace app
