#include "rules/warm_boot.h"

#include "base/string_table.h"
#include "platform/kernel.h"

namespace rules {

void PromptWarmBoot(values::MessageBoxes& boxes) {
  constexpr int kYes = 6;
  if (boxes.Show(LoadText(TextId::kWarmBootPrompt), u"Alert", values::kYesNoBox) == kYes) platform::WarmReset();
}

}  // namespace rules
