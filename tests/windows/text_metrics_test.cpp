// The simulated terminal measures texts as this system does.
#include "platform/host/text_metrics.h"
#include "platform/win32/windows_api.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

WideString EveryMeasuredCharacter() {
  WideString text;
  for (char16_t unit = 0x20; unit < 0x7F; ++unit) text.push_back(unit);
  for (char16_t unit = 0xA0; unit <= 0xFF; ++unit) text.push_back(unit);
  return text;
}

class WindowsTextMetrics : public testing::Test {
 protected:
  ~WindowsTextMetrics() override { DestroyWindow(window_); }

  const HWND window_ = CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
};

TEST_F(WindowsTextMetrics, OfTheSimulatedTerminalsFontsAreTheSame) {
  const FontSpec fonts[] = {{u"System", 11, 400}, {u"System", 13, 400},  {u"System", 15, 600},
                            {u"System", 20, 600}, {u"Courier", 13, 400}, {u"Courier", 18, 400}};
  for (const FontSpec& font : fonts) {
    SCOPED_TRACE(base::ToUtf8(font.face) + " " + std::to_string(font.heightPx));
    const host::Font& simulated = host::FontFor(font.face, font.heightPx, font.weight);
    for (const char16_t unit : EveryMeasuredCharacter()) {
      const WideStringView text(&unit, 1);
      EXPECT_EQ(MeasureText(win32::FromApi(window_), text, font), host::WidthOf(simulated, text)) << base::ToUtf8(text);
    }
    EXPECT_EQ(LineHeight(win32::FromApi(window_), font), simulated.metrics->heightPx);
  }
}

TEST_F(WindowsTextMetrics, OfTheSimulatedTerminalsWindowsAreTheSame) {
  for (const char16_t unit : EveryMeasuredCharacter()) {
    const WideStringView text(&unit, 1);
    EXPECT_EQ(MeasureText(win32::FromApi(window_), text), host::WidthOf(host::SystemFont(), text))
        << base::ToUtf8(text);
  }
}

}  // namespace
}  // namespace platform
