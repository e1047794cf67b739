// Registry files: either a registry or one broken line within the file.
#include "platform/host/reg_file.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto file = platform::host::ReadRegFile(bytes);
  if ((file.tree == nullptr) != (file.line > 0) || (file.line > 0) != !file.problem.empty()) std::abort();
  if (file.line > size + 1) std::abort();
  return 0;
}
