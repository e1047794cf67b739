#include "simulator/windows/driver/keypad.h"

#include <cstdint>

namespace simulator {
namespace {

// The keys of a PC's grey blocks say so in their messages.
bool IsExtended(std::uint16_t virtualKey) {
  return virtualKey >= VK_PRIOR && virtualKey <= VK_DELETE && virtualKey != VK_SNAPSHOT;
}

LPARAM KeyData(std::uint16_t virtualKey, bool up) {
  constexpr LPARAM kExtended = LPARAM{1} << 24;
  constexpr LPARAM kWasDownAndGoesUp = LPARAM{3} << 30;
  const auto scanCode = static_cast<LPARAM>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
  return 1 | (scanCode << 16) | (IsExtended(virtualKey) ? kExtended : 0) | (up ? kWasDownAndGoesUp : 0);
}

}  // namespace

void PressKey(HWND window, const Key& key) {
  if (key.virtualKey == 0) return TypeCharacter(window, key.character);
  PostMessageW(window, WM_KEYDOWN, key.virtualKey, KeyData(key.virtualKey, false));
  PostMessageW(window, WM_KEYUP, key.virtualKey, KeyData(key.virtualKey, true));
}

void TypeCharacter(HWND window, char16_t character) { PostMessageW(window, WM_CHAR, character, 1); }

HeldShift::HeldShift(DWORD threadId) : threadId_(threadId) {
  constexpr BYTE kDown = 0x80;
  Put(kDown);
}

HeldShift::~HeldShift() { Put(0); }

// Threads that are attached to each other share the state of their keys.
void HeldShift::Put(BYTE state) const {
  if (!AttachThreadInput(GetCurrentThreadId(), threadId_, TRUE)) return;
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_SHIFT] = state;
  keys[VK_LSHIFT] = state;
  SetKeyboardState(keys);
  AttachThreadInput(GetCurrentThreadId(), threadId_, FALSE);
}

}  // namespace simulator
