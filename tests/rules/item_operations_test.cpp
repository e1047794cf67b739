#include "rules/item_operations.h"

#include "tests/rules/rules_fixture.h"

namespace {

using tests::Group;
using tests::Journal;
using tests::Property;
using tests::Tag;

class ReadMissedTest : public tests::RulesTest {
 protected:
  void SilentFor(std::initializer_list<const char16_t*> oids, platform::ResultCode code = platform::kTimedOut) {
    for (const char16_t* oid : oids) fake_[oid].getResult = code;
  }

  // What reading the missed lines of the menu reads.
  Journal ReadMissed(WideStringView menu) {
    calls_.logGets = true;
    TakeJournal();
    shell_.changedLines.clear();
    rules_.items.ReadMissed(Item(menu));
    return TakeJournal();
  }
};

TEST_F(ReadMissedTest, WhatTheDeviceDidNotGiveInTimeIsAskedForAgain) {
  fake_.Put(u"1", u"5");
  fake_.Put(u"2", u"6");
  SilentFor({u"1"});
  Build(Group("m", Property("a", "1", "Integer") + Property("b", "2", "Integer") + Group("c", "")));
  EXPECT_EQ(u"a  <Unavailable>", Item(u"m\\a").LineText());
  EXPECT_EQ((Journal{u"get 1 Integer"}), ReadMissed(u"m"));
  EXPECT_EQ(u"a  <Unavailable>", Item(u"m\\a").LineText());
  SilentFor({u"1"}, platform::kOk);
  EXPECT_EQ((Journal{u"get 1 Integer"}), ReadMissed(u"m"));
  EXPECT_EQ(u"a  <5>", Item(u"m\\a").LineText());
  EXPECT_EQ((std::vector<WideString>{u"R\\m\\a"}), shell_.changedLines);
  EXPECT_EQ(Journal(), ReadMissed(u"m"));
}

TEST_F(ReadMissedTest, WhatItWillNotGiveIsNot) {
  fake_.Put(u"1", u"5");
  SilentFor({u"1"}, platform::kAccessDenied);
  Build(Group("m", Property("a", "1", "Integer")));
  EXPECT_EQ(Journal(), ReadMissed(u"m"));
  SilentFor({u"1"});
  model_.FindDescriptor(u"1")->InitValue();
  EXPECT_TRUE(model_.FindDescriptor(u"1")->IsMissed());
  SilentFor({u"1"}, platform::kFailed);
  model_.FindDescriptor(u"1")->InitValue();
  EXPECT_EQ(Journal(), ReadMissed(u"m"));
}

TEST_F(ReadMissedTest, AFieldComesWithItsCommandWhereverThatStands) {
  fake_.Put(u"7", u"0312");
  SilentFor({u"7"});
  Build(Property("cmd", "7", "ReaderCmd", Tag("CmdString", "2,2,2")) +
        Group("m", Group("f", Tag("DisplayName", "f") + Tag("CmdOID", "7:2") + Tag("Ordinal", "2") +
                                  Tag("Type", "Integer"))));
  EXPECT_EQ(u"f  <Unavailable>", Item(u"m\\f").LineText());
  SilentFor({u"7"}, platform::kOk);
  EXPECT_EQ((Journal{u"get 7 ReaderCmd"}), ReadMissed(u"m"));
  EXPECT_EQ(u"f  <12>", Item(u"m\\f").LineText());
}

}  // namespace
