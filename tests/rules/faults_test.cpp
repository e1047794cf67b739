// Every call to the device fails once in turn, in every flow of rules and commands: what was there stays, the user is
// told, and the flow comes to its end.
#include "tests/rules/rules_fixture.h"

#include <functional>

namespace {

using tests::Group;
using tests::Property;
using tests::Tag;

struct Flow {
  const char* name;
  std::function<void(rules::Rules&, model::MenuItem& item)> run;
};

// The terminal's settings, all of them writable.
const std::vector<std::pair<const char16_t*, const char16_t*>> kSettings = {
    {u"1.2.840.10036.1.1.1.10.2", u"2"},
    {u"1.2.840.10036.1.2.1.2.2", u"5"},
    {u"1.2.840.10036.1.5.1.1.2", u"4"},
    {u"1.2.840.10036.1.5.1.2.2", u"0"},
    {u"1.2.840.10036.1.3.1.2.2", u""},
    {u"1.2.840.10036.4242.1.2", u"13"},
    {u"1.2.840.10036.1.1.1.8.2", u"0"},
    {u"cfg|80211PM|ZeroConfig", u"Off"},
    {u"cfg|80211PM|ActiveProfile", u"Home"},
    {u"cfg|80211PM|ConfigureProfile", u""},
    {u"cfg|Home|SSID", u"net"},
    {u"7", u"AABBB"},
    {u"8", u"1"},
    {u"9", u"on"},
};

const Flow kFlows[] = {
    {"evaluate", [](auto& rules, auto& item) { rules.dependencies.EvaluateDependencies(item); }},
    {"refresh action", [](auto& rules, auto& item) { rules.dependencies.ExecuteRuleAction(&item, u"Refresh"); }},
    {"narrow choices",
     [](auto& rules, auto& item) { rules.dependencies.ExecuteRuleAction(&item, u"ChoiceFmt=2#B|3#C:3"); }},
    {"enter", [](auto& rules, auto& item) { rules.handlers.RunEnterHandler(item); }},
    {"leave", [](auto& rules, auto& item) { rules.handlers.RunExitHandlers(item); }},
    {"wireless coupling", [](auto& rules, auto&) { rules.wireless.VerifyNetUI(); }},
    {"key check", [](auto& rules, auto&) { rules.wireless.CheckWEPKey(); }},
    {"key index", [](auto& rules, auto&) { rules.wireless.SetKeyIndex(); }},
    {"refresh a property", [](auto& rules, auto& item) { rules.wireless.RefreshEditedItem(item); }},
    {"apply network settings", [](auto& rules, auto& item) { rules.wireless.ApplyNetworkSettings(&item); }},
    {"import certificates", [](auto& rules, auto& item) { rules.wireless.ImportCertificates(item); }},
    {"wep properties", [](auto& rules, auto& item) { rules.wireless.WEP_Properties(item); }},
    {"apply",
     [](auto& rules, auto&) {
       int outcome = 0;
       rules.queue.Add(u"8", u"Integer", u"2");
       rules.queue.Add(u"cfg|*|SSID", u"Octet String", u"other");
       rules.applier.ApplyChanges(outcome);
     }},
    {"restore", [](auto& rules, auto&) { rules.applier.RestoreAllDefaults(); }},
    {"store", [](auto& rules, auto& item) { rules.handlers.RunItemCommand(item); }},
    {"single value", [](auto& rules, auto& item) { rules.singleValues.SetSingleValue(u"8", u"Integer", u"2", &item); }},
    {"after an edit", [](auto& rules, auto& item) { rules.postEdit.RunPostEditAction(u"VerifyNetUI", item); }},
    {"key index after an edit",
     [](auto& rules, auto& item) { rules.postEdit.RunPostEditAction(u"SetKeyIndex", item); }},
    {"refresh after an edit", [](auto& rules, auto& item) { rules.postEdit.RunPostEditAction(u"Refresh", item); }},
    {"leave the program",
     [](auto& rules, auto&) {
       rules.queue.Add(u"8", u"Integer", u"2");
       rules.applier.ConfirmLeaving();
     }},
};

class FaultsTest : public tests::RulesTest {
 protected:
  void Prepare() {
    for (const auto& [oid, value] : kSettings) fake_.Put(oid, value);
    calls_.failing = 0;
    Build(Group("menu", Tag("DisplayName", "Menu") + Tag("_OnEnter", "VerifyNetUI") +
                            Tag("_OnExit", "Rebind:8|Integer|3") + Tag("_OnExit1", "CheckWEPKey") +
                            Tag("_OnExit2", "IfChanges:ApplyNetworkSettings") + Tag("OID", "8") +
                            Tag("Type", "Integer") + Tag("DefVal", "4") + Tag("ChoiceFmt", "1#A|2#B|3#C") +
                            Tag("Dependency", "9|Octet String|on|Refresh") + Tag("Function", "StoreConfig") +
                            Property("type", "1.2.840.10036.1.1.1.10.2", "Integer", Tag("DefVal", "1")) +
                            Property("auth", "1.2.840.10036.1.2.1.2.2", "Integer", Tag("DefVal", "1"))) +
          Property("enc", "1.2.840.10036.1.5.1.1.2", "Integer") +
          Property("index", "1.2.840.10036.1.5.1.2.2", "Integer") +
          Property("value", "1.2.840.10036.1.3.1.2.2", "Hex") +
          Property("method", "1.2.840.10036.4242.1.2", "Integer") +
          Property("ssid", "cfg|*|SSID", "Octet String", Tag("FillOID", "Profile") + Tag("DefVal", "any")) +
          Property("command", "7", "ReaderCmd",
                   Tag("CmdString", "2,2,3") + Tag("DefVal", "00111") + Tag("Dependency", "x|y|AAZZZ")));
    Item(u"menu\\auth").changed = true;
    shell_.menu = &Item(u"menu");
    boxes_.answers = {101};
    changes_.clear();
    calls_.count = 0;
  }

  // The boxes and refused calls that a run leaves in the journal.
  struct Seen {
    int boxes = 0;
    int refused = 0;
  };
  Seen See() {
    Seen seen;
    for (const WideString& line : TakeJournal()) {
      if (line.starts_with(u"box Error: ")) ++seen.boxes;
      if (line.ends_with(u" refused")) ++seen.refused;
    }
    return seen;
  }

  // Whether the device holds anything that no step of the flow could have put there.
  bool DeviceIsSound() const {
    for (const auto& [oid, value] : kSettings) {
      if (fake_.TextOf(oid).size() > 16) return false;
    }
    return fake_.TextOf(u"7").size() == 5;
  }
};

TEST_F(FaultsTest, EveryFlowSurvivesEachFailingCall) {
  int runs = 0;
  for (const Flow& flow : kFlows) {
    Prepare();
    flow.run(rules_, Item(u"menu"));
    const int calls = calls_.count;
    EXPECT_EQ(0, See().refused) << flow.name;
    for (int failing = 1; failing <= calls; ++failing) {
      Prepare();
      calls_.failing = failing;
      flow.run(rules_, Item(u"menu"));
      ++runs;
      const Seen seen = See();
      // Whoever refuses a value is shown as an error; a read that fails is none.
      EXPECT_EQ(seen.refused > 0, seen.boxes > 0) << flow.name << ", call " << failing;
      EXPECT_GE(1, seen.refused) << flow.name << ", call " << failing;
      EXPECT_TRUE(DeviceIsSound()) << flow.name << ", call " << failing;
      EXPECT_TRUE(changes_.empty()) << flow.name << ", call " << failing;
    }
  }
  EXPECT_GE(runs, 50);
}

TEST_F(FaultsTest, EveryFlowSurvivesWithoutADevice) {
  for (const Flow& flow : kFlows) {
    Prepare();
    device_.Release();
    fake_.reachable = false;
    flow.run(rules_, Item(u"menu"));
    fake_.reachable = true;
    for (const auto& [oid, value] : kSettings) EXPECT_EQ(value, fake_.TextOf(oid)) << flow.name;
    TakeJournal();
  }
}

TEST_F(FaultsTest, EveryFlowSurvivesAConfigurationThatIsGone) {
  for (const Flow& flow : kFlows) {
    Prepare();
    model::MenuItem stray(nullptr, u"R\\gone", u"", u"");
    flow.run(rules_, stray);
    TakeJournal();
  }
}

}  // namespace
