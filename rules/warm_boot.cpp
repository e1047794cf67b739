#include "rules/warm_boot.h"

#include "base/string_table.h"
#include "platform/kernel.h"

namespace rules {

void PromptWarmBoot(values::MessageBoxes& boxes) {
  const int answer = boxes.Show(LoadText(TextId::kWarmBootPrompt), u"Alert", values::kYesNoBox);
  if (answer == values::kBoxYes) platform::WarmReset();
}

}  // namespace rules
