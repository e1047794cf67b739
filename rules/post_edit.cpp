#include "rules/post_edit.h"

#include "base/string_table.h"
#include "rules/warm_boot.h"

namespace rules {

int PostEdit::RunPostEditAction(WideStringView command, model::MenuItem& item) {
  static const struct {
    WideStringView name;
    Action run;
  } kActions[] = {
      {LoadText(TextId::kFlagChanges), &PostEdit::FlagChanges},
      {u"VerifyNetUI", &PostEdit::VerifyNetUI},
      {u"SetKeyIndex", &PostEdit::SetKeyIndex},
      {u"Refresh", &PostEdit::Refresh},
      {u"PromptWarmBoot", &PostEdit::AskForWarmBoot},
  };
  for (const auto& action : kActions) {
    if (action.name == command) (this->*action.run)(item);
  }
  return 1;
}

void PostEdit::AskForWarmBoot(model::MenuItem&) { PromptWarmBoot(context_.boxes); }

}  // namespace rules
