// Window messages, notification codes and virtual keys by number. The numbers are those of Windows: the program's own
// messages are offsets from kUser, and configurations of the keypad name virtual keys.
#pragma once

#include <cstdint>

namespace platform {

namespace message {
using Id = std::uint32_t;

inline constexpr Id kCreate = 0x0001;
inline constexpr Id kDestroy = 0x0002;
inline constexpr Id kMove = 0x0003;
inline constexpr Id kSize = 0x0005;
inline constexpr Id kActivate = 0x0006;  // wParam: kInactive, kActive or a click
inline constexpr Id kSetFocus = 0x0007;  // wParam: the window that loses the focus
inline constexpr Id kKillFocus = 0x0008;
inline constexpr Id kEnable = 0x000A;
inline constexpr Id kSetRedraw = 0x000B;
inline constexpr Id kSetText = 0x000C;
inline constexpr Id kGetText = 0x000D;
inline constexpr Id kGetTextLength = 0x000E;
inline constexpr Id kPaint = 0x000F;
inline constexpr Id kClose = 0x0010;
inline constexpr Id kQuit = 0x0012;
inline constexpr Id kEraseBackground = 0x0014;
inline constexpr Id kShowWindow = 0x0018;
inline constexpr Id kSetFont = 0x0030;
inline constexpr Id kGetFont = 0x0031;
inline constexpr Id kNotify = 0x004E;
inline constexpr Id kNonClientDestroy = 0x0082;
inline constexpr Id kGetDialogCode = 0x0087;
inline constexpr Id kKeyDown = 0x0100;
inline constexpr Id kKeyUp = 0x0101;
inline constexpr Id kChar = 0x0102;
inline constexpr Id kInitDialog = 0x0110;  // wParam: the control that is to get the focus
inline constexpr Id kCommand = 0x0111;     // wParam: control id and notification code; lParam: the control
inline constexpr Id kControlColorEdit = 0x0133;
inline constexpr Id kControlColorListBox = 0x0134;
inline constexpr Id kControlColorButton = 0x0135;
inline constexpr Id kControlColorDialog = 0x0136;
inline constexpr Id kControlColorStatic = 0x0138;
inline constexpr Id kLeftButtonDown = 0x0201;
inline constexpr Id kLeftButtonUp = 0x0202;
inline constexpr Id kLeftButtonDoubleClick = 0x0203;
inline constexpr Id kPaste = 0x0302;
inline constexpr Id kUser = 0x0400;

// Edit fields.
inline constexpr Id kEditGetSelection = 0x00B0;
inline constexpr Id kEditSetSelection = 0x00B1;
inline constexpr Id kEditReplaceSelection = 0x00C2;
inline constexpr Id kEditLimitText = 0x00C5;
inline constexpr Id kEditSetPasswordChar = 0x00CC;
inline constexpr Id kEditSetReadOnly = 0x00CF;
inline constexpr Id kEditGetFirstVisibleLine = 0x00CE;
inline constexpr Id kEditScroll = 0x00B5;  // wParam: kScrollPageUp or kScrollPageDown
inline constexpr Id kEditLineScroll = 0x00B6;
inline constexpr Id kEditGetLineCount = 0x00BA;

// Buttons.
inline constexpr Id kButtonGetCheck = 0x00F0;
inline constexpr Id kButtonSetCheck = 0x00F1;
inline constexpr Id kButtonClick = 0x00F5;

// Combo boxes.
inline constexpr Id kComboAddString = 0x0143;
inline constexpr Id kComboGetCurrentSelection = 0x0147;
inline constexpr Id kComboGetText = 0x0148;
inline constexpr Id kComboGetTextLength = 0x0149;
inline constexpr Id kComboSetCurrentSelection = 0x014E;

// List boxes.
inline constexpr Id kListAddString = 0x0180;
inline constexpr Id kListInsertString = 0x0181;
inline constexpr Id kListDeleteString = 0x0182;
inline constexpr Id kListResetContent = 0x0184;
inline constexpr Id kListSetCurrentSelection = 0x0186;
inline constexpr Id kListGetCurrentSelection = 0x0188;
inline constexpr Id kListGetText = 0x0189;
inline constexpr Id kListGetTextLength = 0x018A;
inline constexpr Id kListGetCount = 0x018B;
inline constexpr Id kListGetTopIndex = 0x018E;
inline constexpr Id kListSetTopIndex = 0x0197;
inline constexpr Id kListGetItemData = 0x0199;
inline constexpr Id kListSetItemData = 0x019A;
inline constexpr Id kListSetItemHeight = 0x01A0;
inline constexpr Id kListGetItemHeight = 0x01A1;

// Date and time pickers; lParam: a SystemTime, or the format text.
inline constexpr Id kPickerGetSystemTime = 0x1001;
inline constexpr Id kPickerSetSystemTime = 0x1002;
inline constexpr Id kPickerSetFormat = 0x1032;

// Progress bars.
inline constexpr Id kProgressSetPosition = kUser + 2;
}  // namespace message

// wParam of message::kEditScroll.
inline constexpr std::uintptr_t kScrollPageUp = 2;
inline constexpr std::uintptr_t kScrollPageDown = 3;

// wParam of message::kActivate, low word.
inline constexpr std::uintptr_t kInactive = 0;
inline constexpr std::uintptr_t kActive = 1;

// Answers to message::kGetDialogCode.
namespace dialog_code {
inline constexpr std::intptr_t kWantArrows = 0x0001;
inline constexpr std::intptr_t kWantTab = 0x0002;
inline constexpr std::intptr_t kWantAllKeys = 0x0004;
inline constexpr std::intptr_t kHasSetSelection = 0x0008;
inline constexpr std::intptr_t kWantChars = 0x0080;
}  // namespace dialog_code

// Notification codes in the high word of message::kCommand's wParam.
namespace notification {
inline constexpr int kButtonClicked = 0;
inline constexpr int kListSelectionChange = 1;
inline constexpr int kListDoubleClick = 2;
inline constexpr int kComboSelectionChange = 1;
inline constexpr int kEditSetFocus = 0x0100;
inline constexpr int kEditKillFocus = 0x0200;
inline constexpr int kEditChange = 0x0300;
inline constexpr int kEditUpdate = 0x0400;
inline constexpr int kPickerDateTimeChange = -759;  // in the header of message::kNotify
}  // namespace notification

// Control ids that dialogs give the Enter and Esc keys, and results of the boxes.
inline constexpr int kIdOk = 1;
inline constexpr int kIdCancel = 2;

namespace key {
inline constexpr std::uint16_t kBackspace = 0x08;
inline constexpr std::uint16_t kTab = 0x09;
inline constexpr std::uint16_t kEnter = 0x0D;
inline constexpr std::uint16_t kShift = 0x10;
inline constexpr std::uint16_t kControl = 0x11;
inline constexpr std::uint16_t kEscape = 0x1B;
inline constexpr std::uint16_t kSpace = 0x20;
inline constexpr std::uint16_t kPageUp = 0x21;
inline constexpr std::uint16_t kPageDown = 0x22;
inline constexpr std::uint16_t kEnd = 0x23;
inline constexpr std::uint16_t kHome = 0x24;
inline constexpr std::uint16_t kLeft = 0x25;
inline constexpr std::uint16_t kUp = 0x26;
inline constexpr std::uint16_t kRight = 0x27;
inline constexpr std::uint16_t kDown = 0x28;
inline constexpr std::uint16_t kInsert = 0x2D;
inline constexpr std::uint16_t kDelete = 0x2E;
inline constexpr std::uint16_t kF1 = 0x70;
inline constexpr std::uint16_t kF2 = 0x71;
inline constexpr std::uint16_t kF3 = 0x72;
inline constexpr std::uint16_t kF4 = 0x73;
}  // namespace key

}  // namespace platform
