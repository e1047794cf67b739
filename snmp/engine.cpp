#include "snmp/engine.h"

#include "snmp/decimal.h"

#include <array>
#include <random>
#include <system_error>
#include <utility>

namespace snmp {
namespace {

constexpr std::size_t kMinIdLength = 5;
constexpr std::size_t kMaxIdLength = 32;
constexpr std::int64_t kMaxBoots = 2'147'483'646;  // one more says that they can no longer be counted
constexpr std::string_view kDigits = "0123456789abcdef";

// The maker's number 4242 with its first bit set, and that octets of its own choice follow.
constexpr std::string_view kIdBegin("\x80\x00\x10\x92\x05", 5);
constexpr std::size_t kChosenOctets = 12;

Engine NewEngine() {
  Engine engine{std::string(kIdBegin), 1};
  std::random_device chance;
  for (std::size_t i = 0; i < kChosenOctets; ++i) engine.id.push_back(static_cast<char>(chance()));
  return engine;
}

std::optional<std::string> OctetsOf(std::string_view hex) {
  std::string octets;
  if (hex.size() % 2 != 0) return std::nullopt;
  for (; !hex.empty(); hex.remove_prefix(2)) {
    const std::size_t high = kDigits.find(hex[0]);
    const std::size_t low = kDigits.find(hex[1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    octets.push_back(static_cast<char>(high * 16 + low));
  }
  return octets;
}

std::string FormatEngine(const Engine& engine) { return HexOf(engine.id) + " " + std::to_string(engine.boots) + "\n"; }

std::optional<Engine> ParseEngine(std::string_view text) {
  const std::size_t blank = text.find(' ');
  if (blank == std::string_view::npos || !text.ends_with('\n')) return std::nullopt;
  const auto id = OctetsOf(text.substr(0, blank));
  const auto boots = ParseDecimal(text.substr(blank + 1, text.size() - blank - 2));
  if (!id || id->size() < kMinIdLength || id->size() > kMaxIdLength || !boots || *boots < 1) return std::nullopt;
  return Engine{*id, *boots};
}

}  // namespace

std::string HexOf(std::string_view octets) {
  std::string hex;
  for (const char octet : octets) {
    const auto number = static_cast<unsigned char>(octet);
    hex.push_back(kDigits[number / 16]);
    hex.push_back(kDigits[number % 16]);
  }
  return hex;
}

std::filesystem::path EngineFileOf(const std::filesystem::path& root, const std::filesystem::path& folder) {
  if (folder.empty()) return {};
  std::error_code error;
  auto canonical = std::filesystem::weakly_canonical(root, error);
  if (error) canonical = root;
  if (!canonical.has_filename()) canonical = canonical.parent_path();
  // FNV-1a: the same in every build, and short, whatever the path.
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char octet : canonical.string()) {
    hash = (hash ^ static_cast<unsigned char>(octet)) * 0x100000001b3;
  }
  std::string octets;
  for (int shift = 56; shift >= 0; shift -= 8) octets.push_back(static_cast<char>(hash >> shift));
  return folder / "engines" / HexOf(octets);
}

std::optional<Engine> StartEngine(const std::filesystem::path& file, const simulator::SyncFile& sync,
                                  std::string& problem) {
  std::error_code error;
  Engine engine = NewEngine();
  if (std::filesystem::exists(file, error)) {
    const auto kept = ParseEngine(simulator::ReadTextFile(file).value_or(""));
    if (!kept) {
      problem = file.string() + ": is no agent's engine id and count of starts; remove it for a new one";
      return std::nullopt;
    }
    if (kept->boots < kMaxBoots) engine = {kept->id, kept->boots + 1};
  }
  std::filesystem::create_directories(file.parent_path(), error);
  if (error || !simulator::ReplaceTextFile(file, FormatEngine(engine), sync)) {
    problem = file.string() + ": cannot be written";
    return std::nullopt;
  }
  return engine;
}

}  // namespace snmp
