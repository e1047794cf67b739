// Drawing in a window.
#pragma once

#include "platform/window.h"

#include <memory>

namespace platform {

struct Color {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Color&) const = default;
};

inline constexpr Color kBlack{0, 0, 0};
inline constexpr Color kWhite{255, 255, 255};

enum class SystemColor { kWindow, kWindowText, kGrayText };
Color ColorOf(SystemColor color);

// The client area of a window while it is being painted; drawing ends when the object goes.
class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual void Fill(const Rect& rect, Color color) = 0;
  virtual void Frame(const Rect& rect, Color pen, Color inside) = 0;  // a pen one pixel wide
  // In the window's font, without a background.
  virtual void Text(Point topLeft, WideStringView text, Color color) = 0;
};

// Only while message::kPaint is handled.
std::unique_ptr<Canvas> BeginPaint(WindowHandle window);

// The answer to a message::kControlColor... : the control's text and background colours.
LResult AnswerControlColors(const Message& message, Color text, Color background);

}  // namespace platform
