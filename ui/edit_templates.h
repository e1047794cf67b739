// The edit dialog's templates, in dialog units.
#pragma once

#include "platform/dialog.h"

namespace ui {

inline constexpr int kAddressEntryId = 1012;
inline constexpr int kTextEntryId = 1035;
inline constexpr int kChoiceListId = 1037;
inline constexpr int kEditHintId = 1040;
inline constexpr int kDateTimeEntryId = 1047;
inline constexpr int kShortDescriptionId = 1048;
inline constexpr int kEditCancelId = 1051;
inline constexpr int kEditSaveId = 1052;

extern const platform::DialogTemplate kSmallEditDialog;
extern const platform::DialogTemplate kLargeEditDialog;

}  // namespace ui
