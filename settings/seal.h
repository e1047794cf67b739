// Secrets as a journal may hold them: sealed by a key that lies elsewhere, AES-256 in Galois/Counter Mode. Who has the
// journal alone learns nothing; who has both is the one who applied it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace settings {

class Seal {
 public:
  // The key of a file that only its owner may read; made when it is not there. Empty, or why there is no key.
  std::string Load(const std::filesystem::path& file);

  // Hexadecimal digits: a number used once, the sealed bytes and the tag. Empty when it cannot be done.
  std::string Close(std::string_view bytes) const;
  // Nothing for what this key has not sealed, or what was changed since.
  std::optional<std::string> Open(std::string_view sealed) const;

 private:
  std::string key_;
};

}  // namespace settings
