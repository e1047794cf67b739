#include "app/layout.h"

namespace app {

platform::WindowSpec ScreenProbe() {
  return {.className = u"Edit",
          .style = platform::style::kCaption,
          .x = 0,
          .y = 0,
          .width = platform::kUseDefault,
          .height = platform::kUseDefault};
}

bool MeasureLargeLayout() {
  const platform::WindowHandle probe = platform::MakeWindow(ScreenProbe());
  const int bottom = platform::WindowRect(probe).bottom;
  platform::Destroy(probe);
  return IsLargeLayout(bottom);
}

}  // namespace app
