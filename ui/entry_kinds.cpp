#include "ui/entry_kinds.h"

#include "base/string_table.h"
#include "ui/address_entry.h"
#include "ui/choice_entry.h"
#include "ui/date_time_entry.h"
#include "ui/edit_templates.h"
#include "ui/text_entry.h"
#include "values/value_types.h"

#include <algorithm>

namespace ui {
namespace {

using platform::WindowHandle;

struct TypeRow {
  TextId type;
  EntryKind plain;  // of a property without choices
  bool choices;     // a choice list when there are choices
  bool trueFalse;   // but the list of TRUE and FALSE when these are the choices
  bool dateTime;    // date and time by subtype, choices or not
};

constexpr TypeRow kTypes[] = {
    {TextId::kInteger, EntryKind::kNumber, true, false, true},
    {TextId::kBool, EntryKind::kTrueFalse, true, true, false},
    {TextId::kOctetString, EntryKind::kText, true, true, false},
    {TextId::kHex, EntryKind::kHex, true, true, false},
    {TextId::kHex32, EntryKind::kHex32, true, true, false},
    {TextId::kIpAddress, EntryKind::kAddress, false, false, false},
    {TextId::kPassword, EntryKind::kText, false, false, false},
};

bool AreTrueAndFalse(const std::vector<WideString>& choices) {
  return choices.size() == 2 && (base::EqualsIgnoringCase(choices[0], values::kTrueText) ||
                                 base::EqualsIgnoringCase(choices[0], values::kFalseText));
}

struct KindRow {
  EntryKind kind;
  int controlId;
  std::unique_ptr<EntryControl> (*make)(WindowHandle window, InsertFlag& insertFlag);
};

template <typename Entry>
std::unique_ptr<EntryControl> Make(WindowHandle window, InsertFlag&) {
  return std::make_unique<Entry>(window);
}

template <TextFilter filter>
std::unique_ptr<EntryControl> MakeText(WindowHandle window, InsertFlag& insertFlag) {
  return std::make_unique<TextEntry>(window, filter, insertFlag);
}

constexpr KindRow kKinds[] = {
    {EntryKind::kText, kTextEntryId, MakeText<TextFilter::kAny>},
    {EntryKind::kNumber, kTextEntryId, MakeText<TextFilter::kNumeric>},
    {EntryKind::kHex, kTextEntryId, MakeText<TextFilter::kWepKey>},
    {EntryKind::kHex32, kTextEntryId, MakeText<TextFilter::kPreSharedKey>},
    {EntryKind::kChoices, kChoiceListId, Make<ChoiceEntry>},
    {EntryKind::kTrueFalse, kChoiceListId, Make<TrueFalseEntry>},
    {EntryKind::kDate, kDateTimeEntryId, Make<DateEntry>},
    {EntryKind::kTime, kDateTimeEntryId, Make<TimeEntry>},
    {EntryKind::kAddress, kAddressEntryId, Make<AddressEntry>},
};

const KindRow* FindKind(EntryKind kind) {
  const auto found =
      std::find_if(std::begin(kKinds), std::end(kKinds), [kind](const KindRow& row) { return row.kind == kind; });
  return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace

EntryKind ChooseEntryKind(const EditRequest& request) {
  for (const TypeRow& row : kTypes) {
    if (!base::EqualsIgnoringCase(request.editorType, LoadText(row.type))) continue;
    if (row.dateTime && base::EqualsIgnoringCase(request.subType, u"Date")) return EntryKind::kDate;
    if (row.dateTime && base::EqualsIgnoringCase(request.subType, u"Time")) return EntryKind::kTime;
    if (row.trueFalse && AreTrueAndFalse(request.choices)) return EntryKind::kTrueFalse;
    if (row.choices && !request.choices.empty()) return EntryKind::kChoices;
    return row.plain;
  }
  return EntryKind::kNone;
}

int EntryControlId(EntryKind kind) {
  const KindRow* const row = FindKind(kind);
  return row == nullptr ? 0 : row->controlId;
}

std::unique_ptr<EntryControl> MakeEntryControl(EntryKind kind, WindowHandle window, InsertFlag& insertFlag) {
  const KindRow* const row = FindKind(kind);
  return row == nullptr ? nullptr : row->make(window, insertFlag);
}

}  // namespace ui
