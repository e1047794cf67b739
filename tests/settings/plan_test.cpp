#include "settings/export.h"
#include "settings/stored_settings.h"
#include "tests/settings/plan_of.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>
#include <sstream>

namespace {

using tests::Entry;
using tests::PlanOf;
using tests::RefusalsOf;
using tests::SetsOf;

TEST(Plan, WhatLocksAnotherSettingIsSetAfterIt) {
  // With DHCP on, the address is locked.
  const auto plan = PlanOf(tests::kDemonstration,
                           "Network:\n  Addresses:\n    DHCP: TRUE\n    IP Address: 10.0.0.5\n    DNS: 10.0.0.2\n");
  EXPECT_EQ("IP Address=10.0.0.5 DNS=10.0.0.2 DHCP=1 !1.3.6.1.4.1.4242.10.1.20.0=1", SetsOf(plan));
  EXPECT_EQ("", RefusalsOf(plan));
  EXPECT_TRUE(plan.needsRestart);
  EXPECT_EQ(std::vector<WideString>{u"ValtorixNetworkChanged"}, plan.events);
}

TEST(Plan, WhatUnlocksAnotherSettingIsSetBeforeIt) {
  tests::StorageFolder folder;
  folder.WriteMenu(Entry("Address", "1.2", "IP Address", "<Dependency>IF Auto EQ 1 THEN NoEdit</Dependency>") +
                   Entry("Auto", "1.1", "Bool"));
  folder.Write("device.txt", "1.1\tBool\t1\n1.2\tIP Address\t1.1.1.1\n");
  EXPECT_EQ("Auto=0 Address=2.2.2.2", SetsOf(PlanOf(folder.Path(), "Address: 2.2.2.2\nAuto: FALSE\n")));
}

TEST(Plan, WhatNoOrderAllowsIsRefusedWithTheRuleAndTheValues) {
  const auto plan = PlanOf(tests::kDemonstration, "Wireless:\n  Radio:\n    Channel: 7\n");
  ASSERT_EQ(1u, plan.refusals.size());
  EXPECT_EQ("it is hidden by Dependency: 1.2.840.10036.1.1.1.10.2|Integer|2|Display", plan.refusals[0].why);
  EXPECT_EQ(std::vector<std::string>{"1.2.840.10036.1.1.1.10.2 (Mode) EQ \"2\": no, it is \"1\" (Infrastructure)"},
            plan.refusals[0].because);
  EXPECT_TRUE(plan.sets.empty());
}

TEST(Plan, HiddenEntriesAreLetThroughWhereThatIsAskedForButLockedOnesNever) {
  settings::PlanOptions hidden;
  hidden.hidden = true;
  const auto shown = PlanOf(tests::kDemonstration, "Wireless:\n  Radio:\n    Channel: 7\n", hidden);
  EXPECT_EQ("Channel=7 !1.2.840.10036.1.1.1.8.2=5677765", SetsOf(shown));
  tests::StorageFolder folder;
  folder.WriteMenu(Entry("A", "1.1", "Integer", "<Dependency>this|Integer|1|NoEdit</Dependency>") +
                   Entry("B", "1.2", "Integer", "<Security>1</Security>"));
  folder.Write("device.txt", "1.1\tInteger\t1\n1.2\tInteger\t1\n");
  EXPECT_EQ(
      "A: it is locked by Dependency: this|Integer|1|NoEdit\n"
      "B: it is read only\n",
      RefusalsOf(PlanOf(folder.Path(), "A: 2\nB: 2\n", hidden)));
}

TEST(Plan, NothingIsDoneForWhatIsAsWanted) {
  // Opening the page of wireless settings would store a key index, and leaving the adapter's would bind it anew.
  const auto plan =
      PlanOf(tests::kDemonstration, "Network:\n  Adapter:\n    Speed: Automatic\nWireless:\n  Mode: Infrastructure\n");
  EXPECT_EQ("", SetsOf(plan));
  EXPECT_EQ("", RefusalsOf(plan));
  EXPECT_TRUE(plan.events.empty());
}

TEST(Plan, WhatARefusedSettingsMenuWouldStoreIsNotStored) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"M\"><DisplayName>M</DisplayName>" +
      Entry("Narrow", "1.1", "Integer",
            "<ChoiceFmt>1#One|2#Two</ChoiceFmt><Dependency>IF Narrow NEQ x THEN ChoiceFmt=\"2#Two:2\"</Dependency>") +
      Entry("Plain", "1.2", "Integer", "<Range>1-5</Range>") + "</GROUP>");
  folder.Write("device.txt", "1.1\tInteger\t1\n1.2\tInteger\t1\n");
  EXPECT_EQ("", SetsOf(PlanOf(folder.Path(), "M:\n  Plain: 6\n")));
  EXPECT_EQ("+1.1=2 Plain=4", SetsOf(PlanOf(folder.Path(), "M:\n  Plain: 4\n")).replace(1, 6, "1.1"));
}

TEST(Plan, WhatFollowsFromWirelessSettingsIsInIt) {
  const auto secrets = [](WideStringView) { return std::optional<WideString>(u"forklifts only"); };
  const auto plan = PlanOf(tests::kDemonstration,
                           "Wireless:\n  Key Value: !secret K\n  Authentication: WPA-PSK\n  Encryption: TKIP\n"
                           "  802.1X: PEAP\n",
                           {}, secrets);
  EXPECT_EQ(
      "Authentication=5 +Key Index=0 +802.1X=13 Encryption=4 802.1X=25 Key Value=666f726b6c69667473206f6e6c79 "
      "!1.2.840.10036.1.1.1.8.2=5677765",
      SetsOf(plan));
  EXPECT_EQ("", RefusalsOf(plan));
  EXPECT_EQ(std::vector<std::string>{"802.1X authentication has been enabled"}, plan.remarks);
  for (const auto& set : plan.sets) EXPECT_EQ(set.name == "Wireless/Key Value", set.isSecret) << set.name;
}

TEST(Plan, AWishThatAnotherOneUndoesIsRefused) {
  // WPA-PSK wants 802.1X.
  const auto plan = PlanOf(tests::kDemonstration, "Wireless:\n  Authentication: WPA-PSK\n  802.1X: Disabled\n");
  EXPECT_EQ("Wireless/802.1X: it is none of the choices now, which are TLS, PEAP\n", RefusalsOf(plan));
  ASSERT_EQ(1u, plan.refusals.size());
  EXPECT_NE(std::string::npos, plan.refusals[0].because.at(0).find("authentication 5")) << plan.refusals[0].because[0];
}

TEST(Plan, TwoFieldsOfOneCommandAreOneSet) {
  const auto plan =
      PlanOf(tests::kDemonstration,
             "Scanner:\n  Symbologies:\n    Code 39: Off\n    MSI: On\n  Label Lengths:\n    Code 39 Min: 5\n");
  ASSERT_EQ(2u, plan.sets.size());
  EXPECT_EQ(u"01110100010011", plan.sets[0].value);
  EXPECT_EQ((std::vector<std::size_t>{0, 1}), plan.sets[0].causes);
  EXPECT_EQ(u"05200148", plan.sets[1].value);
}

TEST(Plan, ValuesAreWhatAPersonCouldEnter) {
  const struct {
    const char* text;
    const char* sets;
    const char* refusals;
  } cases[] = {
      {"Network:\n  Name: A name of 16 chr\n", "",
       "Network/Name: it is 16 characters long, and no more than 15 can be entered\n"},
      {"Network:\n  Host Session:\n    Host Port: -5\n", "",
       "Network/Host Session/Host Port: only digits can be entered\n"},
      {"Network:\n  Host Session:\n    Keep Alive: 5\n", "",
       "Network/Host Session/Keep Alive: Value 5 is out of range {0,10-600}\n"},
      {"Network:\n  Host Session:\n    Keep Alive: !default\n    Host Name: !default\n", "", ""},
      {"Network:\n  Addresses:\n    DNS: 1.2.3.400\n", "",
       "Network/Addresses/DNS: an address is four numbers from 0 to 255, with dots between them\n"},
      {"Network:\n  Adapter:\n    Speed: 1000\n", "",
       "Network/Adapter/Speed: it is none of the choices now, which are Automatic, 10 half, 10 full, 100 half, 100 "
       "full\n"},
      {"Network:\n  Adapter:\n    Speed: !raw 4\n", "Speed=4 !1.3.6.1.4.1.4242.10.1.21.0=1", ""},
      {"Network:\n  Adapter:\n    MAC: x\n", "", "Network/Adapter/MAC: it is read only\n"},
      {"Wireless:\n  Radio:\n    Roam Level: \"12\"\n", "Roam Level=12 !1.2.840.10036.1.1.1.8.2=5677765", ""},
  };
  for (const auto& c : cases) {
    const auto plan = PlanOf(tests::kDemonstration, c.text);
    EXPECT_EQ(c.sets, SetsOf(plan)) << c.text;
    EXPECT_EQ(c.refusals, RefusalsOf(plan)) << c.text;
  }
}

std::string StoredRecord(const std::string& path, const std::string& oid, const std::string& value) {
  std::string bytes;
  for (const char16_t unit :
       base::FromUtf8("<Tag>" + path + "<\\Tag>\n<Tag>" + oid + "<\\Tag><Tag>" + value + "<\\Tag>")) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
  }
  return bytes;
}

TEST(StoredSettings, WhatAPersonCouldSetIsWantedAndNothingElse) {
  const std::string bytes = StoredRecord("R\\A", "1.3.6.1.4.1.4242.10.1.3.0", "167772165") +  // 10.0.0.5
                            StoredRecord("R\\B", "1.3.6.1.4.1.4242.10.1.9.0", "read only") +
                            StoredRecord("R\\C", "1.3.6.1.4.1.4242.10.1.10.0", "4") +
                            StoredRecord("R\\D", "1.2.840.10036.1.3.1.2.2", "a key in clear") +
                            StoredRecord("R\\E", "_Network Key Setting", "1");
  ASSERT_TRUE(settings::AreStoredSettings(bytes));
  EXPECT_FALSE(settings::AreStoredSettings("Network:\n"));
  const auto loaded = authoring::Configuration::Load(tests::kDemonstration);
  authoring::Trial trial(*loaded.configuration);
  const auto wanted = Resolve(settings::ReadStoredSettings("f", bytes), trial, {});
  EXPECT_TRUE(wanted.problems.empty());
  ASSERT_EQ(2u, wanted.settings.size());
  EXPECT_EQ("Network/Addresses/IP Address", wanted.settings[0].name);
  EXPECT_EQ("f:3", settings::ToText(wanted.settings[1].at));
}

TEST(StoredSettings, AddressesAreNumbersThere) {
  tests::StorageFolder folder;
  folder.WriteMenu(Entry("A", "1.1", "IP Address")).Write("device.txt", "1.1\tIP Address\t1.2.3.4\n");
  const auto configuration = folder.Load();
  std::vector<settings::WantedSetting> wanted;
  {
    authoring::Trial trial(*configuration);
    wanted = Resolve(settings::ReadStoredSettings("f", StoredRecord("R\\A", "1.1", "167772165")), trial, {}).settings;
  }
  EXPECT_EQ("A=10.0.0.5", SetsOf(MakePlan(*configuration, wanted)));
}

TEST(StoredSettings, WhatIsNotWholeIsASlip) {
  const std::string bytes = StoredRecord("R\\A", "1.1", "5");
  for (std::size_t length = 10; length < bytes.size(); ++length) {
    const auto read = settings::ReadStoredSettings("f", std::string_view(bytes).substr(0, length));
    ASSERT_EQ(1u, read.problems.size()) << length;
    EXPECT_EQ("f:1", settings::ToText(read.problems[0].at));
  }
}

// --- whatever the values are ---

std::string RandomText(std::mt19937& random) {
  static const std::vector<std::string> kPieces = {"a",   " ", "\"",      "\\\\", "#",       ": ",      "\\t",
                                                   "\\n", "ä", "\\u20AC", "null", "!raw",    "-",       "7",
                                                   "0",   "~", "{",       "&",    "\\u0085", "\\uFEFF", "'"};
  std::string text;
  for (std::size_t i = random() % 6; i > 0; --i) text += kPieces[random() % kPieces.size()];
  return text;
}

TEST(Export, IsReadBackAsTheSameWhateverTheValuesAre) {
  const char* const files = std::getenv("KEL_SETTINGS_FILES");  // 100000 take minutes
  const int rounds = files != nullptr ? std::atoi(files) : KEL_SANITIZED ? 20 : 100;
  constexpr int kEntries = 12;
  std::mt19937 random(7);
  tests::StorageFolder folder;
  std::string menu;
  const char* const types[] = {"Octet String", "Integer", "Bool", "IP Address"};
  for (int i = 0; i < kEntries; ++i) {
    const std::string choices = i % 3 == 0 ? "<ChoiceFmt>1#One|2#Two|a#One|7#</ChoiceFmt>" : "";
    menu += Entry(i % 5 == 0 ? "x: '" + std::to_string(i) : "E" + std::to_string(i), "1." + std::to_string(i),
                  types[i % 4], choices);
  }
  folder.WriteMenu("<GROUP name=\"M\"><DisplayName># M</DisplayName>" + menu + "</GROUP>");
  for (int round = 0; round < rounds; ++round) {
    std::string device;
    for (int i = 0; i < kEntries; ++i) device += "1." + std::to_string(i) + "\tx\t" + RandomText(random) + "\n";
    folder.Write("device.txt", device);
    const auto configuration = folder.Load();
    std::ostringstream text;
    {
      authoring::Trial trial(*configuration);
      settings::WriteSettings(trial, text);
    }
    const auto wanted = tests::WantedOf(*configuration, text.str());
    EXPECT_EQ(static_cast<std::size_t>(kEntries), wanted.size()) << device << text.str();
    const auto plan = MakePlan(*configuration, wanted);
    EXPECT_TRUE(plan.sets.empty() && plan.refusals.empty()) << device << text.str() << RefusalsOf(plan);
  }
}

// --- against all orders ---

constexpr std::size_t kSettings = 4;

struct Lock {
  std::size_t by = 0;
  int value = 0;
  std::size_t locks = 0;
};

struct Puzzle {
  std::vector<Lock> locks;
  std::array<int, kSettings> before{};
  std::array<int, kSettings> wanted{};

  bool MaySet(std::size_t setting, const std::array<int, kSettings>& now) const {
    return std::none_of(locks.begin(), locks.end(),
                        [&](const Lock& l) { return l.locks == setting && now[l.by] == l.value; });
  }
  bool SomeOrderWorks() const {
    std::array<std::size_t, kSettings> order = {0, 1, 2, 3};
    do {
      auto now = before;
      const bool works = std::all_of(order.begin(), order.end(), [&](std::size_t i) {
        if (now[i] == wanted[i]) return true;
        if (!MaySet(i, now)) return false;
        now[i] = wanted[i];
        return true;
      });
      if (works) return true;
    } while (std::next_permutation(order.begin(), order.end()));
    return false;
  }
};

std::string NameOf(std::size_t i) { return std::string(1, static_cast<char>('A' + i)); }

Puzzle MakePuzzle(std::mt19937& random) {
  Puzzle puzzle;
  for (std::size_t i = 0; i < kSettings; ++i) {
    puzzle.before[i] = static_cast<int>(random() % 2);
    puzzle.wanted[i] = static_cast<int>(random() % 4 == 0 ? puzzle.before[i] : 1 - puzzle.before[i]);
  }
  for (std::size_t i = random() % 6; i > 0; --i) {
    puzzle.locks.push_back({random() % kSettings, static_cast<int>(random() % 2), random() % kSettings});
  }
  return puzzle;
}

TEST(Plan, AnOrderIsFoundWhereverThereIsOne) {
  std::mt19937 random(12);
  int solvable = 0;
  int unsolvable = 0;
  const char* const manyRounds = std::getenv("KEL_PLAN_PUZZLES");  // 100000 take some minutes
  const int rounds = manyRounds != nullptr ? std::atoi(manyRounds) : KEL_SANITIZED ? 30 : 150;
  for (int round = 0; round < rounds; ++round) {
    const Puzzle puzzle = MakePuzzle(random);
    std::array<int, kSettings> rules{};
    std::array<std::string, kSettings> more;
    for (const Lock& lock : puzzle.locks) {
      const std::string tag = "Dependency" + (rules[lock.locks] == 0 ? "" : std::to_string(rules[lock.locks]));
      ++rules[lock.locks];
      more[lock.locks] +=
          "<" + tag + ">IF " + NameOf(lock.by) + " EQ " + std::to_string(lock.value) + " THEN NoEdit</" + tag + ">";
    }
    std::string menu;
    std::string device;
    std::string wanted;
    for (std::size_t i = 0; i < kSettings; ++i) {
      menu += Entry(NameOf(i), "1." + std::to_string(i), "Integer", more[i]);
      device += "1." + std::to_string(i) + "\tInteger\t" + std::to_string(puzzle.before[i]) + "\n";
      wanted += NameOf(i) + ": " + std::to_string(puzzle.wanted[i]) + "\n";
    }
    tests::StorageFolder folder;
    folder.WriteMenu(menu).Write("device.txt", device);
    const auto plan = PlanOf(folder.Path(), wanted);
    const bool works = puzzle.SomeOrderWorks();
    ++(works ? solvable : unsolvable);
    EXPECT_EQ(works, plan.refusals.empty()) << menu << device << wanted << RefusalsOf(plan);
    auto now = puzzle.before;
    for (const auto& set : plan.sets) {
      const std::size_t i = set.causes.at(0);
      EXPECT_TRUE(puzzle.MaySet(i, now)) << menu << device << wanted << SetsOf(plan);
      now[i] = puzzle.wanted[i];
    }
  }
  EXPECT_GT(solvable, 10);
  EXPECT_GT(unsolvable, 5);
}

}  // namespace
