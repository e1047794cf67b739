// A PC with Windows only plays the utility: a terminal's program can neither run on it nor may it.
#include "platform/host/program_start.h"

#include "platform/host/utf8_path.h"

#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

namespace platform::host {

std::uint32_t WhyNoProgram(const Place& place) {
  std::error_code error;
  const auto status = std::filesystem::status(PathOf(place.fullName), error);
  if (!std::filesystem::exists(status)) return kFileNotFound;
  if (std::filesystem::is_directory(status)) return kRefused;
  return std::filesystem::is_regular_file(status) ? 0 : kBadProgram;
}

// What a simulated terminal could start counts as started.
std::uint32_t Spawn(const std::string& program, WideStringView) {
  std::ifstream bytes(PathOf(program), std::ios::binary);
  std::array<char, 4> head{};
  bytes.read(head.data(), head.size());
  const std::string_view start(head.data(), static_cast<std::size_t>(bytes.gcount()));
  return start.starts_with("#!") || start ==
                                        "\x7F"
                                        "ELF"
             ? 0
             : kBadProgram;
}

}  // namespace platform::host
