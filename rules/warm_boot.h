// Settings that take effect when the terminal starts anew.
#pragma once

#include "values/message_boxes.h"

namespace rules {

// Asks, each time anew, and restarts the device at once when the answer is Yes. Nothing is saved first.
void PromptWarmBoot(values::MessageBoxes& boxes);

}  // namespace rules
