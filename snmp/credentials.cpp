#include "snmp/credentials.h"

#include "simulator/text_file.h"

#include <system_error>

namespace snmp {
namespace {

const struct {
  std::string_view name;
  const char* variable;
  std::string Credentials::*text;
} kNames[] = {
    {"community", "KEL_SNMP_COMMUNITY", &Credentials::community},
    {"write-community", "KEL_SNMP_WRITE_COMMUNITY", &Credentials::writeCommunity},
};

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Of a wrong line nothing is said back: it may be a word that stands in the wrong place.
std::string TakeLine(std::string_view line, Credentials& credentials) {
  const std::size_t equals = line.find('=');
  const std::string_view name = Trimmed(line.substr(0, equals));
  for (const auto& known : kNames) {
    if (equals == std::string_view::npos || known.name != name) continue;
    const std::string_view text = Trimmed(line.substr(equals + 1));
    if (text.empty()) return std::string(name) + " is empty";
    credentials.*known.text = text;
    return {};
  }
  return "a line is NAME = TEXT, and the names are community and write-community";
}

std::string ReadFile(const std::filesystem::path& file, Credentials& credentials) {
  using std::filesystem::perms;
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!error && (status.permissions() & (perms::group_all | perms::others_all)) != perms::none) {
    return file.string() + ": others than its owner may use it; chmod 600 it, and change the words in it";
  }
  const auto bytes = simulator::ReadTextFile(file);
  if (!bytes) return file.string() + ": cannot be read";
  const std::string problem = ParseCredentials(*bytes, credentials);
  return problem.empty() ? problem : file.string() + problem;
}

}  // namespace

std::string ParseCredentials(std::string_view bytes, Credentials& credentials) {
  std::string problem;
  simulator::ForEachLine(bytes, [&](std::size_t number, std::string_view line) {
    line = Trimmed(line);
    if (line.empty() || line.front() == '#') return true;
    problem = TakeLine(line, credentials);
    if (!problem.empty()) problem = ":" + std::to_string(number) + ": " + problem;
    return problem.empty();
  });
  return problem;
}

std::string ReadCredentials(const std::filesystem::path& file, const Variables& variables, Credentials& credentials) {
  if (!file.empty()) {
    if (std::string problem = ReadFile(file, credentials); !problem.empty()) return problem;
  }
  for (const auto& known : kNames) {
    const char* text = variables(known.variable);
    if (text != nullptr && *text != '\0') credentials.*known.text = text;
  }
  return {};
}

}  // namespace snmp
