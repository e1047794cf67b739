#include "authoring/remarks.h"

#include "authoring/secrets.h"
#include "base/format.h"
#include "values/value_types.h"

#include <algorithm>

namespace authoring {
namespace {

using values::PropertyDescriptor;
using values::TypeCode;

class Remarks {
 public:
  Remarks(Trial& trial, const model::MenuItem& item, const Explanation& explanation)
      : trial_(trial), item_(item), explanation_(explanation), property_(*item.Descriptor()) {}

  std::vector<Remark> All() && {
    Availability();
    Appearance();
    if (!property_.IsAvailable()) return std::move(remarks_);
    Value();
    Editing();
    return std::move(remarks_);
  }

 private:
  void Add(const char* id, WideString sentence) { remarks_.push_back({id, std::move(sentence)}); }

  bool IsProgramsOwn() const { return values::IsPseudoOid(property_.GetOID()); }

  void Availability() {
    if (IsProgramsOwn()) {
      Add("own-value", u"The value lives in the program alone; no device is asked for it.");
      return;
    }
    if (property_.IsAvailable()) return;
    if (const auto field = property_.GetCommandField()) {
      Add("unavailable", u"The command " + field->commandOid + u" could not be read, and so none of its fields.");
      return;
    }
    const WideString oid = trial_.DeviceOid(property_.GetOID());
    const simulator::DeviceLine* line = trial_.Device().Find(oid);
    if (line == nullptr) {
      Add("unavailable", u"The device does not know " + oid + u".");
    } else if (line->options.null) {
      Add("unavailable", u"The device answers without a value for " + oid + u".");
    } else {
      const auto code = static_cast<std::uint32_t>(line->options.get.value_or(platform::kFailed));
      Add("unavailable", base::Format(u"The device refuses to give %s, with 0x%08X.", oid, code));
    }
  }

  void Appearance() {
    if (!property_.Resolve(TextId::kPassWordChar).empty()) {
      Add("stars", u"The value is shown as stars because of `PassWordChar`.");
    } else if (const WideString fixed = property_.Resolve(TextId::kWep); !fixed.empty()) {
      Add("fixed-text", u"The line always shows \"" + fixed + u"\", the text of `WEP`, never the value.");
    } else if (values::TypeCodeOf(property_.Attributes().Get(TextId::kType)) == TypeCode::kPassword) {
      Add("stars", u"The value is shown as stars because it is a `Password`.");
    }
    if (property_.HeldType() == LoadText(TextId::kReaderCmd)) {
      Add("no-value", u"A `ReaderCmd` shows no value; its fields do.");
    }
  }

  void Value() {
    const WideString text = property_.GetValue().AsText();
    const values::ChoiceFormat choices = property_.Choices();
    if (choices.Count() > 0 && ChoiceOf(choices) == nullptr) {
      if (text.empty()) {
        Add("empty-choice", u"The value is empty, and no choice has an empty key.");
      } else if (!IsSecret(property_)) {
        Add("no-such-choice", u"The value \"" + text + u"\" is none of the choices, so it is shown as it is.");
      }
    } else if (text.empty() && property_.HeldType() != LoadText(TextId::kReaderCmd)) {
      Add("empty-value", u"The value is empty.");
    }
    const auto& rules = explanation_.line.rules;
    const bool narrowed =
        std::any_of(rules.begin(), rules.end(), [](const SeenRule& r) { return r.choices.has_value(); });
    if (narrowed && choices.Count() == 0) Add("no-choices", u"A rule has left no choices.");
  }

  const values::ChoiceFormat::Entry* ChoiceOf(const values::ChoiceFormat& choices) const {
    const auto index = choices.IndexOf(property_.GetValue());
    return index ? &choices.Entries()[*index] : nullptr;
  }

  void Editing() {
    const bool isCommand =
        property_.Attributes().Has(TextId::kFunction) || property_.Attributes().Has(TextId::kAppName);
    if (isCommand) {
      Add("runs-command", u"Enter runs its command.");
    } else if (!item_.IsLeaf()) {
      Add("opens-menu", u"Enter opens the menu below it, not an editor.");
    } else if (property_.Attributes().Has(TextId::kSecurity)) {
      Add("read-only", u"The value can be read only, because of `Security`.");
    } else if (property_.IsReadOnly()) {
      Add("read-only", u"The value can be read only: the terminal itself gives it.");
    } else if (explanation_.line.state == model::DisplayState::kNoEdit) {
      Add("locked", u"A rule locks the line, so Enter does nothing.");
    } else if (!explanation_.look.editable) {
      Add("no-editor", u"There is no editor \"" + WideString(property_.EditorName()) + u"\", so Enter does nothing.");
    }
  }

  Trial& trial_;
  const model::MenuItem& item_;
  const Explanation& explanation_;
  const PropertyDescriptor& property_;
  std::vector<Remark> remarks_;
};

}  // namespace

std::vector<Remark> RemarksOn(Trial& trial, const model::MenuItem& item, const Explanation& explanation) {
  if (item.Descriptor() == nullptr) return {};
  return Remarks(trial, item, explanation).All();
}

}  // namespace authoring
