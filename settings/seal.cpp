#include "settings/seal.h"

#include "settings/private_file.h"
#include "simulator/text_file.h"

#include <openssl/evp.h>

#include <array>
#include <charconv>
#include <memory>
#include <system_error>

namespace settings {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kKeySize = 32;
constexpr std::size_t kNonceSize = 12;
constexpr std::size_t kTagSize = 16;

using Context = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char* Bytes(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }
unsigned char* Bytes(std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); }

std::string ToHex(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    hex.push_back(kDigits[value >> 4]);
    hex.push_back(kDigits[value & 15]);
  }
  return hex;
}

std::optional<std::string> FromHex(std::string_view hex) {
  std::string bytes;
  if (hex.size() % 2 != 0) return std::nullopt;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(hex.data() + i, hex.data() + i + 2, value, 16);
    if (error != std::errc() || end != hex.data() + i + 2) return std::nullopt;
    bytes.push_back(static_cast<char>(value));
  }
  return bytes;
}

}  // namespace

std::string Seal::Load(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) {
    fs::create_directories(file.parent_path(), error);
    PrivateFile made;
    std::string problem = made.Create(file);
    if (!problem.empty()) return problem;
    const std::string key = RandomBytes(kKeySize);
    if (key.empty() || !made.Append(key) || !made.Sync()) return file.string() + ": cannot be written";
  }
  constexpr fs::perms kOthers = fs::perms::group_all | fs::perms::others_all;
  if ((fs::status(file, error).permissions() & kOthers) != fs::perms::none) {
    return file.string() + ": others may read it; it seals secrets in journals";
  }
  const auto bytes = simulator::ReadTextFile(file);
  if (!bytes || bytes->size() != kKeySize) return file.string() + ": this is no key; without it secrets stay sealed";
  key_ = *bytes;
  return {};
}

std::string Seal::Close(std::string_view bytes) const {
  const std::string nonce = RandomBytes(kNonceSize);
  const Context context(EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free);
  std::string sealed(bytes.size(), '\0');
  std::string tag(kTagSize, '\0');
  int length = 0;
  const bool isDone = !nonce.empty() && context != nullptr &&
                      EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, Bytes(key_), Bytes(nonce)) == 1 &&
                      EVP_EncryptUpdate(context.get(), Bytes(sealed), &length, Bytes(bytes),
                                        static_cast<int>(bytes.size())) == 1 &&
                      EVP_EncryptFinal_ex(context.get(), Bytes(tag), &length) == 1 &&
                      EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_GET_TAG, kTagSize, tag.data()) == 1;
  return isDone ? ToHex(nonce + sealed + tag) : std::string();
}

std::optional<std::string> Seal::Open(std::string_view sealed) const {
  const auto bytes = FromHex(sealed);
  if (!bytes || bytes->size() < kNonceSize + kTagSize || key_.empty()) return std::nullopt;
  const std::string_view all = *bytes;
  const std::string_view nonce = all.substr(0, kNonceSize);
  const std::string_view inside = all.substr(kNonceSize, all.size() - kNonceSize - kTagSize);
  std::string tag(all.substr(all.size() - kTagSize));
  const Context context(EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free);
  std::string opened(inside.size(), '\0');
  std::array<unsigned char, kTagSize> rest{};
  int length = 0;
  const bool isDone = context != nullptr &&
                      EVP_DecryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, Bytes(key_), Bytes(nonce)) == 1 &&
                      EVP_DecryptUpdate(context.get(), Bytes(opened), &length, Bytes(inside),
                                        static_cast<int>(inside.size())) == 1 &&
                      EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_SET_TAG, kTagSize, tag.data()) == 1 &&
                      EVP_DecryptFinal_ex(context.get(), rest.data(), &length) == 1;
  return isDone ? std::optional<std::string>(std::move(opened)) : std::nullopt;
}

}  // namespace settings
