// The main screen's private messages. The list, the editors and the worker thread reach the main screen by these.
#pragma once

#include "platform/messages.h"

#include <algorithm>
#include <array>

namespace ui {

namespace private_message {
using platform::message::Id;
using platform::message::kUser;

// To the main screen.
inline constexpr Id kAddressFieldRequest = kUser + 3;  // wParam: request; lParam: where the result goes
inline constexpr Id kEndDialog = kUser + 4;
inline constexpr Id kCloseTextPage = kUser + 5;
inline constexpr Id kShowRootMenu = kUser + 6;
inline constexpr Id kEditKey = kUser + 9;       // wParam: virtual key; answers 1 for the keys below, which act, else 0
inline constexpr Id kStartWorker = kUser + 12;  // to itself, once it is on the screen
inline constexpr Id kMayEnterItem = kUser + 300;  // wParam: int for the answer; lParam: item
inline constexpr Id kMayLeaveMenu = kUser + 301;  // wParam: int for the answer; lParam: menu
inline constexpr Id kFlipToggle = kUser + 302;    // the Insert key
inline constexpr Id kLeavingRoot = kUser + 304;
inline constexpr Id kActivateItem = kUser + 305;  // wParam: 1; lParam: item
inline constexpr Id kEvaluateItem = kUser + 306;  // lParam: item; once per numbered item before a menu is filled
inline constexpr Id kBeforeFill = kUser + 307;    // lParam: menu
inline constexpr Id kRebuildModel = kUser + 308;  // the list passes kTreeReplaced on
inline constexpr Id kRelayToList = kUser + 500;   // wParam: message; lParam: its wParam

// To the menu list.
inline constexpr Id kTreeReplaced = kUser + 510;  // the full key tree is in place
}  // namespace private_message

// Keys that an edit control does not need: they act on the dialog or the list around it.
inline bool IsPassedEditKey(std::uintptr_t virtualKey) {
  using namespace platform::key;
  constexpr std::array kPassed{kEscape, kTab, kEnter, kUp, kDown};
  return std::find(kPassed.begin(), kPassed.end(), virtualKey) != kPassed.end();
}

}  // namespace ui
