#include "rules/change_queue.h"

#include "values/value_types.h"

#include <utility>

namespace rules {

void ChangeQueue::Add(const WideString& oid, const WideString& type, const WideString& text) {
  values::PendingChange change{oid, type, {}, values::KeyKind::kWepKey};
  values::ParseValueAs(type, text, change.value);
  if (change.value.IsEmpty()) change.value.SetText(text);  // a type that the program holds no values of
  if (const auto* property = context_.model.FindDescriptor(oid)) change.kind = values::GetKeyKind(*property, type);
  context_.changes.push_back(std::move(change));
}

void ChangeQueue::Clear() {
  for (const values::PendingChange& change : std::exchange(context_.changes, {})) items_.DropEdit(change.oid);
}

void ChangeQueue::Settled(const values::PendingChange& change, bool taken) {
  items_.Settle(change.oid, change.value, taken);
  if (!taken) cursor_.reset();  // a box is next
}

bool ChangeQueue::Submit(int& outcome) {
  const values::SubmitContext submit{context_.device, context_.model.Descriptors(), context_.boxes, *this,
                                     context_.flashWrite};
  const bool submitted = values::SnmpSetChanges(context_.changes, outcome, submit) == 0;
  cursor_.reset();
  return submitted;
}

bool ChangeQueue::Submit() {
  int outcome = 0;
  return Submit(outcome);
}

}  // namespace rules
