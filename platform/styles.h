// Window styles by number, those of Windows.
#pragma once

#include <cstdint>

namespace platform::style {

using Bits = std::uint32_t;

inline constexpr Bits kPopup = 0x80000000;
inline constexpr Bits kChild = 0x40000000;
inline constexpr Bits kVisible = 0x10000000;
inline constexpr Bits kDisabled = 0x08000000;
inline constexpr Bits kClipSiblings = 0x04000000;
inline constexpr Bits kCaption = 0x00C00000;
inline constexpr Bits kBorder = 0x00800000;
inline constexpr Bits kVerticalScroll = 0x00200000;
inline constexpr Bits kSystemMenu = 0x00080000;
inline constexpr Bits kThickFrame = 0x00040000;
inline constexpr Bits kGroup = 0x00020000;
inline constexpr Bits kTabStop = 0x00010000;

inline constexpr Bits kExtendedModalFrame = 0x00000001;

inline constexpr Bits kDialogSetFont = 0x40;
inline constexpr Bits kDialogModalFrame = 0x80;

inline constexpr Bits kStaticCentre = 0x1;
inline constexpr Bits kStaticNoPrefix = 0x80;  // "&" is a character like any other

inline constexpr Bits kButtonDefault = 0x1;
inline constexpr Bits kButtonCheckBox = 0x2;
inline constexpr Bits kButtonRadio = 0x4;

inline constexpr Bits kEditCentre = 0x1;
inline constexpr Bits kEditRight = 0x2;
inline constexpr Bits kEditMultiLine = 0x4;
inline constexpr Bits kEditPassword = 0x20;
inline constexpr Bits kEditAutoVerticalScroll = 0x40;
inline constexpr Bits kEditAutoHorizontalScroll = 0x80;
inline constexpr Bits kEditReadOnly = 0x800;
inline constexpr Bits kEditDigitsOnly = 0x2000;

inline constexpr Bits kListNotify = 0x1;
inline constexpr Bits kListNoIntegralHeight = 0x100;

inline constexpr Bits kComboDropDownList = 0x3;

}  // namespace platform::style
