#include "values/pending_changes.h"

#include "base/format.h"
#include "base/number.h"
#include "base/string_table.h"
#include "platform/debug.h"
#include "values/ip_address.h"
#include "values/key_rules.h"
#include "values/property_descriptor.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace values {
namespace {

bool CheckKey(KeyKind kind, WideString& text, WideString& message) {
  switch (kind) {
    case KeyKind::kWepKey: return CheckWepKey(text, true, message);
    case KeyKind::kWepKeyAsTyped: return CheckWepKey(text, false, message);
    case KeyKind::kPreSharedKey: return CheckPreSharedKey(text, true, message);
    case KeyKind::kPreSharedKeyAsTyped: return CheckPreSharedKey(text, false, message);
    case KeyKind::kNoKey: break;
  }
  return true;
}

// One run over the pending changes.
class Submission {
 public:
  explicit Submission(const SubmitContext& context) : context_(context) { cursor_.emplace(context.mainWindow); }

  int Run(const ChangeList& changes) {
    for (const PendingChange& change : changes) {
      if (change.oid.empty() || IsPseudoOid(change.oid)) continue;
      SubmitOne(change, changes.size() == 1);
    }
    return failed_ ? 1 : 0;
  }

 private:
  void SubmitOne(const PendingChange& change, bool isOnlyOne) {
    WideString text = change.value.AsText();
    WideString message;
    if (!Convert(change, text, message)) {
      ShowFailure(message);
      if (isOnlyOne) failed_ = true;
      return;
    }
    PropertyDescriptor* descriptor = FindDescriptor(context_.descriptors, change.oid);
    try {
      Store(change, descriptor, text);
    } catch (...) {
      platform::KernelDebugOutput(base::Format(u"EXCEPTION: SNMPSet OID[%s]\r\n", change.oid));
      failed_ = true;
    }
  }

  // From the value as the program holds it to the text that the device takes.
  static bool Convert(const PendingChange& change, WideString& text, WideString& message) {
    if (change.type == LoadText(TextId::kIpAddress)) {
      text = DottedIpAddress(base::ToLong(text));
      return true;
    }
    const bool isHex = change.type == LoadText(TextId::kHex) || change.type == LoadText(TextId::kHex32);
    return !isHex || CheckKey(change.kind, text, message);
  }

  void Store(const PendingChange& change, PropertyDescriptor* descriptor, const WideString& text) {
    const WideString oid =
        descriptor == nullptr ? change.oid : context_.device.FillOid(change.oid, descriptor->Attributes());
    const platform::ResultCode result = context_.device.Set(oid, change.type, text);
    if (result >= 0) {
      context_.valueWritten = true;
      if (descriptor != nullptr) descriptor->SetChanged(false);
      return;
    }
    platform::KernelDebugOutput(
        base::Format(u"FAILED: SNMPSet  hr[%x] OID[%s] Value[%s] Type[%s])\r\n", result, oid, text, change.type));
    failed_ = true;
    const WideString ownText = context_.errorTexts.ErrorTextOf(change.oid);
    ShowFailure(ownText.empty() ? LoadText(TextId::kChangeNotSaved) : WideStringView(ownText));
  }

  void ShowFailure(WideStringView message) {
    cursor_.reset();
    context_.boxes.Show(message, u"Error", kWarningBox);
  }

  const SubmitContext& context_;
  std::optional<platform::WaitCursor> cursor_;
  bool failed_ = false;
};

}  // namespace

void EventNames::Add(WideStringView name) {
  const bool isKnown = std::find(names_.begin(), names_.end(), name) != names_.end();
  if (!name.empty() && !isKnown) names_.emplace_back(name);
}

int SnmpSetChanges(ChangeList& changes, int& status, const SubmitContext& context) {
  status = 0;
  if (changes.empty() || context.device.Interface() == nullptr) return 0;
  // A box shown on the way lets the user do more; what comes in meanwhile belongs to the next run.
  const ChangeList taken = std::exchange(changes, {});
  return Submission(context).Run(taken);
}

}  // namespace values
