#include "authoring/typed_values.h"

#include "base/number.h"
#include "base/string_table.h"
#include "base/utf8.h"
#include "values/range.h"
#include "values/value_types.h"

#include <algorithm>

namespace authoring {

std::vector<std::string> TypedValues(const values::PropertyDescriptor& property) {
  using values::TypeCode;
  const auto type = values::TypeCodeOf(property.HeldType());
  if (type == TypeCode::kHex) {
    const bool isPreShared = property.HeldType() == LoadText(TextId::kHex32);
    return {isPreShared ? "abcdefgh1" : "0x0123456789", "0x1"};
  }
  if (type != TypeCode::kInteger) return {"1a"};

  const WideString range = property.Resolve(TextId::kRange);
  const std::int32_t current = property.GetValue().AsInteger();
  std::vector<std::string> values;
  const auto add = [&](std::int64_t number, bool inside) {
    const bool fits = number >= 0 && number <= INT32_MAX && number != current &&
                      values::InRange(static_cast<std::int32_t>(number), range) == inside;
    if (fits) values.push_back(std::to_string(number));
    return fits;
  };
  const std::int64_t low = base::ToLong(range);
  const std::int64_t here = current;
  const std::int64_t likely[] = {here + 1, here - 1, low, low + 1, 0, 1};
  for (const std::int64_t number : likely) {
    if (add(number, true)) break;
  }
  const std::size_t width = std::min<std::size_t>(property.GetTextFormat().size(), 9);
  std::int64_t largest = 0;
  for (std::size_t i = 0; i < width; ++i) largest = largest * 10 + 9;
  if (!range.empty()) add(largest, false);
  if (values.empty()) values.emplace_back("1");
  return values;
}

}  // namespace authoring
