#include "ui/ip_address_field.h"

#include "base/format.h"
#include "base/number.h"

namespace ui {
namespace {

namespace style = platform::style;

}  // namespace

bool AddressField::Create(platform::WindowHandle control, const platform::Rect& place, style::Bits alignment,
                          platform::MessageHandler& handler) {
  edit_ = platform::EditField(platform::MakeWindow(
      {.className = u"Edit",
       .style = style::kChild | style::kVisible | style::kEditMultiLine | style::kEditDigitsOnly | alignment,
       .x = place.left,
       .y = place.top,
       .width = place.Width(),
       .height = place.Height(),
       .parent = control}));
  if (!edit_) return false;
  edit_.LimitText(static_cast<int>(kAddressFieldDigits));
  subclass_ = std::make_unique<platform::Subclass>(edit_.Handle(), handler);
  return true;
}

void AddressField::SetBounds(std::uint8_t low, std::uint8_t high) {
  low_ = low;
  high_ = high;
}

int AddressField::Value() const { return base::ToLong(Text().substr(0, kAddressFieldDigits)); }

bool AddressField::IsWithinBounds() const {
  const int value = Value();
  return low_ <= value && value <= high_;
}

std::uint8_t AddressField::Byte() const {
  const int value = Value();
  return value > 255 ? high_ : static_cast<std::uint8_t>(value);
}

void AddressField::SetText(WideStringView text) { platform::SetText(edit_.Handle(), text); }

void AddressField::Tidy(bool leadingZeros) {
  const WideString typed = Text();
  if (typed.empty() || !IsWithinBounds()) return;
  const WideString tidy = base::Format(leadingZeros ? u"%03d" : u"%d", Value());
  if (tidy == typed) return;
  SetText(tidy);
  const int end = static_cast<int>(tidy.size());
  edit_.Select(end, end);
}

void AddressField::Enter(Caret caret) const {
  platform::Focus(edit_.Handle());
  const int end = static_cast<int>(Text().size());
  switch (caret) {
    case Caret::kAll: SelectAll(); break;
    case Caret::kStart: edit_.Select(0, 0); break;
    case Caret::kEnd: edit_.Select(end, end); break;
  }
}

bool AddressField::IsCaretAt(int position) const {
  return edit_.GetSelection() == platform::EditField::Selection{position, position};
}

bool AddressField::HasSelection() const {
  const platform::EditField::Selection selection = edit_.GetSelection();
  return selection.start != selection.end;
}

void AddressField::DeleteLastDigit() const {
  const int end = static_cast<int>(Text().size());
  if (end == 0) return;
  edit_.Select(end - 1, end);
  edit_.ReplaceSelection(u"");
}

}  // namespace ui
