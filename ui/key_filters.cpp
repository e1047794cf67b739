#include "ui/key_filters.h"

#include "values/key_rules.h"

#include <algorithm>

namespace ui {
namespace {

using platform::EditField;

struct KeyLimits {
  std::size_t hex;  // with the prefix
  std::size_t plain;
};
constexpr KeyLimits kWepKey{28, 13};
constexpr KeyLimits kPreSharedKey{66, 63};

constexpr int kPrefixLength = 2;

WideString TextOf(const EditField& field) { return platform::TextOf(field.Handle()); }

// What a character typed now takes the place of.
EditField::Selection ReplacedBy(const EditField& field, InsertFlag insertFlag) {
  EditField::Selection replaced = field.GetSelection();
  const bool insideText = replaced.start == replaced.end && replaced.start < static_cast<int>(TextOf(field).size());
  if (!insertFlag.inserts && insideText) ++replaced.end;
  return replaced;
}

void SelectReplaced(const EditField& field, InsertFlag insertFlag) {
  const EditField::Selection replaced = ReplacedBy(field, insertFlag);
  if (!(replaced == field.GetSelection())) field.Select(replaced.start, replaced.end);
}

bool IsKeyCharAllowed(const EditField& field, char16_t character, const KeyLimits& limits) {
  if (field.GetSelection().start < kPrefixLength) return true;
  const WideString text = TextOf(field);
  if (!values::IsHexPrefixed(text)) return text.size() < limits.plain;
  return text.size() < limits.hex && values::IsHexDigit(character);
}

bool FilterKeyChar(const EditField& field, char16_t character, InsertFlag insertFlag, const KeyLimits& limits) {
  if (!IsPrintable(character)) return false;
  if (!IsKeyCharAllowed(field, character, limits)) return true;
  SelectReplaced(field, insertFlag);
  return false;
}

std::size_t CountDigits(WideStringView text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), base::IsDigit));
}

}  // namespace

bool IsPrintable(char16_t character) {
  constexpr char16_t kDelete = 0x7F;
  constexpr char16_t kFirstAfterControls = 0xA0;
  return character >= u' ' && (character < kDelete || character >= kFirstAfterControls);
}

bool FilterWepKeyChar(const EditField& field, char16_t character, InsertFlag insertFlag) {
  return FilterKeyChar(field, character, insertFlag, kWepKey);
}

bool FilterPreSharedKeyChar(const EditField& field, char16_t character, InsertFlag insertFlag) {
  return FilterKeyChar(field, character, insertFlag, kPreSharedKey);
}

bool FilterNumericChar(const EditField& field, char16_t character, InsertFlag insertFlag, std::size_t digits) {
  if (!IsPrintable(character)) return false;
  if (!base::IsDigit(character)) return true;
  if (digits != 0) {
    const EditField::Selection replaced = ReplacedBy(field, insertFlag);
    WideString kept = TextOf(field);
    kept.erase(static_cast<std::size_t>(replaced.start), static_cast<std::size_t>(replaced.end - replaced.start));
    if (CountDigits(kept) >= digits) return true;
  }
  SelectReplaced(field, insertFlag);
  return false;
}

bool FilterAnyChar(const EditField& field, char16_t character, InsertFlag insertFlag) {
  if (IsPrintable(character)) SelectReplaced(field, insertFlag);
  return false;
}

}  // namespace ui
