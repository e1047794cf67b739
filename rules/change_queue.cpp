#include "rules/change_queue.h"

#include "platform/window.h"
#include "values/submission.h"
#include "values/value_types.h"

#include <optional>
#include <utility>

namespace rules {
namespace {

// The program around one submission.
class Host final : public values::SubmitHost {
 public:
  Host(platform::WindowHandle window, const SingleValues& singleValues, ItemOperations& items)
      : window_(window), single_(singleValues), items_(items) {}

  WideString ErrorTextOf(WideStringView oid) override { return single_.ErrorTextOf(oid); }
  void Started() override { cursor_.emplace(window_); }
  void Settled(const values::PendingChange& change, bool taken) override {
    items_.Settle(change.oid, change.value, taken);
  }

 private:
  platform::WindowHandle window_;
  const SingleValues& single_;
  ItemOperations& items_;
  std::optional<platform::WaitCursor> cursor_;  // while changes are sent
};

}  // namespace

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

bool ChangeQueue::Submit(int& outcome) {
  Host host(context_.shell.MainWindow(), single_, items_);
  const values::SubmitContext submit{context_.device, context_.model.Descriptors(), context_.boxes, host,
                                     context_.flashWrite};
  return values::SnmpSetChanges(context_.changes, outcome, submit) == 0;
}

bool ChangeQueue::Submit() {
  int outcome = 0;
  return Submit(outcome);
}

}  // namespace rules
