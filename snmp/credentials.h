// Who may ask: the words that a manager and an agent have in common. They come from a file that is its owner's alone or
// from the environment, never from arguments, and no message holds one.
//
// A line of the file is NAME = TEXT; blank lines and those that begin with "#" say nothing.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace snmp {

struct Credentials {
  std::string community;       // reads; empty: none
  std::string writeCommunity;  // reads and sets; empty: none

  bool IsEmpty() const { return community.empty() && writeCommunity.empty(); }
  bool operator==(const Credentials&) const = default;
};

// Takes what the lines say. Empty, or ":LINE: " and what is wrong there.
std::string ParseCredentials(std::string_view bytes, Credentials& credentials);

// A variable of the environment; null: not set.
using Variables = std::function<const char*(const char* name)>;

// The file's credentials (an empty name: none), in place of which KEL_SNMP_COMMUNITY and KEL_SNMP_WRITE_COMMUNITY count
// where they are set. Empty, or one line that says why they cannot be used.
std::string ReadCredentials(const std::filesystem::path& file, const Variables& variables, Credentials& credentials);

}  // namespace snmp
