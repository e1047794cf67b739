// What a window looks like, in words: of each control its id, class, rectangle and font, and what is set apart.
#pragma once

#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "platform/window.h"

#include <cstdio>
#include <string>

namespace tests {

inline std::string LookOf(const platform::Rect& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + std::to_string(rect.Width()) + "x" +
         std::to_string(rect.Height());
}

inline std::string LookOf(platform::Color color) {
  if (color == platform::kBlack) return "black";
  if (color == platform::kWhite) return "white";
  char text[8];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", color.red, color.green, color.blue);
  return text;
}

// "1014 Static 0,0 242x22, System 20 600, white on black": a control without a colour has the system's.
inline std::string LookOfControl(platform::WindowHandle control) {
  namespace host = platform::host;
  const host::FontState font = host::FontOf(control);
  std::string look = std::to_string(platform::IdOf(control)) + " " + base::ToUtf8(host::ClassOf(control)) + " " +
                     LookOf(platform::RectInParent(control)) + ", " + base::ToUtf8(font.face) + " " +
                     std::to_string(font.heightPx) + " " + std::to_string(font.weight);
  if (const auto colors = host::ControlColorsOf(control)) {
    look += ", " + LookOf(colors->text) + " on " + LookOf(colors->background);
  }
  if (!platform::IsEnabled(control)) look += ", disabled";
  if (!host::HasVisibleStyle(control)) look += ", hidden";
  return look;
}

// The window on the screen, then its controls in order of creation, a line each.
inline std::string LookOfWindow(platform::WindowHandle window) {
  namespace host = platform::host;
  std::string look = "window " + LookOf(platform::WindowRect(window));
  if (const auto colors = host::ControlColorsOf(window)) {
    look += ", " + LookOf(colors->text) + " on " + LookOf(colors->background);
  }
  for (const host::Drawing& drawing : host::DrawingsOf(window)) {
    if (drawing.kind == host::Drawing::Kind::kFill)
      look += ", filled " + LookOf(drawing.rect) + " " + LookOf(drawing.color);
  }
  look += "\n";
  for (const platform::WindowHandle control : host::ChildrenOf(window)) look += LookOfControl(control) + "\n";
  return look;
}

}  // namespace tests
