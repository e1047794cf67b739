// The pending changes as rules and commands use them: texts go in, all are submitted together.
#pragma once

#include "rules/single_value.h"

namespace rules {

class ChangeQueue {
 public:
  ChangeQueue(const Context& context, SingleValues& singleValues) : context_(context), single_(singleValues) {}

  // The text is read as a value of the type; a key is treated as the type and the property of the OID ask.
  void Add(const WideString& oid, const WideString& type, const WideString& text);
  void Clear() { context_.changes.clear(); }
  bool IsEmpty() const { return context_.changes.empty(); }

  // False when something failed; that has been shown. `outcome` is the code of an apply's outcome.
  bool Submit(int& outcome);
  bool Submit();

 private:
  Context context_;
  SingleValues& single_;
};

}  // namespace rules
