// Values: the first line is a type, the rest a text from the device or from a person.
#include "base/utf8.h"
#include "values/ip_address.h"
#include "values/value_types.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const WideString input = base::FromUtf8({reinterpret_cast<const char*>(bytes), size});
  const std::size_t lineEnd = std::min(input.find(u'\n'), input.size());
  const WideString type = input.substr(0, lineEnd);
  const WideString text = input.substr(std::min(lineEnd + 1, input.size()));

  values::PropertyValue value;
  values::ParseValueAs(type, text, value);
  if (values::IpAddressFromDotted(values::DottedIpAddress(value.AsInteger())) != value.AsInteger()) std::abort();

  // What was read reads the same again, addresses apart: they are held as numbers.
  values::PropertyValue again = value;
  values::ParseValueAs(type, value.AsText(), again);
  if (values::TypeCodeOf(type) != values::TypeCode::kIpAddress && again.AsText() != value.AsText()) std::abort();
  return 0;
}
