#include "ui/choice_entry.h"

#include "base/number.h"
#include "values/value_types.h"

namespace ui {

using values::EntryMode;

void ChoiceEntry::Fill(const EditRequest& request) {
  for (const WideString& choice : request.choices) list_.Add(choice);
  if (request.selected >= 0) list_.Select(request.selected);
}

EnteredValue ChoiceEntry::Entered() const {
  const int selected = list_.Selected();
  const WideString text = selected < 0 ? WideString() : list_.Line(selected);
  return {text, EntryMode::kChoice, text};
}

// By its place: nothing selected is something else than a choice without a text.
WideString ChoiceEntry::Contents() const { return base::ToText(list_.Selected()); }

void TrueFalseEntry::Fill(const EditRequest& request) {
  isFlag_ = request.choices.empty();
  EditRequest shown = request;
  if (isFlag_) {
    shown.choices = {WideString(values::kTrueText), WideString(values::kFalseText)};
    shown.selected = request.number.value_or(0) != 0 ? 0 : 1;
  }
  choices_.Fill(shown);
}

EnteredValue TrueFalseEntry::Entered() const {
  EnteredValue entered = choices_.Entered();
  if (isFlag_) {
    entered.mode = EntryMode::kTyped;
    entered.text = list_.Selected() == 0 ? u"1" : u"0";
  }
  return entered;
}

}  // namespace ui
