// The commands that run after an item was edited; its exit attributes name them.
#pragma once

#include "rules/wireless.h"

namespace rules {

class PostEdit {
 public:
  PostEdit(const Context& context, Wireless& wireless) : context_(context), wireless_(wireless) {}

  // Always 1; a command of another name is ignored.
  int RunPostEditAction(WideStringView command, model::MenuItem& item);

 private:
  using Action = void (PostEdit::*)(model::MenuItem& item);

  void FlagChanges(model::MenuItem& item) { item.changed = true; }
  void VerifyNetUI(model::MenuItem&) { wireless_.VerifyNetUI(); }
  void SetKeyIndex(model::MenuItem&) { wireless_.SetKeyIndex(); }
  void Refresh(model::MenuItem& item) { wireless_.RefreshEditedItem(item); }
  void AskForWarmBoot(model::MenuItem&);

  Context context_;
  Wireless& wireless_;
};

}  // namespace rules
