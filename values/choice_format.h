// Choice lists: "1#Open|2#Shared" pairs each key with the text that a person sees.
#pragma once

#include "base/wide_string.h"
#include "values/property_value.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace values {

// Keys are numbers for properties of type "Integer", texts for all others.
enum class KeyMode { kNumeric, kText };

class ChoiceFormat {
 public:
  struct Entry {
    WideString key;           // as written
    std::int32_t number = 0;  // the number the key begins with; 0: none
    WideString text;
  };

  ChoiceFormat() = default;
  // Never fails: an entry without "#" is all text and has an empty key (0 when numeric). An empty entry counts, except
  // as the last one.
  ChoiceFormat(WideStringView text, KeyMode mode);

  KeyMode Mode() const { return mode_; }
  std::size_t Count() const { return entries_.size(); }
  const std::vector<Entry>& Entries() const { return entries_; }

  // Nothing is found in a list of the other mode. Of several entries that fit, the look-ups by text and for a text give
  // the first, those for an index the last: that is the line a list shows selected.
  std::optional<std::int32_t> GetValue(WideStringView text) const;
  std::optional<std::size_t> IndexOfValue(std::int32_t number) const;
  std::optional<WideString> GetKey(WideStringView text) const;
  std::optional<WideString> GetText(WideStringView key) const;
  std::optional<std::size_t> IndexOfKey(WideStringView key) const;
  // The entry that stands for a value. A text that holds no number has none in a numeric list.
  std::optional<std::size_t> IndexOf(const PropertyValue& value) const;

 private:
  void Add(WideStringView entry);
  const Entry* FindText(WideStringView text, KeyMode mode) const;

  KeyMode mode_ = KeyMode::kNumeric;
  std::vector<Entry> entries_;
};

}  // namespace values
