// Ranges: tests and masks of any text stay in measure.
#include "base/utf8.h"
#include "values/range.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const WideString range = base::FromUtf8({reinterpret_cast<const char*>(bytes), size});
  for (const std::int32_t value : {-2147483647 - 1, -1, 0, 1, 50, 65535, 2147483647}) values::InRange(value, range);
  if (values::MaskFromRange(range).size() > range.size()) std::abort();
  return 0;
}
