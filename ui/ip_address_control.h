// The window class RNA_IPAddress: an IPv4 address typed into four numeric fields with dots between them.
//
// Its parent gets message::kCommand with notification::kEditSetFocus and kEditKillFocus when the focus enters and
// leaves the four fields, and kEditChange when what was typed lies within its field's bounds. Enter, Esc and Tab are
// passed to the parent as private_message::kEditKey.
#pragma once

#include "platform/window.h"
#include "ui/insert_flag.h"
#include "values/message_boxes.h"

#include <cstdint>

namespace ui {

inline constexpr WideStringView kAddressClassName = u"RNA_IPAddress";

namespace address_message {
using platform::message::Id;
using platform::message::kUser;

inline constexpr Id kAskForRootMenu = kUser + 7;  // the parent is sent private_message::kShowRootMenu
inline constexpr Id kClear = kUser + 100;
inline constexpr Id kSet = kUser + 101;  // lParam: the address, its first field in the most significant byte
inline constexpr Id kGet = kUser + 102;  // lParam: std::uint32_t for the address; answers how many fields hold text
inline constexpr Id kSetRange =
    kUser + 103;  // wParam: field; lParam: low bound in the low byte, high bound in the next
inline constexpr Id kSetFocus = kUser + 104;  // wParam: field; 4 and more: the first empty one, else the first
inline constexpr Id kCheck = kUser + 106;     // answers 1 when every field may be left; else the user has been told why
}  // namespace address_message

// The control's own style bits.
namespace address_style {
using platform::style::Bits;

inline constexpr Bits kRight = 0x2;
inline constexpr Bits kCentre = 0x4;
inline constexpr Bits kLeadingZeros = 0x8;  // a field always shows three digits
}  // namespace address_style

// Once, before a dialog with the control is run. The two services outlive all windows.
void RegisterAddressControl(values::MessageBoxes& boxes, InsertFlag& insertFlag);

}  // namespace ui
