// Making and destroying windows.
#pragma once

#include "platform/host/session.h"

namespace platform::host {

inline constexpr WideStringView kDialogClass = u"#32770";

// An empty record in the tree, without any message: the beginning of every window.
std::shared_ptr<WindowRecord> AddRecord(WindowKind kind, const WindowSpec& spec);

// Shows or hides without activating or telling anybody but the display.
void SetVisibleBit(WindowRecord& window, bool visible);
void InvalidateTree(WindowHandle window);

}  // namespace platform::host
