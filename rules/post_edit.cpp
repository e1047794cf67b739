#include "rules/post_edit.h"

#include "base/string_table.h"
#include "rules/command_table.h"
#include "rules/warm_boot.h"

namespace rules {

int PostEdit::RunPostEditAction(WideStringView command, model::MenuItem& item) {
  static const Command<PostEdit> kActions[] = {
      {LoadText(TextId::kFlagChanges), [](auto&, auto& edited, auto) { edited.changed = true; }},
      {u"VerifyNetUI", [](auto& self, auto&, auto) { self.wireless_.VerifyNetUI(); }},
      {u"SetKeyIndex", [](auto& self, auto&, auto) { self.wireless_.SetKeyIndex(); }},
      {u"Refresh", [](auto& self, auto& edited, auto) { self.wireless_.RefreshEditedItem(edited); }},
      {u"PromptWarmBoot", [](auto& self, auto&, auto) { PromptWarmBoot(self.context_.boxes); }},
  };
  RunCommand(kActions, command, *this, item);
  return 1;
}

}  // namespace rules
