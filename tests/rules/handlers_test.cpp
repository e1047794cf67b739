#include "rules/handlers.h"

#include "rules/program_start.h"

#include "tests/rules/rules_fixture.h"

#include <fstream>

namespace {

using tests::Group;
using tests::Journal;
using tests::Property;
using tests::Tag;

constexpr const char* kNetworkSettings = "1.2.840.10036.1.1.1.8.2";

class HandlersTest : public tests::RulesTest {
 protected:
  // A menu "menu" with these tags and two properties "a" (OID 1) and "b" (OID 2).
  void BuildMenu(std::string_view tags) {
    fake_.Put(u"1", u"1");
    fake_.Put(u"2", u"2");
    fake_.Put(base::FromUtf8(kNetworkSettings), u"0");
    Build(Group("menu", Tag("DisplayName", "Menu") + std::string(tags) + Property("a", "1", "Integer") +
                            Property("b", "2", "Octet String")));
    shell_.menu = &Menu();
  }

  model::MenuItem& Menu() { return Item(u"menu"); }

  Journal Leave() {
    rules_.handlers.RunExitHandlers(Menu());
    return TakeJournal();
  }

  // A command item with these tags beside the property "a" (OID 1).
  void BuildCommand(std::string_view tags) {
    fake_.Put(u"1", u"1");
    fake_.Put(base::FromUtf8(kNetworkSettings), u"0");
    Build(Property("a", "1", "Integer", Tag("DefVal", "7")) +
          Group("c", Tag("DisplayName", "Command") + std::string(tags)));
  }

  bool Run() { return rules_.handlers.RunItemCommand(Item(u"c")); }

  void WriteProgram(const std::string& path) {
    std::filesystem::create_directories((root_ / path).parent_path());
    std::ofstream(root_ / path) << "#!/bin/sh\n";
    std::filesystem::permissions(root_ / path, std::filesystem::perms::owner_all);
  }
};

TEST_F(HandlersTest, EnteringKnowsOneCommandInAnyCase) {
  for (const char* command : {"VerifyNetUI", "verifynetui"}) {
    BuildMenu(Tag("_OnEnter", command));
    rules_.queue.Add(u"1", u"Integer", u"5");  // which the rules submit at their end
    rules_.handlers.RunEnterHandler(Menu());
    EXPECT_EQ((Journal{u"set 1 Integer 5"}), TakeJournal()) << command;
  }
  for (const char* command : {"", "CheckWEPKey", "VerifyNetUI2"}) {
    BuildMenu(Tag("_OnEnter", command));
    rules_.queue.Clear();
    rules_.queue.Add(u"1", u"Integer", u"5");
    rules_.handlers.RunEnterHandler(Menu());
    EXPECT_EQ(Journal(), TakeJournal()) << command;
  }
}

TEST_F(HandlersTest, LeavingRunsTheNumberedCommandsUpToTheFirstGap) {
  BuildMenu(Tag("_OnExit", "Rebind:1|Integer|5") + Tag("_OnExit1", "unknown") +
            Tag("_OnExit2", "Rebind:2|Octet String|x|y") + Tag("_OnExit4", "Rebind:1|Integer|6"));
  EXPECT_EQ((Journal{u"set 1 Integer 5", u"set 2 Octet String x|y"}), Leave());
  EXPECT_TRUE(changes_.empty());
}

TEST_F(HandlersTest, WithoutAFirstExitCommandNoneRuns) {
  BuildMenu(Tag("_OnExit", "") + Tag("_OnExit1", "Rebind:1|Integer|5"));
  EXPECT_EQ(Journal(), Leave());
}

TEST_F(HandlersTest, ChangesAreCarriedUpOneLevel) {
  BuildMenu(Tag("_OnExit", "FlagChanges"));
  Leave();
  EXPECT_FALSE(Menu().changed);
  Item(u"menu\\b").changed = true;
  Leave();
  EXPECT_TRUE(Menu().changed);
  EXPECT_TRUE(Item(u"menu\\b").changed);
}

TEST_F(HandlersTest, LeavingChecksTheNetworkKey) {
  BuildMenu(Tag("_OnExit", "CheckWEPKey"));
  EXPECT_EQ((Journal{u"box Alert: Valid network key must be entered [1]"}), Leave());
}

TEST_F(HandlersTest, RebindOfTheNetworkSettingsIsNoted) {
  BuildMenu(Tag("_OnExit", std::string("Rebind:") + kNetworkSettings + "|Integer|5677765"));
  EXPECT_EQ((Journal{u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765", u"note \nApplying Network Settings"}), Leave());
}

TEST_F(HandlersTest, RebindSendsAValueOfItsType) {
  BuildMenu(Tag("_OnExit", "Rebind:1|IP Address|10.0.0.1") + Tag("_OnExit1", "Rebind:2|Odd Type|text") +
            Tag("_OnExit2", "Rebind:2|incomplete"));
  EXPECT_EQ((Journal{u"set 1 IP Address 10.0.0.1", u"set 2 Odd Type text"}), Leave());
}

TEST_F(HandlersTest, IfChangesRunsOnlyWithAChangedItem) {
  const struct {
    std::string command;
    Journal journal;
  } cases[] = {
      {"IfChanges:1|Integer|5", {u"set 1 Integer 5"}},
      {std::string("IfChanges:") + kNetworkSettings + "|Integer|5677765",
       {u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765", u"note \nApplying Network Settings"}},
      {"IfChanges:ApplyNetworkSettings",
       {u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765", u"note \nApplying Network Settings"}},
      {"IfChanges:nonsense", {}},
  };
  for (const auto& c : cases) {
    BuildMenu(Tag("_OnExit", c.command));
    EXPECT_EQ(Journal(), Leave()) << c.command;
    Item(u"menu\\a").changed = true;
    EXPECT_EQ(c.journal, Leave()) << c.command;
  }
}

TEST_F(HandlersTest, APropertyHasWhatIfChangesStored) {
  BuildMenu(Tag("_OnExit", "IfChanges:1|Integer|5"));
  Item(u"menu\\a").changed = true;
  Leave();
  EXPECT_EQ(u"5", model_.FindDescriptor(u"1")->GetValue().AsText());
  fake_[u"1"].setResult = platform::kFailed;
  fake_.Put(u"1", u"5");
  BuildMenu(Tag("_OnExit", "IfChanges:1|Integer|6"));
  const WideString before = model_.FindDescriptor(u"1")->GetValue().AsText();
  Item(u"menu\\a").changed = true;
  Leave();
  EXPECT_EQ(before, model_.FindDescriptor(u"1")->GetValue().AsText());
}

TEST_F(HandlersTest, APropertyHasWhatRebindStored) {
  BuildMenu(Tag("_OnExit", "Rebind:1|Integer|5"));
  Leave();
  EXPECT_EQ(u"5", model_.FindDescriptor(u"1")->GetValue().AsText());
}

TEST_F(HandlersTest, VerifyNetUIRunsWhenAMenuIsLeft) {
  fake_.Put(u"1.2.840.10036.1.2.1.2.2", u"6");
  Build(Group("menu", Tag("DisplayName", "menu") + Tag("_OnExit", "VerifyNetUI") +
                          Property("auth", "1.2.840.10036.1.2.1.2.2", "Integer")));
  rules_.handlers.RunExitHandlers(Item(u"menu"));
  EXPECT_EQ(
      (Journal{u"set 1.2.840.10036.1.2.1.2.2 Integer 1", u"box Alert: Network Authentication changed to Open [1]"}),
      TakeJournal());
}

TEST_F(HandlersTest, ASummaryHasTheValueOfAPropertyThatIsAMenuToo) {
  fake_.Put(u"1", u"1");
  fake_.Put(u"7", u"AA");
  Build(Property("mode", "1", "Integer", Tag("ChoiceFmt", "1#One") + Group("below", Tag("DisplayName", "Below"))) +
        Property("command", "7", "ReaderCmd", Tag("CmdString", "1,2") + Group("f", Tag("DisplayName", "F"))) +
        Group("c", Tag("DisplayName", "c") + Tag("Function", "Summary")));
  rules_.handlers.RunItemCommand(Item(u"c"));
  EXPECT_EQ((Journal{u"page /  / mode: One / command"}), TakeJournal());
}

TEST_F(HandlersTest, TakingTheNetworkSettingsOverClearsTheMarks) {
  BuildMenu(Tag("_OnExit", "IfChanges:ApplyNetworkSettings"));
  Item(u"menu\\a").changed = true;
  Leave();
  EXPECT_FALSE(Item(u"menu\\a").changed);
}

TEST_F(HandlersTest, ARefusedIfChangesUsesTheMenusOwnWords) {
  BuildMenu(Tag("_OnExit", "IfChanges:1|Integer|5") + Tag("_OnError", "Refused."));
  fake_[u"1"].setResult = platform::kFailed;
  Item(u"menu\\a").changed = true;
  EXPECT_EQ((Journal{u"set 1 Integer 5 refused", u"box Error: Refused. [48]"}), Leave());
}

TEST_F(HandlersTest, AnItemWithNeitherFunctionNorProgramIsNoCommand) {
  BuildCommand("");
  EXPECT_FALSE(Run());
  model::MenuItem stray(nullptr, u"R\\nowhere", u"", u"");
  EXPECT_FALSE(rules_.handlers.RunItemCommand(stray));
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(HandlersTest, AnUnknownFunctionIsACommandThatDoesNothing) {
  for (const char* function : {"Unknown", "restoredefaults", "summary"}) {
    BuildCommand(Tag("Function", function));
    EXPECT_TRUE(Run());
    EXPECT_EQ(Journal(), TakeJournal());
  }
}

TEST_F(HandlersTest, DefaultsAreRestoredOnlyOnYes) {
  const WideString question =
      u"box Alert: Restoring Factory Defaults will replace all the current settings.\nRestore now? [2]";
  for (const int answer : {7, -1, 0}) {
    BuildCommand(Tag("Function", "RestoreDefaults"));
    rules_.queue.Clear();
    rules_.queue.Add(u"1", u"Integer", u"5");
    boxes_.answers = {answer};
    EXPECT_TRUE(Run());
    EXPECT_EQ((Journal{question}), TakeJournal());
    EXPECT_EQ(1U, changes_.size());
  }
  boxes_.answers = {6};
  EXPECT_TRUE(Run());
  EXPECT_EQ((Journal{question, u"set 1 Integer 7", u"box Apply: Changes applied successfully [65537]"}), TakeJournal());
}

TEST_F(HandlersTest, TheOtherFunctionsRunTheirCommands) {
  const struct {
    const char* function;
    Journal journal;
  } cases[] = {
      {"Summary", {u"page /  / a: 1"}},
      {"ApplyNetworkSettings", {u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765", u"note \nApplying Network Settings"}},
      {"WEP_Properties", {u"set 1.2.840.10036.1.1.1.8.2 Integer 5677766"}},
      {"StoreConfig", {u"note \n\nSaved"}},
  };
  for (const auto& c : cases) {
    BuildCommand(Tag("Function", c.function));
    EXPECT_TRUE(Run());
    EXPECT_EQ(c.journal, TakeJournal()) << c.function;
  }
  BuildCommand(Tag("Function", "ImportCertificates") + Tag("OID", "50") + Tag("Type", "Octet String"));
  fake_.Put(u"50", u"");
  EXPECT_TRUE(Run());
  EXPECT_EQ((Journal{u"set 50 Octet String True", u"system Success: Certificates were successfully imported."}),
            TakeJournal());
}

TEST_F(HandlersTest, AStoreThatCannotBeOpenedShowsNothing) {
  BuildCommand(Tag("Function", "StoreConfig"));
  std::filesystem::create_directories(root_ / "CfgSettings.txt");
  EXPECT_TRUE(Run());
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(HandlersTest, AProgramIsStartedWithItsArguments) {
  BuildCommand(Tag("AppName", "\\Tools\\a.exe one two"));
  WriteProgram("Tools/a.exe");
  EXPECT_TRUE(Run());
  EXPECT_EQ((Journal{u"start \\Tools\\a.exe | one two"}), TakeJournal());
  EXPECT_TRUE(observer_.debugLines.empty());
}

TEST_F(HandlersTest, AProgramThatCannotBeStartedIsReported) {
  BuildCommand(Tag("AppName", "missing.exe one"));
  EXPECT_TRUE(Run());
  EXPECT_EQ((Journal{u"start missing.exe | one", u"box Error: Unable to execute command missing.exe one [1]"}),
            TakeJournal());
  EXPECT_EQ((std::vector<WideString>{u"CKelConfigApp::Assigned CreateProccess err 0x2\r\n"}), observer_.debugLines);
}

TEST_F(HandlersTest, AFunctionAndAProgramRunBothInThisOrder) {
  BuildCommand(Tag("Function", "WEP_Properties") + Tag("AppName", "\\a.exe"));
  WriteProgram("a.exe");
  EXPECT_TRUE(Run());
  EXPECT_EQ((Journal{u"set 1.2.840.10036.1.1.1.8.2 Integer 5677766", u"start \\a.exe | "}), TakeJournal());
}

TEST_F(HandlersTest, TheFlashWriterClearsTheFlagEvenWhenItCannotBeStarted) {
  BuildCommand(Tag("AppName", "KelWrite2Flash.exe /v"));
  flashWrite_ = true;
  Run();
  EXPECT_FALSE(flashWrite_);
  EXPECT_EQ(
      (Journal{u"start KelWrite2Flash.exe | /v", u"box Error: Unable to execute command KelWrite2Flash.exe /v [1]"}),
      TakeJournal());
  WriteProgram("Windows/KelWrite2Flash.exe");
  flashWrite_ = true;
  Run();
  EXPECT_FALSE(flashWrite_);
}

TEST_F(HandlersTest, AnyOtherProgramLeavesTheFlagAlone) {
  for (const char* program : {"kelwrite2flash.exe", "\\Windows\\KelWrite2Flash.exe", "\"KelWrite2Flash.exe\""}) {
    BuildCommand(Tag("AppName", program));
    flashWrite_ = true;
    Run();
    EXPECT_TRUE(flashWrite_) << program;
  }
}

TEST_F(HandlersTest, TheFlashWriterRunsVerbosely) {
  rules::StartFlashWriter(boxes_);
  EXPECT_EQ((Journal{u"start KelWrite2Flash.exe | /v", u"box Error: Unable to execute command KelWrite2Flash.exe [1]"}),
            TakeJournal());
}

class PostEditTest : public tests::RulesTest {
 protected:
  void SetUp() override {
    fake_.Put(u"1", u"1");
    Build(Property("a", "1", "Integer"));
  }
  Journal Run(WideStringView command) {
    EXPECT_EQ(1, rules_.postEdit.RunPostEditAction(command, Item(u"a")));
    return TakeJournal();
  }
};

TEST_F(PostEditTest, FlagChangesMarksTheItem) {
  EXPECT_EQ(Journal(), Run(u"FlagChanges"));
  EXPECT_TRUE(Item(u"a").changed);
}

TEST_F(PostEditTest, TheCommandsRunByTheirExactNames) {
  rules_.queue.Add(u"1", u"Integer", u"5");
  EXPECT_EQ((Journal{u"set 1 Integer 5"}), Run(u"VerifyNetUI"));
  EXPECT_EQ((Journal{u"box Alert: You must enter a valid WEP key or this setting will remain automatic [48]"}),
            Run(u"SetKeyIndex"));
  fake_.Put(u"1", u"9");
  EXPECT_EQ(Journal(), Run(u"Refresh"));
  EXPECT_EQ(u"a  <9>", Item(u"a").LineText());
  for (const WideStringView other : {u"", u"flagchanges", u"CheckWEPKey", u"Rebind:1|Integer|2"}) {
    EXPECT_EQ(Journal(), Run(other));
  }
  EXPECT_FALSE(Item(u"a").changed);
}

TEST_F(PostEditTest, TheWarmBootIsAskedForEachTime) {
  const WideString question =
      u"box Alert: You must warm-boot the device for this change to take effect\r\nDo you wish to warm-boot now? [2]";
  boxes_.answers = {7, -1, 6};
  EXPECT_EQ((Journal{question}), Run(u"PromptWarmBoot"));
  EXPECT_EQ((Journal{question}), Run(u"PromptWarmBoot"));
  EXPECT_EQ((Journal{question, u"warm reset"}), Run(u"PromptWarmBoot"));
  EXPECT_EQ(u"a  <1>", Item(u"a").LineText());
}

}  // namespace
