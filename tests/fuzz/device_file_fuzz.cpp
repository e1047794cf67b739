// device.txt: every line that reads must write back to what it says.
#include "base/utf8.h"
#include "simulator/columns.h"
#include "simulator/device_store.h"
#include "simulator/text_file.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  simulator::ForEachLine(bytes, [](std::size_t, std::string_view text) {
    std::string problem;
    const auto line = simulator::ParseDeviceLine(text, problem);
    if (!line) return true;
    const std::string written = simulator::FormatDeviceLine(*line);
    if (simulator::IsComment(written) || simulator::ParseDeviceLine(written, problem) != line) std::abort();
    return true;
  });
  return 0;
}
