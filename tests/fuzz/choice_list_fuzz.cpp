// Choice lists: every entry is found again by its text and by its key.
#include "base/utf8.h"
#include "values/choice_format.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr std::size_t kMostEntries = 64;  // each is looked up in all

  const WideString text = base::FromUtf8({reinterpret_cast<const char*>(bytes), size});
  const values::ChoiceFormat numeric(text, values::KeyMode::kNumeric);
  const values::ChoiceFormat texts(text, values::KeyMode::kText);
  Require(numeric.Count() == texts.Count());
  for (std::size_t i = 0; i < std::min(kMostEntries, numeric.Count()); ++i) {
    const values::ChoiceFormat::Entry& entry = numeric.Entries()[i];
    Require(numeric.GetValue(entry.text).has_value());
    Require(numeric.IndexOfValue(entry.number).value() >= i);
    Require(texts.GetKey(entry.text).has_value());
    Require(texts.GetText(entry.key).has_value());
    Require(texts.IndexOfKey(entry.key).value() >= i);
  }
  return 0;
}
