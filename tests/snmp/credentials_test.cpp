#include "snmp/credentials.h"

#include "tests/platform/temporary_root.h"

#include <map>

namespace {

using snmp::Credentials;
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
  const std::string names = "a line is NAME = TEXT, and the names are community and write-community";
  EXPECT_EQ(":2: " + names, Parsed("community=look\nhush\n"));
  EXPECT_EQ(":1: " + names, Parsed("hush = community"));
  EXPECT_EQ(":1: " + names, Parsed("community hush = x"));
  EXPECT_EQ(":1: community is empty", Parsed("community = "));
}

class CredentialsFile : public testing::Test {
 protected:
  std::string Problem() {
    const std::string problem = ReadCredentials(
        file_, [this](const char* name) { return variables_.contains(name) ? variables_[name] : nullptr; },
        credentials_);
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
  EXPECT_EQ((Credentials{"see", "change"}), credentials_);
}

TEST_F(CredentialsFile, IsNotNeeded) {
  variables_ = {{"KEL_SNMP_WRITE_COMMUNITY", "change"}};
  EXPECT_EQ("", Problem());
  EXPECT_EQ((Credentials{"", "change"}), credentials_);
}

}  // namespace
