#include "ui/text_entry.h"

#include "ui/character_query.h"
#include "ui/key_filters.h"

#include <algorithm>

namespace ui {
namespace {

namespace message = platform::message;

constexpr char16_t kStar = u'*';

bool IsDigitMask(WideStringView mask) { return !mask.empty() && mask.find_first_not_of(u'#') == WideStringView::npos; }

// The shorter of two limits, where 0 is none.
std::size_t ShorterLimit(std::size_t a, std::size_t b) {
  if (a == 0 || b == 0) return std::max(a, b);
  return std::min(a, b);
}

}  // namespace

TextEntry::TextEntry(platform::WindowHandle window, TextFilter filter, InsertFlag& insertFlag)
    : EntryControl(window), field_(window), filter_(filter), insertFlag_(insertFlag), subclass_(window, *this) {}

void TextEntry::Fill(const EditRequest& request) {
  const auto maxChars = static_cast<std::size_t>(std::max(request.maxChars, 0));
  const bool countsDigits = filter_ == TextFilter::kNumeric && IsDigitMask(request.mask);
  digits_ = countsDigits ? ShorterLimit(request.mask.size(), maxChars) : 0;
  field_.LimitText(static_cast<int>(ShorterLimit(countsDigits ? 0 : request.mask.size(), maxChars)));
  if (request.masked) platform::Send(field_.Handle(), message::kEditSetPasswordChar, kStar);
  platform::SetText(field_.Handle(), request.text);
  field_.Select(0, -1);
}

EnteredValue TextEntry::Entered() const {
  const WideString text = platform::TextOf(field_.Handle());
  return {text, values::EntryMode::kTyped, text};
}

bool TextEntry::Swallows(char16_t character) {
  switch (filter_) {
    case TextFilter::kNumeric: return FilterNumericChar(field_, character, insertFlag_, digits_);
    case TextFilter::kWepKey: return FilterWepKeyChar(field_, character, insertFlag_);
    case TextFilter::kPreSharedKey: return FilterPreSharedKeyChar(field_, character, insertFlag_);
    case TextFilter::kAny: break;
  }
  return FilterAnyChar(field_, character, insertFlag_);
}

std::optional<platform::LResult> TextEntry::OnMessage(platform::WindowHandle window,
                                                      const platform::Message& received) {
  switch (received.id) {
    case message::kChar: {
      CharacterQuery query{window, static_cast<char16_t>(received.wParam)};
      bool swallowed = false;
      platform::Send(platform::ParentOf(window), private_message::kCharacterQuery, platform::ToWParam(&query),
                     platform::ToLParam(&swallowed));
      if (swallowed) return 0;
      return std::nullopt;
    }
    case message::kKeyDown:
      if (received.wParam != platform::key::kInsert) return std::nullopt;
      insertFlag_.Toggle();
      return 0;
    case message::kPaste: return Paste(received);
    default: return std::nullopt;
  }
}

platform::LResult TextEntry::Paste(const platform::Message& received) {
  const WideString before = platform::TextOf(field_.Handle());
  const platform::LResult result = subclass_.CallPrevious(received);
  if (filter_ != TextFilter::kNumeric) return result;
  // What could not have been typed cannot be pasted.
  const WideString after = platform::TextOf(field_.Handle());
  const bool tooLong = digits_ != 0 && after.size() > digits_;
  if (tooLong || !std::all_of(after.begin(), after.end(), base::IsDigit)) {
    platform::SetText(field_.Handle(), before);
    field_.Select(0, -1);
  }
  return result;
}

}  // namespace ui
