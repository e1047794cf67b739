// All rules and commands over one context, put together.
#pragma once

#include "rules/handlers.h"

namespace rules {

struct Rules {
  explicit Rules(const Context& context)
      : singleValues(context),
        items(context, singleValues),
        operands(context),
        queue(context, singleValues),
        dependencies(context, items, operands),
        wireless(context, singleValues, items, operands, queue),
        applier(context, queue, dependencies, items),
        handlers(context, singleValues, queue, wireless, applier) {}
  Rules(const Rules&) = delete;
  Rules& operator=(const Rules&) = delete;

  SingleValues singleValues;
  ItemOperations items;
  Operands operands;
  ChangeQueue queue;
  Dependencies dependencies;
  Wireless wireless;
  ChangeApplier applier;
  Handlers handlers;
};

}  // namespace rules
