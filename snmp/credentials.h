// Who may ask: the words and the users that a manager and an agent have in common. They come from a file that is its
// owner's alone or from the environment, never from arguments, and no message holds one.
//
//   community = WORD           reads, by version 2c
//   write-community = WORD     reads and sets
//
//   [user NAME]                begins a user of version 3
//   auth-protocol = SHA-256    MD5, SHA, SHA-224, SHA-256, SHA-384, SHA-512
//   auth-password = WORD
//   priv-protocol = AES        DES, AES, AES-192, AES-256
//   priv-password = WORD
//   level = authPriv           the least that is answered: noAuthNoPriv, authNoPriv, authPriv; default: the highest
//   that
//                              the passwords permit
//   write = no                 yes, no
//
// Blank lines and those that begin with "#" say nothing.
#pragma once

#include "snmp/user.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace snmp {

struct Credentials {
  std::string community;       // reads; empty: none
  std::string writeCommunity;  // reads and sets; empty: none
  std::vector<User> users;     // each name once

  bool IsEmpty() const { return community.empty() && writeCommunity.empty() && users.empty(); }
  // Null: there is none of that name.
  const User* Find(std::string_view name) const;
  bool operator==(const Credentials&) const = default;
};

// Replaces the credentials by what the lines say. Empty, or ":LINE: " and what is wrong there; then they stay as they
// were.
std::string ParseCredentials(std::string_view bytes, Credentials& credentials);

// A variable of the environment; null: not set.
using Variables = std::function<const char*(const char* name)>;

// The file's credentials (an empty name: none), in place of which the variables count that are set: KEL_SNMP_COMMUNITY,
// KEL_SNMP_WRITE_COMMUNITY, and KEL_SNMP_AUTH_PASSWORD and so on, after each name of a user's lines, for one user.
// That is KEL_SNMP_USER, or `user` where this is not set. Empty, or one line that says why they cannot be used.
std::string ReadCredentials(const std::filesystem::path& file, const Variables& variables, Credentials& credentials,
                            const std::string& user = {});

}  // namespace snmp
