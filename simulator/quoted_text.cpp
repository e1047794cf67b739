#include "simulator/quoted_text.h"

#include "base/utf8.h"

namespace simulator {

std::string Quoted(WideStringView text) {
  constexpr std::string_view kPlain = "\\\"\n\r\t";
  constexpr std::string_view kShown = "\\\"nrt";
  std::string quoted = "\"";
  for (const char byte : base::ToUtf8(text)) {
    const std::size_t escape = kPlain.find(byte);
    if (escape != std::string_view::npos) quoted.push_back('\\');
    quoted.push_back(escape != std::string_view::npos ? kShown[escape] : byte);
  }
  return quoted + "\"";
}

}  // namespace simulator
