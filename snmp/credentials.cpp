#include "snmp/credentials.h"

#include "base/utf8.h"
#include "simulator/text_file.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

namespace snmp {
namespace {

const struct {
  std::string_view name;
  const char* variable;
  std::string Credentials::*text;
} kWords[] = {
    {"community", "KEL_SNMP_COMMUNITY", &Credentials::community},
    {"write-community", "KEL_SNMP_WRITE_COMMUNITY", &Credentials::writeCommunity},
};

template <typename Value>
struct Named {
  std::string_view name;
  Value value;
};
constexpr Named<AuthProtocol> kAuthProtocols[] = {
    {"MD5", AuthProtocol::kMd5},        {"SHA", AuthProtocol::kSha},        {"SHA-224", AuthProtocol::kSha224},
    {"SHA-256", AuthProtocol::kSha256}, {"SHA-384", AuthProtocol::kSha384}, {"SHA-512", AuthProtocol::kSha512},
};
constexpr Named<PrivProtocol> kPrivProtocols[] = {
    {"DES", PrivProtocol::kDes},
    {"AES", PrivProtocol::kAes},
    {"AES-192", PrivProtocol::kAes192},
    {"AES-256", PrivProtocol::kAes256},
};
constexpr Named<SecurityLevel> kLevels[] = {
    {"noAuthNoPriv", SecurityLevel::kNoAuthNoPriv},
    {"authNoPriv", SecurityLevel::kAuthNoPriv},
    {"authPriv", SecurityLevel::kAuthPriv},
};
constexpr Named<bool> kAnswers[] = {{"yes", true}, {"no", false}};

// Names count in any case. Empty, or which there are.
template <typename Value, std::size_t count, typename Taken>
std::string TakeName(const Named<Value> (&names)[count], std::string_view text, Taken& taken) {
  std::string known;
  for (const Named<Value>& one : names) {
    if (base::EqualsIgnoringCase(base::FromUtf8(one.name), base::FromUtf8(text))) {
      taken = one.value;
      return {};
    }
    known.append(known.empty() ? " is one of " : ", ").append(one.name);
  }
  return known;
}

std::string TakePassword(std::string_view text, std::string& password) {
  if (base::FromUtf8(text).size() < kMinPasswordLength) return " has fewer than 8 characters";
  password = text;
  return {};
}

// What a user's lines say. A setter answers nothing, or what is to be said after the line's name.
const struct {
  std::string_view name;
  const char* variable;
  std::string (*set)(User& user, std::string_view text);
} kOfUsers[] = {
    {"auth-protocol", "KEL_SNMP_AUTH_PROTOCOL",
     [](User& user, std::string_view text) { return TakeName(kAuthProtocols, text, user.authProtocol); }},
    {"auth-password", "KEL_SNMP_AUTH_PASSWORD",
     [](User& user, std::string_view text) { return TakePassword(text, user.authPassword); }},
    {"priv-protocol", "KEL_SNMP_PRIV_PROTOCOL",
     [](User& user, std::string_view text) { return TakeName(kPrivProtocols, text, user.privProtocol); }},
    {"priv-password", "KEL_SNMP_PRIV_PASSWORD",
     [](User& user, std::string_view text) { return TakePassword(text, user.privPassword); }},
    {"level", "KEL_SNMP_LEVEL", [](User& user, std::string_view text) { return TakeName(kLevels, text, user.level); }},
    {"write", "KEL_SNMP_WRITE",
     [](User& user, std::string_view text) { return TakeName(kAnswers, text, user.mayWrite); }},
};

constexpr const char* kWhatWordsAre =
    "a line is NAME = TEXT, and the names are community and write-community; [user NAME] begins a user";
constexpr const char* kWhatUsersAre =
    "a user's line is NAME = TEXT, and the names are auth-protocol, auth-password, priv-protocol, priv-password, level "
    "and write";

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The line's row of a table of names; null: there is none.
template <typename Row, std::size_t count>
const Row* RowOf(const Row (&rows)[count], std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(rows), std::end(rows), [name](const Row& row) { return row.name == name; });
  return found == std::end(rows) ? nullptr : found;
}

// Of a wrong line nothing is said back: it may be a word that stands in the wrong place.
class Reader {
 public:
  std::string Take(std::size_t number, std::string_view line) {
    if (line.front() == '[') return BeginUser(number, line);
    const std::size_t equals = line.find('=');
    const std::string_view name =
        equals == std::string_view::npos ? std::string_view() : Trimmed(line.substr(0, equals));
    const std::string_view text =
        equals == std::string_view::npos ? std::string_view() : Trimmed(line.substr(equals + 1));
    return credentials_.users.empty() ? TakeWord(name, text) : TakeOfUser(name, text);
  }

  // Empty, or what is wrong with a whole user, and where that one begins.
  std::string Finish() const {
    for (std::size_t i = 0; i < credentials_.users.size(); ++i) {
      const std::string problem = ProblemOf(credentials_.users[i]);
      if (!problem.empty()) return ":" + std::to_string(begins_[i]) + ": " + problem;
    }
    return {};
  }
  Credentials Taken() { return std::move(credentials_); }

 private:
  std::string BeginUser(std::size_t number, std::string_view line) {
    constexpr std::string_view kKind = "user";
    std::string_view words = line.substr(1);
    const bool isClosed = words.ends_with(']');
    if (isClosed) words = Trimmed(words.substr(0, words.size() - 1));
    const std::string_view name = words.starts_with(kKind) ? words.substr(kKind.size()) : std::string_view();
    if (!isClosed || Trimmed(name).empty() || Trimmed(name) == name) return "a user begins with [user NAME]";
    if (credentials_.Find(Trimmed(name)) != nullptr) return "this user is there already";
    credentials_.users.emplace_back().name = Trimmed(name);
    begins_.push_back(number);
    return {};
  }

  std::string TakeWord(std::string_view name, std::string_view text) {
    const auto* const word = RowOf(kWords, name);
    if (word == nullptr) return kWhatWordsAre;
    if (text.empty()) return std::string(name) + " is empty";
    credentials_.*word->text = text;
    return {};
  }

  std::string TakeOfUser(std::string_view name, std::string_view text) {
    const auto* const row = RowOf(kOfUsers, name);
    if (row == nullptr) return kWhatUsersAre;
    const std::string problem = row->set(credentials_.users.back(), text);
    return problem.empty() ? problem : std::string(name) + problem;
  }

  Credentials credentials_;
  std::vector<std::size_t> begins_;  // lines, from 1
};

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

// Null also for an empty one.
const char* TextOf(const Variables& variables, const char* name) {
  const char* text = variables(name);
  return text == nullptr || *text == '\0' ? nullptr : text;
}

// Calls `take` with each row of a user that the environment has, until it answers with a problem.
std::string TakeUserOfVariables(const Variables& variables, User& user) {
  for (const auto& row : kOfUsers) {
    const char* text = TextOf(variables, row.variable);
    const std::string problem = text == nullptr ? "" : row.set(user, text);
    if (!problem.empty()) return row.variable + problem;
  }
  const std::string problem = ProblemOf(user);
  return problem.empty() ? problem : "the user of KEL_SNMP_USER: " + problem;
}

std::string TakeVariables(const Variables& variables, std::string name, Credentials& credentials) {
  for (const auto& word : kWords) {
    if (const char* text = TextOf(variables, word.variable)) credentials.*word.text = text;
  }
  if (const char* text = TextOf(variables, "KEL_SNMP_USER")) name = text;
  const auto* const set = std::find_if(std::begin(kOfUsers), std::end(kOfUsers), [&variables](const auto& row) {
    return TextOf(variables, row.variable) != nullptr;
  });
  if (name.empty()) {
    return set == std::end(kOfUsers) ? ""
                                     : std::string(set->variable) + " is set, and KEL_SNMP_USER is not: whose is it?";
  }
  const auto known = std::find_if(credentials.users.begin(), credentials.users.end(),
                                  [&name](const User& user) { return user.name == name; });
  // Whoever only names a user of the file changes nothing about it; of one that is nowhere else there must be more.
  if (set == std::end(kOfUsers) &&
      (known != credentials.users.end() || TextOf(variables, "KEL_SNMP_USER") == nullptr)) {
    return {};
  }
  User user = known != credentials.users.end() ? *known : User{};
  user.name = name;
  if (std::string problem = TakeUserOfVariables(variables, user); !problem.empty()) return problem;
  if (known != credentials.users.end()) {
    *known = std::move(user);
  } else {
    credentials.users.push_back(std::move(user));
  }
  return {};
}

}  // namespace

const User* Credentials::Find(std::string_view name) const {
  const auto found = std::find_if(users.begin(), users.end(), [name](const User& user) { return user.name == name; });
  return found == users.end() ? nullptr : &*found;
}

std::string ParseCredentials(std::string_view bytes, Credentials& credentials) {
  Reader reader;
  std::string problem;
  simulator::ForEachLine(bytes, [&](std::size_t number, std::string_view line) {
    line = Trimmed(line);
    if (line.empty() || line.front() == '#') return true;
    problem = reader.Take(number, line);
    if (!problem.empty()) problem = ":" + std::to_string(number) + ": " + problem;
    return problem.empty();
  });
  if (problem.empty()) problem = reader.Finish();
  if (problem.empty()) credentials = reader.Taken();
  return problem;
}

std::string ReadCredentials(const std::filesystem::path& file, const Variables& variables, Credentials& credentials,
                            const std::string& user) {
  if (!file.empty()) {
    if (std::string problem = ReadFile(file, credentials); !problem.empty()) return problem;
  }
  return TakeVariables(variables, user, credentials);
}

}  // namespace snmp
