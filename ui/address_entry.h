// An address, in the control of four fields.
#pragma once

#include "ui/entry_control.h"

namespace ui {

class AddressEntry final : public EntryControl {
 public:
  using EntryControl::EntryControl;

  void Fill(const EditRequest& request) override;
  bool Finish() override;
  bool HasValue() const override;
  EnteredValue Entered() const override;

 private:
  WideString Contents() const override;

  bool startedEmpty_ = false;
};

}  // namespace ui
