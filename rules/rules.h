// All rules and commands over one context, put together.
#pragma once

#include "rules/handlers.h"
#include "rules/post_edit.h"

namespace rules {

struct Rules {
  explicit Rules(const Context& context)
      : singleValues(context),
        items(context, singleValues),
        operands(context),
        queue(context, singleValues, items),
        dependencies(context, items, operands),
        wireless(context, items, operands, queue),
        applier(context, queue, dependencies),
        handlers(context, items, queue, wireless, applier),
        postEdit(context, wireless) {}
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
  PostEdit postEdit;
};

}  // namespace rules
