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
  Context context_;
  Wireless& wireless_;
};

}  // namespace rules
