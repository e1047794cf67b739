#include "snmp/credentials.h"

#include "tests/platform/temporary_root.h"

#include <map>

namespace {

using snmp::AuthProtocol;
using snmp::Credentials;
using snmp::PrivProtocol;
using snmp::SecurityLevel;
using snmp::User;
using std::filesystem::perms;

std::string Parsed(std::string_view bytes) {
  Credentials credentials;
  const std::string problem = ParseCredentials(bytes, credentials);
  return problem.empty() ? credentials.community + "," + credentials.writeCommunity : problem;
}

TEST(Credentials, AreNamesAndTexts) {
  EXPECT_EQ("look,", Parsed("community=look"));
  EXPECT_EQ("look at it,ch=nge", Parsed("# ours\n\n \tcommunity\t=  look at it \t\r\n  write-community = ch=nge\n"));
  EXPECT_EQ(",", Parsed(""));
}

TEST(Credentials, AWrongLineIsNamedWithoutASecretInIt) {
  const std::string names =
      "a line is NAME = TEXT, and the names are community and write-community; [user NAME] begins a user";
  EXPECT_EQ(":2: " + names, Parsed("community=look\nhush\n"));
  EXPECT_EQ(":1: " + names, Parsed("hush = community"));
  EXPECT_EQ(":1: " + names, Parsed("community hush = x"));
  EXPECT_EQ(":1: " + names, Parsed("auth-password = hush-hush"));
  EXPECT_EQ(":1: community is empty", Parsed("community = "));
}

Credentials Users(std::string_view bytes) {
  Credentials credentials;
  EXPECT_EQ("", ParseCredentials(bytes, credentials));
  return credentials;
}

TEST(Credentials, AUserHasProtocolsPasswordsLevelAndRights) {
  const Credentials credentials = Users(
      "community = look\n"
      "[user kim]\nauth-protocol = sha-512\nauth-password = open  sesame\n# both\npriv-protocol = AES-256\n"
      "priv-password = pass=word\nwrite = yes\n"
      "[user  lou lou ]\nauth-password = 12345678\nlevel = authNoPriv\n"
      "[user max]\nlevel = noAuthNoPriv\nwrite = no\n");
  EXPECT_EQ("look", credentials.community);
  ASSERT_EQ(3u, credentials.users.size());
  EXPECT_EQ((User{"kim", AuthProtocol::kSha512, "open  sesame", PrivProtocol::kAes256, "pass=word", {}, true}),
            *credentials.Find("kim"));
  EXPECT_EQ(
      (User{"lou lou", AuthProtocol::kSha256, "12345678", PrivProtocol::kAes, "", SecurityLevel::kAuthNoPriv, false}),
      *credentials.Find("lou lou"));
  EXPECT_EQ(SecurityLevel::kNoAuthNoPriv, credentials.Find("max")->LeastLevel());
  EXPECT_EQ(nullptr, credentials.Find("Kim"));
}

TEST(Credentials, EachProtocolHasItsName) {
  const std::pair<const char*, AuthProtocol> auth[] = {
      {"MD5", AuthProtocol::kMd5},        {"SHA", AuthProtocol::kSha},        {"SHA-224", AuthProtocol::kSha224},
      {"SHA-256", AuthProtocol::kSha256}, {"SHA-384", AuthProtocol::kSha384}, {"SHA-512", AuthProtocol::kSha512}};
  for (const auto& [name, protocol] : auth) {
    const auto read = Users("[user a]\nauth-password = password\nauth-protocol = " + std::string(name));
    EXPECT_EQ(protocol, read.users.at(0).authProtocol) << name;
  }
  const std::pair<const char*, PrivProtocol> priv[] = {{"DES", PrivProtocol::kDes},
                                                       {"AES", PrivProtocol::kAes},
                                                       {"AES-192", PrivProtocol::kAes192},
                                                       {"AES-256", PrivProtocol::kAes256}};
  for (const auto& [name, protocol] : priv) {
    const auto read =
        Users("[user a]\nauth-password = password\npriv-password = password\npriv-protocol = " + std::string(name));
    EXPECT_EQ(protocol, read.users.at(0).privProtocol) << name;
  }
}

TEST(Credentials, AUserIsAnsweredAtTheLevelOfItsPasswordsUnlessTheFileAllowsLess) {
  const std::string both = "[user a]\nauth-password = password\npriv-password = password\n";
  EXPECT_EQ(SecurityLevel::kAuthPriv, Users(both).users[0].LeastLevel());
  EXPECT_EQ(SecurityLevel::kAuthNoPriv, Users(both + "level = authNoPriv").users[0].LeastLevel());
  EXPECT_EQ(SecurityLevel::kAuthPriv, Users(both + "level = authNoPriv").users[0].HighestLevel());
  EXPECT_EQ(SecurityLevel::kNoAuthNoPriv, Users(both + "level = noAuthNoPriv").users[0].LeastLevel());
  EXPECT_EQ(SecurityLevel::kAuthNoPriv, Users("[user a]\nauth-password = password").users[0].LeastLevel());
}

TEST(Credentials, AWrongUserIsNamedByItsLineAndNothingElse) {
  const std::string names =
      "a user's line is NAME = TEXT, and the names are auth-protocol, auth-password, priv-protocol, priv-password, "
      "level and write";
  const struct {
    const char* lines;
    std::string problem;
  } cases[] = {
      {"[user hush]\nhush", ":2: " + names},
      {"[user hush]\ncommunity = hush", ":2: " + names},
      {"[user hush]\nauth-password = hushhus", ":2: auth-password has fewer than 8 characters"},
      {"[user hush]\nauth-password = \xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4",
       ":2: auth-password has fewer than 8 characters"},
      {"[user hush]\nauth-password =", ":2: auth-password has fewer than 8 characters"},
      {"[user hush]\nauth-password = hushhush\npriv-password = hush", ":3: priv-password has fewer than 8 characters"},
      {"[user hush]\nauth-protocol = hush", ":2: auth-protocol is one of MD5, SHA, SHA-224, SHA-256, SHA-384, SHA-512"},
      {"[user hush]\npriv-protocol = hush", ":2: priv-protocol is one of DES, AES, AES-192, AES-256"},
      {"[user hush]\nlevel = hush", ":2: level is one of noAuthNoPriv, authNoPriv, authPriv"},
      {"[user hush]\nwrite = hush", ":2: write is one of yes, no"},
      {"[hush]", ":1: a user begins with [user NAME]"},
      {"[user hush", ":1: a user begins with [user NAME]"},
      {"[user]", ":1: a user begins with [user NAME]"},
      {"[user ]", ":1: a user begins with [user NAME]"},
      {"[userhush]", ":1: a user begins with [user NAME]"},
      {"[user hush]\nlevel = noAuthNoPriv\n\n[user hush]", ":4: this user is there already"},
      {"[user hush-hush-hush-hush-hush-hush-hus]", ":1: a user's name has at most 32 octets"},
      {"#\n[user hush]\n[user max]", ":2: a user has an auth-password, or level = noAuthNoPriv"},
      {"[user hush]\npriv-password = hushhush", ":1: a priv-password takes an auth-password as well"},
      {"[user hush]\nauth-password = hushhush\nlevel = authPriv", ":1: the level takes a password that is not there"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.problem, Parsed(c.lines)) << c.lines;
}

TEST(Credentials, ThatAreWrongLeaveThoseThatWere) {
  Credentials credentials{"look", "change", {}};
  EXPECT_NE("", ParseCredentials("community = see\nhush", credentials));
  EXPECT_EQ((Credentials{"look", "change", {}}), credentials);
}

class CredentialsFile : public testing::Test {
 protected:
  std::string Problem(const std::string& user = {}) {
    const std::string problem = ReadCredentials(
        file_, [this](const char* name) { return variables_.contains(name) ? variables_[name] : nullptr; },
        credentials_, user);
    const std::string prefix = file_.string();
    return problem.starts_with(prefix) ? problem.substr(prefix.size()) : problem;
  }
  void Write(const std::string& bytes, perms rights) {
    root_.Write("words", bytes);
    file_ = root_.Path() / "words";
    std::filesystem::permissions(file_, rights);
  }

  tests::TemporaryRoot root_;
  std::filesystem::path file_;
  std::map<std::string, const char*> variables_;
  Credentials credentials_;
};

TEST_F(CredentialsFile, IsRefusedUnlessItIsItsOwnersAlone) {
  constexpr perms kOwner = perms::owner_read | perms::owner_write;
  for (const perms more : {perms::group_read, perms::group_write, perms::others_read, perms::others_write}) {
    Write("community=look", kOwner | more);
    EXPECT_EQ(": others than its owner may use it; chmod 600 it, and change the words in it", Problem());
    EXPECT_TRUE(credentials_.IsEmpty());
  }
  Write("community=look", kOwner);
  EXPECT_EQ("", Problem());
  EXPECT_EQ("look", credentials_.community);
}

TEST_F(CredentialsFile, ThatIsWrongOrNotThereIsNamed) {
  Write("hush", perms::owner_read);
  EXPECT_TRUE(Problem().starts_with(":1: a line is"));
  file_ = root_.Path() / "none";
  EXPECT_EQ(": cannot be read", Problem());
}

TEST_F(CredentialsFile, GivesWayToTheEnvironmentWordByWord) {
  Write("community=look\nwrite-community=change", perms::owner_read);
  variables_ = {{"KEL_SNMP_COMMUNITY", "see"}, {"KEL_SNMP_WRITE_COMMUNITY", ""}};
  EXPECT_EQ("", Problem());
  EXPECT_EQ((Credentials{"see", "change", {}}), credentials_);
}

TEST_F(CredentialsFile, IsNotNeeded) {
  variables_ = {{"KEL_SNMP_WRITE_COMMUNITY", "change"}};
  EXPECT_EQ("", Problem());
  EXPECT_EQ((Credentials{"", "change", {}}), credentials_);
}

TEST_F(CredentialsFile, AUserOfTheEnvironmentIsAddedOrTakesThePlaceOfTheFilesLineByLine) {
  Write("[user kim]\nauth-protocol = SHA-512\nauth-password = of the file\n[user lou]\nlevel = noAuthNoPriv",
        perms::owner_read);
  variables_ = {{"KEL_SNMP_USER", "kim"}, {"KEL_SNMP_AUTH_PASSWORD", "of the shell"}};
  EXPECT_EQ("", Problem());
  EXPECT_EQ(2u, credentials_.users.size());
  EXPECT_EQ((User{"kim", AuthProtocol::kSha512, "of the shell", PrivProtocol::kAes, "", {}, false}),
            *credentials_.Find("kim"));
  variables_ = {{"KEL_SNMP_USER", "max"},
                {"KEL_SNMP_AUTH_PROTOCOL", "MD5"},
                {"KEL_SNMP_AUTH_PASSWORD", "1 2 3 4 5"},
                {"KEL_SNMP_PRIV_PROTOCOL", "DES"},
                {"KEL_SNMP_PRIV_PASSWORD", "5 4 3 2 1"},
                {"KEL_SNMP_LEVEL", "authNoPriv"},
                {"KEL_SNMP_WRITE", "yes"}};
  EXPECT_EQ("", Problem());
  EXPECT_EQ(3u, credentials_.users.size());
  EXPECT_EQ(
      (User{"max", AuthProtocol::kMd5, "1 2 3 4 5", PrivProtocol::kDes, "5 4 3 2 1", SecurityLevel::kAuthNoPriv, true}),
      *credentials_.Find("max"));
}

TEST_F(CredentialsFile, TheEnvironmentsPasswordsAreTheUsersThatIsAskedFor) {
  variables_ = {{"KEL_SNMP_AUTH_PASSWORD", "of the shell"}};
  EXPECT_EQ("KEL_SNMP_AUTH_PASSWORD is set, and KEL_SNMP_USER is not: whose is it?", Problem());
  EXPECT_EQ("", Problem("kim"));
  EXPECT_EQ("of the shell", credentials_.Find("kim")->authPassword);
  variables_.clear();
  credentials_ = {};
  EXPECT_EQ("", Problem("kim"));
  EXPECT_TRUE(credentials_.IsEmpty());
}

TEST_F(CredentialsFile, AWrongUserOfTheEnvironmentIsNamedWithoutASecret) {
  variables_ = {{"KEL_SNMP_USER", "hush"}};
  EXPECT_EQ("the user of KEL_SNMP_USER: a user has an auth-password, or level = noAuthNoPriv", Problem());
  variables_["KEL_SNMP_AUTH_PASSWORD"] = "hush";
  EXPECT_EQ("KEL_SNMP_AUTH_PASSWORD has fewer than 8 characters", Problem());
  EXPECT_TRUE(credentials_.IsEmpty());
}

}  // namespace
