// Typing into an edit field, through one of the filters.
#pragma once

#include "platform/controls.h"
#include "ui/entry_control.h"
#include "ui/insert_flag.h"

#include <cstddef>

namespace ui {

enum class TextFilter { kAny, kNumeric, kWepKey, kPreSharedKey };

class TextEntry final : public EntryControl, private platform::MessageHandler {
 public:
  TextEntry(platform::WindowHandle window, TextFilter filter, InsertFlag& insertFlag);

  void Fill(const EditRequest& request) override;
  EnteredValue Entered() const override;
  bool Swallows(char16_t character) override;

 private:
  std::optional<platform::LResult> OnMessage(platform::WindowHandle window, const platform::Message& message) override;
  platform::LResult Paste(const platform::Message& message);

  platform::EditField field_;
  TextFilter filter_;
  InsertFlag& insertFlag_;
  std::size_t digits_ = 0;  // of a number; 0: no limit
  platform::Subclass subclass_;
};

}  // namespace ui
