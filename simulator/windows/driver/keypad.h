// Presses keys in windows of another process.
#pragma once

#include "simulator/keys.h"

#include <windows.h>

namespace simulator {

// The key goes down and up in `window`; whoever reads its messages makes the character from it.
void PressKey(HWND window, const Key& key);
void TypeCharacter(HWND window, char16_t character);

// Keeps Shift down for the thread that a window belongs to.
class HeldShift {
 public:
  explicit HeldShift(DWORD threadId);
  ~HeldShift();
  HeldShift(const HeldShift&) = delete;
  HeldShift& operator=(const HeldShift&) = delete;

 private:
  void Put(BYTE state) const;
  DWORD threadId_;
};

}  // namespace simulator
