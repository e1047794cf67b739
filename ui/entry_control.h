// A control of the edit dialog in which a value is entered. Each way of entering is a class of its own.
#pragma once

#include "platform/window.h"
#include "ui/edit_request.h"
#include "values/property_line_text.h"

#include <optional>
#include <utility>

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
  // False for fields that there was nothing to fill with and that are still empty.
  virtual bool HasValue() const { return true; }
  virtual EnteredValue Entered() const = 0;
  // Whether a character about to be typed is swallowed.
  virtual bool Swallows(char16_t) { return false; }

  // Whether the control holds something else than at the call before. It may notify of changes that are none: of a key
  // that it refused, of a choice that was selected already.
  bool TakeChange() {
    std::optional<WideString> now = Contents();
    return std::exchange(contents_, now) != now;
  }

 private:
  // Differs whenever a value to be saved would.
  virtual WideString Contents() const { return Entered().text; }

  platform::WindowHandle window_;
  std::optional<WideString> contents_;
};

}  // namespace ui
