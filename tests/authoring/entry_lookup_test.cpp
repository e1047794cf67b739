#include "authoring/entry_lookup.h"

#include "authoring/items.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

#include <algorithm>

namespace {

using authoring::Configuration;
using authoring::FindEntries;
using authoring::Trial;

std::vector<std::string> Found(Trial& trial, WideStringView text) {
  std::vector<std::string> paths;
  for (const model::MenuItem* item : FindEntries(trial, text)) paths.push_back(base::ToUtf8(authoring::PathOf(*item)));
  return paths;
}

using Paths = std::vector<std::string>;

TEST(EntryLookup, AnEntryIsNamedInFourWays) {
  const auto configuration = Configuration::Load(tests::kDemonstration).configuration;
  Trial trial(*configuration);
  for (const WideStringView text : {u"DHCP", u"1.3.6.1.4.1.4242.10.1.2.0", u"Network\\Addresses\\Dhcp", u"1-3-1",
                                    u"131", u"dhcp", u"network\\addresses\\DHCP"}) {
    EXPECT_EQ(Paths{"Network\\Addresses\\Dhcp"}, Found(trial, text)) << base::ToUtf8(text);
  }
  EXPECT_EQ(Paths{}, Found(trial, u"No such thing"));
  EXPECT_EQ(Paths{}, Found(trial, u"9-9-9-9"));
  EXPECT_EQ(Paths{}, Found(trial, u""));
}

TEST(EntryLookup, AnAmbiguousNameGivesAllCandidates) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"A\"><DisplayName>Speed</DisplayName></GROUP><GROUP "
      "name=\"B\"><DisplayName>Speed</DisplayName></GROUP>");
  const auto configuration = folder.Load();
  Trial trial(*configuration);
  EXPECT_EQ((Paths{"A", "B"}), Found(trial, u"Speed"));
}

TEST(EntryLookup, KeysLeadOverPagesAndPastHiddenLines) {
  tests::StorageFolder folder;
  std::string groups;
  for (int i = 1; i <= 12; ++i) {
    const std::string n = std::to_string(i);
    groups += "<GROUP name=\"E" + n + "\"><DisplayName>Entry" + n + "</DisplayName><OID>1." + n +
              "</OID><Type>Integer</Type>" + (i == 2 ? "<Dependency>IF Entry1 EQ 1 THEN NoDisplay</Dependency>" : "") +
              "</GROUP>\n";
  }
  std::string device;
  for (int i = 1; i <= 12; ++i) device += "1." + std::to_string(i) + "\tInteger\t1\n";
  folder.WriteMenu(groups).Write("device.txt", device);
  const auto configuration = folder.Load();
  Trial trial(*configuration);
  const auto keysTo = [&](WideStringView path) {
    const auto keys = trial.KeysTo(*FindEntries(trial, path).front());
    return keys ? base::ToUtf8(*keys) : "none";
  };
  EXPECT_EQ("1", keysTo(u"E1"));
  EXPECT_EQ("none", keysTo(u"E2"));
  EXPECT_EQ("2", keysTo(u"E3"));
  EXPECT_EQ("92", keysTo(u"E10"));  // "More...", then the line behind "...Back"
  EXPECT_EQ(Paths{"E10"}, Found(trial, u"9-2"));
  EXPECT_EQ(Paths{"E1"}, Found(trial, u"9-1-1"));
}

TEST(EntryLookup, KeysOfEveryEntryOfTheDemonstrationLeadBackToIt) {
  const auto configuration = Configuration::Load(tests::kDemonstration).configuration;
  Trial trial(*configuration);
  std::size_t reached = 0;
  std::vector<model::MenuItem*> items{&trial.Model().Root()};
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
    const auto keys = trial.KeysTo(*items[i]);
    if (!keys) continue;
    ++reached;
    EXPECT_EQ(items[i], trial.ItemAt(*keys)) << base::ToUtf8(*keys);
  }
  EXPECT_GT(reached, 100u);
}

}  // namespace
