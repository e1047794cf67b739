// Dates and times, in the picker. They travel as digits: 20240315 and 093005.
#pragma once

#include "platform/controls.h"
#include "ui/entry_control.h"

namespace ui {

class PickerEntry : public EntryControl {
 public:
  explicit PickerEntry(platform::WindowHandle window) : EntryControl(window), picker_(window) {}

  void Start() override;
  bool Finish() override;

 protected:
  const platform::DateTimePicker& Picker() const { return picker_; }

 private:
  platform::DateTimePicker picker_;
};

// What is no date starts as today.
class DateEntry final : public PickerEntry {
 public:
  using PickerEntry::PickerEntry;

  void Fill(const EditRequest& request) override;
  EnteredValue Entered() const override;
};

// What is no time starts as midnight.
class TimeEntry final : public PickerEntry {
 public:
  using PickerEntry::PickerEntry;

  void Fill(const EditRequest& request) override;
  EnteredValue Entered() const override;
};

}  // namespace ui
