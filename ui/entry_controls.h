// The controls of the edit dialog in which a value is entered: one class for each way of entering.
#pragma once

#include "platform/controls.h"
#include "platform/window.h"
#include "ui/edit_request.h"
#include "ui/insert_flag.h"
#include "values/property_line_text.h"

#include <memory>

namespace ui {

// What an entry gives.
struct EnteredValue {
  WideString text;  // to be committed
  values::EntryMode mode = values::EntryMode::kTyped;
  WideString shown;  // as a person reads it
};

class EntryControl {
 public:
  explicit EntryControl(platform::WindowHandle window) : window_(window) {}
  virtual ~EntryControl() = default;
  EntryControl(const EntryControl&) = delete;
  EntryControl& operator=(const EntryControl&) = delete;

  platform::WindowHandle Handle() const { return window_; }
  virtual bool IsList() const { return false; }

  // The window shows what the request starts with.
  virtual void Fill(const EditRequest& request) = 0;
  // It has got the focus for the first time.
  virtual void Start() {}
  // Takes over what is only half typed; may set off the control's change notification. False when what was typed cannot
  // be saved: the user knows why, and may go on with it.
  virtual bool Finish() { return true; }
  virtual EnteredValue Entered() const = 0;
  // Whether a character about to be typed is swallowed.
  virtual bool Swallows(char16_t) { return false; }

 private:
  platform::WindowHandle window_;
};

// The ways of entering a value.
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
