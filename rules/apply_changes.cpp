#include "rules/apply_changes.h"

#include "base/string_table.h"
#include "model/settings_ahead.h"
#include "platform/events.h"

#include <algorithm>

namespace rules {
namespace {

// What the defaults walk asks and tells, in terms of the model and the pending changes.
class DefaultsOfModel final : public model::DefaultsHost {
 public:
  DefaultsOfModel(const Context& context, Dependencies& dependencies, ChangeQueue& queue)
      : context_(context), dependencies_(dependencies), queue_(queue) {}

  bool IsActive(const config::ConfigKey& key) override { return dependencies_.EvaluateDependencies(key); }

  WideString ReadValue(const WideString& oid, const WideString& type) override {
    WideString value;
    context_.device.DoSnmpGet(values::DeviceOid(context_.model.Descriptors(), context_.device, oid), type, value);
    return value;
  }

  void QueueChange(const WideString& oid, const WideString& type, const WideString& value) override {
    queue_.Add(oid, type, value);
  }

 private:
  const Context& context_;
  Dependencies& dependencies_;
  ChangeQueue& queue_;
};

}  // namespace

bool ChangeApplier::ApplyChanges(int& outcome) {
  outcome = static_cast<int>(ApplyOutcome::kApplied);
  const bool submitted = queue_.Submit(outcome);
  context_.edit.firstEdited = nullptr;
  PulseEvents();
  return submitted;
}

void ChangeApplier::PulseEvents() {
  for (const WideString& name : context_.events.Names()) platform::Event(name, false).Pulse();
  context_.events.Clear();
}

void ChangeApplier::ShowApplyResult(int outcome) {
  struct Row {
    ApplyOutcome outcome;
    WideStringView text;
    int kind;
  };
  constexpr int kNoticeBox = values::kStopBox;
  constexpr WideStringView kApplied = u"Changes applied successfully";
  const Row rows[] = {
      {ApplyOutcome::kApplied, kApplied, 0x10001},
      {ApplyOutcome::kAfterAdapterResume, LoadText(TextId::kEffectAfterAdapterResume), kNoticeBox},
      {ApplyOutcome::kAfterBoot, LoadText(TextId::kEffectAfterBoot), kNoticeBox},
      {ApplyOutcome::kMissingSubnetMask, LoadText(TextId::kMissingSubnetMask), kNoticeBox},
  };
  const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                 [&](const Row& known) { return static_cast<int>(known.outcome) == outcome; });
  const bool known = row != std::end(rows);
  context_.boxes.Show(known ? row->text : kApplied, u"Apply", known ? row->kind : kNoticeBox);
}

void ChangeApplier::RestoreAllDefaults() {
  int outcome = 0;
  bool restored = false;
  {
    const platform::WaitCursor cursor(context_.shell.MainWindow());
    if (const auto tree = context_.model.Tree()) {
      DefaultsOfModel host(context_, dependencies_, queue_);
      const values::ReadingAhead ahead(context_.device,
                                       [&] { return model::SettingsOfDefaults(*tree, context_.model.RootPath()); });
      model::WalkDefaults(*tree, context_.model.RootPath(), model::DefaultsMode::kRestore, host);
      model::WalkDefaults(*tree, context_.model.RootPath(), model::DefaultsMode::kExitRules, host);
    }
    restored = ApplyChanges(outcome);
  }
  if (!restored) {
    context_.boxes.Show(LoadText(TextId::kRestoreFailed), u"Error", values::kWarningBox);
    context_.shell.FocusList();
  } else if (outcome != static_cast<int>(ApplyOutcome::kNoMessage)) {
    ShowApplyResult(outcome);
  }
}

bool ChangeApplier::ConfirmLeaving() {
  if (queue_.IsEmpty()) return true;
  switch (context_.boxes.Show({}, {}, values::kExitChoiceBox)) {
    case values::kBoxSave: {
      int outcome = 0;
      return ApplyChanges(outcome);
    }
    case values::kBoxDiscard: {
      queue_.Clear();
      context_.events.Clear();
      return true;
    }
    default: return false;
  }
}

}  // namespace rules
