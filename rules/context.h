// What rules and commands work on. All of it outlives them.
#pragma once

#include "model/menu_model.h"
#include "rules/rule_listener.h"
#include "rules/shell.h"
#include "values/device_access.h"
#include "values/event_names.h"
#include "values/message_boxes.h"
#include "values/pending_change.h"
#include "values/property_line_text.h"
#include "values/symbol_table.h"

namespace rules {

struct Context {
  model::MenuModel& model;
  values::DeviceAccess& device;
  const values::SymbolTable& symbols;
  values::ChangeList& changes;
  values::EventNames& events;
  values::EditState& edit;
  values::MessageBoxes& boxes;
  Shell& shell;
  bool& flashWrite;                  // the device has taken a value that the flash writer is to keep
  RuleListener* listener = nullptr;  // null: nobody listens
};

}  // namespace rules
