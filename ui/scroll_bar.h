// A bar that shows which page of the menu is on the screen. It takes no input.
#pragma once

#include "platform/window.h"

namespace ui {

// There is one bar at a time: its thumb is kept for the window class, not for the window.
class ScrollBar {
 public:
  // Hidden, 8 pixels wide; `height` is the track's.
  void Create(platform::WindowHandle owner, int x, int y, int height);

  // Shown when there are two pages or more.
  void SetPageCount(int pages);
  void Hide() const { platform::Hide(window_); }
  // A page beyond the last puts the thumb at the top.
  void SetPosition(int page);

  platform::WindowHandle Handle() const { return window_; }

 private:
  platform::WindowHandle window_ = nullptr;
  int trackHeightPx_ = 0;
  int pageCount_ = 1;
};

// Pixels.
struct ScrollThumb {
  int top = 0;
  int length = 0;
};
ScrollThumb CurrentScrollThumb();

}  // namespace ui
