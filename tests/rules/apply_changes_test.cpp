#include "rules/apply_changes.h"

#include "tests/rules/rules_fixture.h"

namespace {

using tests::Group;
using tests::Journal;
using tests::Property;
using tests::Tag;

class ApplyTest : public tests::RulesTest {
 protected:
  void SetUp() override {
    fake_.Put(u"1", u"1");
    fake_.Put(u"2", u"2");
    Build(Property("a", "1", "Integer") + Property("b", "2", "Integer"));
  }

  bool Apply() { return rules_.applier.ApplyChanges(outcome_); }

  int outcome_ = -1;
};

TEST_F(ApplyTest, SendsWhatIsPendingAndPulsesEachEventOnce) {
  rules_.queue.Add(u"1", u"Integer", u"5");
  rules_.queue.Add(u"2", u"Integer", u"6");
  events_.Add(u"Changed");
  events_.Add(u"Radio");
  events_.Add(u"Changed");
  EXPECT_TRUE(Apply());
  EXPECT_EQ((Journal{u"set 1 Integer 5", u"set 2 Integer 6", u"pulse Changed", u"pulse Radio"}), TakeJournal());
  EXPECT_EQ(0, outcome_);
  EXPECT_TRUE(changes_.empty());
  EXPECT_TRUE(Apply());
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(ApplyTest, AFailureGoesOnWithTheRestAndStillPulses) {
  fake_[u"1"].setResult = platform::kAccessDenied;
  rules_.queue.Add(u"1", u"Integer", u"5");
  rules_.queue.Add(u"2", u"Integer", u"6");
  events_.Add(u"Changed");
  EXPECT_FALSE(Apply());
  EXPECT_EQ((Journal{u"set 1 Integer 5 refused", u"box Error: An error occurred.  Change was not saved. [48]",
                     u"set 2 Integer 6", u"pulse Changed"}),
            TakeJournal());
}

TEST_F(ApplyTest, TheFirstEditedPropertyIsForgottenAndTheEventsAreSignalledWhateverTheDeviceSays) {
  for (const platform::ResultCode result : {platform::kOk, platform::kFailed}) {
    fake_[u"1"].setResult = result;
    rules_.queue.Add(u"1", u"Integer", u"5");
    edit_.firstEdited = Item(u"a").Descriptor();
    events_.Add(u"Changed");
    EXPECT_EQ(result == platform::kOk, Apply());
    EXPECT_EQ(nullptr, edit_.firstEdited);
    EXPECT_EQ(u"pulse Changed", TakeJournal().back());
    EXPECT_TRUE(events_.Names().empty());
  }
}

TEST_F(ApplyTest, OutcomesHaveTheirWords) {
  const struct {
    int outcome;
    WideString box;
  } cases[] = {
      {0, u"Changes applied successfully [65537]"},
      {1,
       u"The next time the adapter is used it will have the new settings. If the adapter is currently in the device "
       u"you can suspend and then resume the device to have the changes take affect. [16]"},
      {2, u"These settings will take affect after the next warm/cold boot. [16]"},
      {3, u"You have entered an address that is missing its subnet mask. Please add a subnet mask. [16]"},
      {4, u"Changes applied successfully [16]"},
      {5, u"Changes applied successfully [16]"},
      {-1, u"Changes applied successfully [16]"},
  };
  for (const auto& c : cases) {
    rules_.applier.ShowApplyResult(c.outcome);
    EXPECT_EQ((Journal{u"box Apply: " + c.box}), TakeJournal()) << c.outcome;
  }
}

TEST_F(ApplyTest, LeavingWithNothingPendingAsksNothing) {
  EXPECT_TRUE(rules_.applier.ConfirmLeaving());
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(ApplyTest, LeavingWithPendingChangesDoesAsAnswered) {
  const WideString question = u"box :  [3]";
  const struct {
    int answer;
    bool leaves;
    bool refused;
    Journal journal;
    std::size_t pending;
  } cases[] = {
      {101, true, false, {question, u"set 1 Integer 5", u"pulse Changed"}, 0},
      {101,
       false,
       true,
       {question, u"set 1 Integer 5 refused", u"box Error: An error occurred.  Change was not saved. [48]",
        u"pulse Changed"},
       0},
      {102, true, false, {question}, 0},
      {2, false, false, {question}, 1},
      {-1, false, false, {question}, 1},
  };
  for (const auto& c : cases) {
    rules_.queue.Clear();
    rules_.queue.Add(u"1", u"Integer", u"5");
    events_.Clear();
    events_.Add(u"Changed");
    fake_[u"1"].setResult = c.refused ? platform::kFailed : platform::kOk;
    boxes_.answers = {c.answer};
    EXPECT_EQ(c.leaves, rules_.applier.ConfirmLeaving()) << c.answer;
    EXPECT_EQ(c.journal, TakeJournal()) << c.answer;
    EXPECT_EQ(c.pending, changes_.size()) << c.answer;
  }
}

TEST_F(ApplyTest, WhatIsDiscardedPulsesNothingLater) {
  rules_.queue.Add(u"1", u"Integer", u"5");
  events_.Add(u"Changed");
  boxes_.answers = {values::kBoxDiscard};
  EXPECT_TRUE(rules_.applier.ConfirmLeaving());
  TakeJournal();
  EXPECT_TRUE(Apply());
  EXPECT_EQ(Journal(), TakeJournal());
}

// Says whether the wait cursor stands. No box stands under one.
class CursorBoxes final : public values::MessageBoxes {
 public:
  explicit CursorBoxes(Journal& journal) : journal_(journal) {}
  int Show(WideStringView, WideStringView, int) override {
    const platform::WaitCursorPause pause;
    journal_.push_back(platform::host::IsWaitCursorShown() ? u"box, waiting" : u"box");
    return 0;
  }

 private:
  Journal& journal_;
};

class CursorDevice final : public platform::ISnmpConfig {
 public:
  explicit CursorDevice(Journal& journal) : journal_(journal) {}
  platform::ResultCode Set(const WideString&, const WideString&, const WideString& value) override {
    journal_.push_back(platform::host::IsWaitCursorShown() ? u"set, waiting" : u"set");
    return value == u"refuse" ? platform::kAccessDenied : platform::kOk;
  }
  platform::ResultCode Get(const WideString&, const WideString&, std::optional<WideString>&) override {
    return platform::kFailed;
  }
  platform::ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return Set(oid, type, value);
  }
  platform::ResultCode GetSpecial(const WideString& oid, const WideString& type,
                                  std::optional<WideString>& value) override {
    return Get(oid, type, value);
  }

 private:
  Journal& journal_;
};

TEST_F(ApplyTest, TheWaitCursorStandsWhileChangesAreSentAndIsBackAfterABox) {
  CursorBoxes boxes(journal_);
  values::DeviceAccess device([this] { return std::make_unique<CursorDevice>(journal_); });
  rules::Rules rules({model_, device, symbols_, changes_, events_, edit_, boxes, shell_, flashWrite_});
  rules.queue.Add(u"1", u"Octet String", u"take");
  rules.queue.Add(u"2", u"Octet String", u"refuse");
  rules.queue.Add(u"3", u"Octet String", u"take");
  EXPECT_FALSE(rules.queue.Submit());
  EXPECT_EQ((Journal{u"set, waiting", u"set, waiting", u"box", u"set, waiting"}), TakeJournal());
  EXPECT_FALSE(platform::host::IsWaitCursorShown());
  EXPECT_TRUE(rules.queue.Submit());  // nothing to send
  EXPECT_FALSE(platform::host::IsWaitCursorShown());
}

// A command of two fields, of which the device refuses or takes what is edited.
class FieldEditTest : public tests::RulesTest {
 protected:
  void SetUp() override {
    fake_.Put(u"7", u"AABBB");
    Build(
        Property("cmd", "7", "ReaderCmd", Tag("CmdString", "2,2,3") + Tag("Ordinal", "1")) +
        Group("f", Tag("DisplayName", "f") + Tag("CmdOID", "7:1") + Tag("Ordinal", "2") + Tag("Type", "Octet String")) +
        Group("g", Tag("DisplayName", "g") + Tag("CmdOID", "7:2") + Tag("Ordinal", "3") + Tag("Type", "Octet String")));
  }

  Journal Edit(WideStringView field, WideStringView text) {
    values::ValueCommitter committer(model_.Descriptors(), boxes_, changes_, events_, edit_);
    committer.RecordChange(*Item(field).Descriptor(), values::PropertyValue::OfText(WideString(text)));
    int outcome = 0;
    rules_.applier.ApplyChanges(outcome);
    return TakeJournal();
  }
};

TEST_F(FieldEditTest, ARefusedFieldIsOfferedByItsEditorAndGoesNowhereElse) {
  fake_[u"7"].setResult = platform::kAccessDenied;
  EXPECT_EQ(u"set 7 ReaderCmd XXBBB refused", Edit(u"f", u"XX").front());
  EXPECT_EQ(u"XX", Item(u"f").Descriptor()->OfferedValue().AsText());
  EXPECT_EQ(u"AA", rules_.operands.ResolveOperand(u"f"));
  EXPECT_EQ(u"AABBB", rules_.operands.GetOperandValue(u"7", u"ReaderCmd"));
  EXPECT_EQ(u"f  <AA>", Item(u"f").LineText());
  fake_[u"7"].setResult = platform::kOk;
  EXPECT_EQ((Journal{u"set 7 ReaderCmd AAYYY"}), Edit(u"g", u"YYY"));
}

TEST_F(FieldEditTest, TheMarkOfAFieldGoesWhenItsCommandWasTaken) {
  EXPECT_EQ((Journal{u"set 7 ReaderCmd XXBBB"}), Edit(u"f", u"XX"));
  EXPECT_FALSE(Item(u"f").Descriptor()->IsChanged());
  EXPECT_FALSE(Item(u"cmd").Descriptor()->IsChanged());
  EXPECT_EQ(u"f  <XX>", Item(u"f").LineText());
}

TEST_F(FieldEditTest, ADroppedEditIsAsIfItHadNotBeen) {
  values::ValueCommitter committer(model_.Descriptors(), boxes_, changes_, events_, edit_);
  committer.RecordChange(*Item(u"f").Descriptor(), values::PropertyValue::OfText(u"XX"));
  EXPECT_EQ(u"XX", rules_.operands.ResolveOperand(u"f"));  // it waits, and counts
  rules_.queue.Clear();
  EXPECT_EQ(u"AA", rules_.operands.ResolveOperand(u"f"));
  EXPECT_EQ(u"AABBB", rules_.operands.GetOperandValue(u"7", u"ReaderCmd"));
  EXPECT_EQ(u"f  <AA>", Item(u"f").LineText());
}

// Both lines show one setting, and one of them is edited.
class TwoLinesTest : public tests::RulesTest {
 protected:
  void SetUp() override {
    fake_.Put(u"1", u"old");
    Build(Property("first", "1", "Octet String") + Property("second", "1", "Octet String"));
  }

  void Edit(WideStringView line, WideStringView text) {
    values::ValueCommitter committer(model_.Descriptors(), boxes_, changes_, events_, edit_);
    committer.RecordChange(*Item(line).Descriptor(), values::PropertyValue::OfText(WideString(text)));
    int outcome = 0;
    rules_.applier.ApplyChanges(outcome);
  }
  WideString OfferedBy(WideStringView line) { return Item(line).Descriptor()->OfferedValue().AsText(); }
};

TEST_F(TwoLinesTest, ATakenValueShowsOnBoth) {
  for (const WideStringView line : {u"first", u"second"}) {
    Edit(line, line);
    EXPECT_EQ(u"first  <" + WideString(line) + u">", Item(u"first").LineText());
    EXPECT_EQ(u"second  <" + WideString(line) + u">", Item(u"second").LineText());
    EXPECT_FALSE(Item(u"first").Descriptor()->IsChanged());
  }
}

TEST_F(TwoLinesTest, ARefusedValueShowsOnNone) {
  fake_[u"1"].setResult = platform::kAccessDenied;
  for (const WideStringView line : {u"first", u"second"}) {
    Edit(line, line);
    EXPECT_EQ(u"first  <old>", Item(u"first").LineText());
    EXPECT_EQ(u"second  <old>", Item(u"second").LineText());
    EXPECT_EQ(u"old", Item(u"first").Descriptor()->GetValue().AsText());
    EXPECT_EQ(line, OfferedBy(line));
  }
}

TEST_F(TwoLinesTest, AValueThatIsReadAnewShowsOnBoth) {
  fake_.Put(u"1", u"new");
  rules_.wireless.RefreshEditedItem(Item(u"first"));
  EXPECT_EQ(u"first  <new>", Item(u"first").LineText());
  EXPECT_EQ(u"second  <new>", Item(u"second").LineText());
}

TEST_F(TwoLinesTest, ADroppedEditIsGoneFromTheEditedOne) {
  values::ValueCommitter committer(model_.Descriptors(), boxes_, changes_, events_, edit_);
  committer.RecordChange(*Item(u"first").Descriptor(), values::PropertyValue::OfText(u"waiting"));
  rules_.queue.Clear();
  EXPECT_EQ(u"old", Item(u"first").Descriptor()->GetValue().AsText());
  EXPECT_EQ(u"first  <old>", Item(u"first").LineText());
}

TEST_F(TwoLinesTest, OfVeryManyTheLatestFollow) {
  std::string lines;
  for (int number = 0; number < 20; ++number) lines += Property("line" + std::to_string(number), "1", "Octet String");
  Build(lines);
  Edit(u"line19", u"new");
  EXPECT_EQ(u"line4  <new>", Item(u"line4").LineText());
  EXPECT_EQ(u"line3  <old>", Item(u"line3").LineText());
}

TEST_F(TwoLinesTest, ThatShowOneFieldFollowItsCommand) {
  const std::string field = Tag("CmdOID", "7:1") + Tag("Type", "Octet String");
  fake_.Put(u"7", u"AABBB");
  Build(Property("cmd", "7", "ReaderCmd", Tag("CmdString", "2,2,3") + Tag("Ordinal", "1")) +
        Group("first", Tag("DisplayName", "first") + Tag("Ordinal", "2") + field) +
        Group("second", Tag("DisplayName", "second") + Tag("Ordinal", "3") + field));
  Edit(u"first", u"XX");
  EXPECT_EQ(u"second  <XX>", Item(u"second").LineText());
  fake_[u"7"].setResult = platform::kAccessDenied;
  Edit(u"first", u"YY");
  EXPECT_EQ(u"first  <XX>", Item(u"first").LineText());
  EXPECT_EQ(u"YY", OfferedBy(u"first"));
}

TEST_F(FieldEditTest, TwoEditsOfOneEventPulseItOnce) {
  Build(Property("a", "1", "Octet String", Tag("Event", "Changed")) +
        Property("b", "2", "Octet String", Tag("Event", "Changed")));
  values::ValueCommitter committer(model_.Descriptors(), boxes_, changes_, events_, edit_);
  for (const WideStringView item : {u"a", u"b"}) {
    committer.RecordChange(*Item(item).Descriptor(), values::PropertyValue::OfText(u"X"));
  }
  int outcome = 0;
  rules_.applier.ApplyChanges(outcome);
  const Journal journal = TakeJournal();
  EXPECT_EQ(1, std::count(journal.begin(), journal.end(), u"pulse Changed"));
}

class RestoreTest : public tests::RulesTest {
 protected:
  Journal Restore() {
    rules_.applier.RestoreAllDefaults();
    return TakeJournal();
  }
};

TEST_F(RestoreTest, SendsDefaultsThenExitRulesAndShowsThem) {
  fake_.Put(u"1", u"1");
  fake_.Put(u"2", u"192.168.0.1");
  fake_.Put(u"3", u"0");
  Build(Group("menu", Tag("DisplayName", "menu") + Tag("_OnExit", "IfChanges:3|Integer|5677765") +
                          Property("mode", "1", "Integer", Tag("DefVal", "2") + Tag("ChoiceFmt", "1#Off|2#On")) +
                          Property("address", "2", "IP Address", Tag("DefVal", "10.0.0.1"))) +
        Property("command", "3", "Integer") + Property("free", "4", "Integer"));
  EXPECT_EQ((Journal{u"set 1 Integer 2", u"set 2 IP Address 10.0.0.1", u"set 3 Integer 5677765",
                     u"box Apply: Changes applied successfully [65537]"}),
            Restore());
  EXPECT_EQ(u"mode  <On>", Item(u"menu\\mode").LineText());
  EXPECT_EQ(u"address  <10.0.0.1>", Item(u"menu\\address").LineText());
  EXPECT_EQ(u"command  <5677765>", Item(u"command").LineText());
}

TEST_F(RestoreTest, ARefusedDefaultKeepsWhatStoodBefore) {
  fake_.Put(u"1", u"1");
  fake_.Put(u"2", u"1");
  Build(Property("a", "1", "Integer", Tag("DefVal", "7") + Tag("_OnError", "Not a.")) +
        Property("b", "2", "Integer", Tag("DefVal", "8")));
  fake_[u"1"].setResult = platform::kAccessDenied;
  EXPECT_EQ((Journal{u"set 1 Integer 7 refused", u"box Error: Not a. [48]", u"set 2 Integer 8",
                     u"box Error: An error occurred restoring all factory defaults. [48]", u"focus"}),
            Restore());
  EXPECT_EQ(u"a  <1>", Item(u"a").LineText());
  EXPECT_EQ(u"1", Item(u"a").Descriptor()->GetValue().AsText());
  EXPECT_EQ(u"7", Item(u"a").Descriptor()->OfferedValue().AsText());
  EXPECT_EQ(u"b  <8>", Item(u"b").LineText());
}

// Takes one value of a setting and refuses the others.
class Choosy final : public platform::ISnmpConfig {
 public:
  explicit Choosy(WideString taken) : taken_(std::move(taken)) {}
  platform::ResultCode Set(const WideString&, const WideString&, const WideString& value) override {
    return value == taken_ ? platform::kOk : platform::kAccessDenied;
  }
  platform::ResultCode Get(const WideString&, const WideString&, std::optional<WideString>& value) override {
    value = u"1";
    return platform::kOk;
  }
  platform::ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return Set(oid, type, value);
  }
  platform::ResultCode GetSpecial(const WideString& oid, const WideString& type,
                                  std::optional<WideString>& value) override {
    return Get(oid, type, value);
  }

 private:
  WideString taken_;
};

// Two entries restore the same setting.
TEST(RestoreTwice, TheValueThatTheDeviceTookIsTheOneThatShows) {
  for (const WideString taken : {u"7", u"8"}) {
    struct Fixture : tests::RulesTest {
      explicit Fixture(const WideString& taken) {
        device_ = values::DeviceAccess([taken] { return std::make_unique<Choosy>(taken); });
      }
      void TestBody() override {}
      WideString Run() {
        Build(Property("a", "1", "Integer", Tag("DefVal", "7")) + Property("b", "1", "Integer", Tag("DefVal", "8")));
        rules_.applier.RestoreAllDefaults();
        return Item(u"b").LineText();
      }
    };
    EXPECT_EQ(u"b  <" + taken + u">", Fixture(taken).Run());
  }
}

TEST_F(RestoreTest, ATakenDefaultMakesAvailableWhatCouldNotBeRead) {
  fake_[u"1"].getResult = platform::kFailed;
  Build(Property("a", "1", "Integer", Tag("DefVal", "7")));
  EXPECT_EQ(u"a  <Unavailable>", Item(u"a").LineText());
  Restore();
  EXPECT_EQ(u"a  <7>", Item(u"a").LineText());
  EXPECT_EQ(u"Integer", Item(u"a").Descriptor()->EditorName());
  EXPECT_FALSE(Item(u"a").Descriptor()->IsReadOnly());
}

TEST_F(RestoreTest, WhatTheRulesHideIsNotRestored) {
  fake_.Put(u"1", u"1");
  fake_.Put(u"2", u"1");
  Build(Property("a", "1", "Integer", Tag("DefVal", "7") + Tag("Dependency", "2|Integer|1|NoDisplay")) +
        Property("b", "2", "Integer", Tag("DefVal", "8") + Tag("Dependency", "IF b EQ 1 THEN NoDisplay")));
  EXPECT_EQ((Journal{u"set 2 Integer 8", u"box Apply: Changes applied successfully [65537]"}), Restore());
  EXPECT_EQ(model::DisplayState::kNormal, Item(u"a").State());
}

TEST_F(RestoreTest, APseudoPropertyTakesItsDefaultWithoutACall) {
  Build(Property("a", "_Local", "Integer", Tag("DefVal", "7")));
  EXPECT_EQ((Journal{u"box Apply: Changes applied successfully [65537]"}), Restore());
  EXPECT_EQ(u"a  <7>", Item(u"a").LineText());
}

TEST_F(RestoreTest, ACommandsFieldsFollowItsDefault) {
  fake_.Put(u"7", u"AABBB");
  Build(Property(
            "cmd", "7", "ReaderCmd",
            Tag("CmdString", "2,2,3") + Tag("DefVal", "00111") + Tag("Ordinal", "1") + Tag("Dependency", "x|y|AAZZZ")) +
        Group("f", Tag("DisplayName", "f") + Tag("CmdOID", "7:1") + Tag("Ordinal", "2") + Tag("Type", "Octet String")) +
        Group("g", Tag("DisplayName", "g") + Tag("CmdOID", "7:2") + Tag("Ordinal", "3") + Tag("Type", "Integer")));
  EXPECT_EQ(u"g  <BBB>", Item(u"g").LineText());
  EXPECT_EQ((Journal{u"set 7 ReaderCmd AA111", u"box Apply: Changes applied successfully [65537]"}), Restore());
  EXPECT_EQ(u"f  <AA>", Item(u"f").LineText());
  EXPECT_EQ(u"g  <111>", Item(u"g").LineText());
}

TEST_F(RestoreTest, ACommandOfTheActiveProfileKeepsWhatThatHas) {
  fake_.Put(u"cfg|80211PM|ActiveProfile", u"Home");
  fake_.Put(u"cfg|Home|r", u"AABBB");
  Build(Property(
      "r", "cfg|*|r", "ReaderCmd",
      Tag("FillOID", "Profile") + Tag("CmdString", "2,2,3") + Tag("DefVal", "00111") + Tag("Dependency", "x|y|AAZZZ")));
  Restore();
  EXPECT_EQ(u"AA111", fake_.TextOf(u"cfg|Home|r"));
}

TEST_F(RestoreTest, AFieldBehindAGapFollowsItsCommandToo) {
  fake_.Put(u"7", u"AABBBCC");
  Build(
      Property("cmd", "7", "ReaderCmd", Tag("CmdString", "3,2,3,2") + Tag("DefVal", "0011122") + Tag("Ordinal", "1")) +
      Group("last",
            Tag("DisplayName", "last") + Tag("CmdOID", "7:3") + Tag("Ordinal", "2") + Tag("Type", "Octet String")));
  EXPECT_EQ(u"last  <CC>", Item(u"last").LineText());
  Restore();
  EXPECT_EQ(u"last  <22>", Item(u"last").LineText());
}

TEST_F(RestoreTest, AKeyIsJudgedByTheTypeThatItsDefaultIsSentAs) {
  fake_.Put(u"1", u"");
  Build(Property("a", "1", "Hex", Tag("DefVal", "abcde") + Tag("WEP", "Hidden")));
  Item(u"a").Descriptor()->ReplaceType(u"Hex32");
  EXPECT_EQ((Journal{u"set 1 Hex 6162636465", u"box Apply: Changes applied successfully [65537]"}), Restore());
}

TEST_F(RestoreTest, AWepKeyDefaultIsSentAsItsKindAsks) {
  fake_.Put(u"1", u"");
  Build(Property("a", "1", "Hex", Tag("DefVal", "abcde") + Tag("WEP", "Hidden")));
  const Journal journal = Restore();
  ASSERT_EQ(2U, journal.size());
  EXPECT_EQ(u"set 1 Hex 6162636465", journal[0]);
  EXPECT_EQ(u"a  <Hidden>", Item(u"a").LineText());
}

TEST_F(RestoreTest, WithoutADeviceNothingIsLost) {
  fake_.Put(u"1", u"1");
  Build(Property("a", "1", "Integer", Tag("DefVal", "7")));
  device_.Release();
  fake_.reachable = false;
  Restore();
  EXPECT_EQ(u"a  <1>", Item(u"a").LineText());
  EXPECT_EQ(u"1", fake_.TextOf(u"1"));
}

}  // namespace
