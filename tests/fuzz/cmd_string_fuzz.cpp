// Layouts of command values: fields of a record lie inside it.
#include "base/utf8.h"
#include "values/field_width_list.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr std::int32_t kMostFields = 64;

  const WideString text = base::FromUtf8({reinterpret_cast<const char*>(bytes), size});
  const values::FieldWidthList layout(text);
  const WideString record(300, u'r');
  for (std::int32_t i = -1; i < std::min(kMostFields, layout.Count() + 1); ++i) {
    const std::optional<WideString> field = layout.Field(record, i);
    if (field && (field->empty() || field->size() > values::FieldWidthList::kMaxFieldLength)) std::abort();
    if (field && static_cast<std::size_t>(layout.Start(i)) + field->size() > record.size()) std::abort();
  }
  if (layout.Mask().size() > 4096) std::abort();
  return 0;
}
