// Wireless keys: a refused key stays as it was and says why; an accepted one has a length that the device takes.
#include "base/utf8.h"
#include "values/key_rules.h"

#include <cstdint>
#include <cstdlib>

namespace {

using Rule = bool (*)(WideString& text, bool convert, WideString& message);

void Check(Rule rule, const WideString& typed, std::size_t shortest, std::size_t longest) {
  for (const bool convert : {false, true}) {
    WideString text = typed;
    WideString message;
    const bool passes = rule(text, convert, message);
    if (passes != message.empty()) std::abort();
    if ((!passes || !convert) && text != typed) std::abort();
    // Characters beyond 8 bits are longer in hexadecimal form, up to twice.
    if (passes && convert && (text.size() < shortest || text.size() > 2 * longest)) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const WideString typed = base::FromUtf8({reinterpret_cast<const char*>(bytes), size});
  Check(values::CheckWepKey, typed, 10, 26);
  Check(values::CheckPreSharedKey, typed, 16, 126);
  return 0;
}
