// The ways of entering a value, and which property is entered in which way.
#pragma once

#include "ui/entry_control.h"
#include "ui/insert_flag.h"

#include <memory>

namespace ui {

enum class EntryKind {
  kNone,
  kText,
  kNumber,
  kHex,
  kHex32,
  kChoices,
  kTrueFalse,
  kDate,
  kTime,
  kAddress,
};

// kNone: the property cannot be edited.
EntryKind ChooseEntryKind(const EditRequest& request);

// The dialog's control that a kind of entry uses.
int EntryControlId(EntryKind kind);

// Null for kNone. The entry attaches to a window made before.
std::unique_ptr<EntryControl> MakeEntryControl(EntryKind kind, platform::WindowHandle window, InsertFlag& insertFlag);

}  // namespace ui
