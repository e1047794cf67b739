// The pending changes as rules and commands use them: texts go in, all are submitted together.
#pragma once

#include "rules/item_operations.h"

namespace rules {

class ChangeQueue {
 public:
  ChangeQueue(const Context& context, const SingleValues& singleValues, ItemOperations& items)
      : context_(context), single_(singleValues), items_(items) {}

  // The text is read as a value of `type`, and a key is treated as one of that type.
  void Add(const WideString& oid, const WideString& type, const WideString& text);
  // The edits are dropped, unsent.
  void Clear();
  bool IsEmpty() const { return context_.changes.empty(); }

  // Each property has what the device took of it. False when something failed; that has been shown. `outcome` becomes
  // the code of an apply's outcome.
  bool Submit(int& outcome);
  bool Submit();

 private:
  Context context_;
  const SingleValues& single_;
  ItemOperations& items_;
};

}  // namespace rules
