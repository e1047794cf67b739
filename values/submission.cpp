#include "values/submission.h"

#include "base/format.h"
#include "base/number.h"
#include "base/string_table.h"
#include "platform/debug.h"
#include "values/ip_address.h"
#include "values/key_rules.h"
#include "values/property_descriptor.h"
#include "values/shown_value.h"
#include "values/value_types.h"

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
  explicit Submission(const SubmitContext& context) : context_(context) {}

  int Run(const ChangeList& changes) {
    context_.host.Started();
    for (const PendingChange& change : changes) {
      if (change.oid.empty()) continue;
      if (IsPseudoOid(change.oid)) {
        context_.host.Settled(change, true);
      } else {
        SubmitOne(change, changes.size() == 1);
      }
    }
    return failed_ ? 1 : 0;
  }

 private:
  void SubmitOne(const PendingChange& change, bool isOnlyOne) {
    WideString text = change.value.AsText();
    WideString message;
    const bool isSound = Convert(change, text, message);
    const bool taken = isSound && Store(change, text);
    context_.host.Settled(change, taken);
    if (taken) return;
    if (isSound || isOnlyOne) failed_ = true;
    if (isSound) {
      ShowNotStored(context_.boxes, context_.host.ErrorTextOf(change.oid));
    } else {
      context_.boxes.Show(message, u"Error", kWarningBox);
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

  bool Store(const PendingChange& change, const WideString& text) {
    const WideString oid = DeviceOid(context_.descriptors, context_.device, change.oid);
    const std::optional<platform::ResultCode> result = context_.device.Set(oid, change.type, text);
    const bool taken = result && *result >= 0;
    if (taken) {
      context_.valueWritten = true;
    } else if (result) {
      platform::KernelDebugOutput(base::Format(u"FAILED: SNMPSet  hr[%x] OID[%s] Value[%s] Type[%s])\r\n", *result, oid,
                                               LoggedText(change, text), change.type));
    }
    return taken;
  }

  // A secret is none in a log either: it looks as it does on its line, and as a field of a command it is starred.
  WideString LoggedText(const PendingChange& change, const WideString& text) const {
    const PropertyDescriptor* descriptor = FindDescriptor(context_.descriptors, change.oid);
    if (descriptor == nullptr) return MaskedText(change.type, text);
    WideString logged = MaskedText(*descriptor, text);
    const FieldWidthList* layout = descriptor->CommandLayout();
    for (int index = 0; layout != nullptr && index < layout->Count(); ++index) {
      const PropertyDescriptor* field =
          FindDescriptor(context_.descriptors, base::Format(u"%s:%d", change.oid, index + 1));
      const std::optional<WideString> column = layout->Field(logged, index);
      if (field == nullptr || !column || MaskedText(*field, *column) == *column) continue;
      const auto start = static_cast<std::size_t>(layout->Start(index));
      const std::size_t length = std::min(static_cast<std::size_t>(layout->Width(index)), logged.size() - start);
      logged.replace(start, length, length, u'*');
    }
    return logged;
  }

  const SubmitContext& context_;
  bool failed_ = false;
};

}  // namespace

void ShowNotStored(MessageBoxes& boxes, WideStringView ownText) {
  boxes.Show(ownText.empty() ? LoadText(TextId::kChangeNotSaved) : ownText, u"Error", kWarningBox);
}

int SnmpSetChanges(ChangeList& changes, int& status, const SubmitContext& context) {
  status = 0;
  if (changes.empty() || context.device.Interface() == nullptr) return 0;
  // A box shown on the way lets the user do more; what comes in meanwhile belongs to the next run.
  const ChangeList taken = std::exchange(changes, {});
  return Submission(context).Run(taken);
}

}  // namespace values
