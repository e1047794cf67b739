// Choosing from a list.
#pragma once

#include "platform/controls.h"
#include "ui/entry_control.h"

namespace ui {

class ChoiceEntry final : public EntryControl {
 public:
  explicit ChoiceEntry(platform::WindowHandle window) : EntryControl(window), list_(window) {}

  bool IsList() const override { return true; }
  void Fill(const EditRequest& request) override;
  EnteredValue Entered() const override;

 private:
  WideString Contents() const override;

  platform::ListBox list_;
};

// TRUE and FALSE: of a flag, saved as 1 and 0, or of a choice list with these two texts, saved as any choice.
class TrueFalseEntry final : public EntryControl {
 public:
  explicit TrueFalseEntry(platform::WindowHandle window) : EntryControl(window), choices_(window), list_(window) {}

  bool IsList() const override { return true; }
  void Fill(const EditRequest& request) override;
  EnteredValue Entered() const override;

 private:
  ChoiceEntry choices_;
  platform::ListBox list_;
  bool isFlag_ = true;
};

}  // namespace ui
