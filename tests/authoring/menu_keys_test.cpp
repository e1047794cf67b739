#include "authoring/menu_keys.h"

#include "authoring/search.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

namespace {

using authoring::MenuKeys;
using authoring::Trial;
using model::MenuItem;

std::vector<MenuItem*> AllItems(Trial& trial) {
  std::vector<MenuItem*> items{&trial.Model().Root()};
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
  }
  return items;
}

TEST(MenuKeys, OfManyItemsAreThoseOfEach) {
  const auto configuration = authoring::Configuration::Load(tests::kDemonstration).configuration;
  Trial trial(*configuration);
  const std::vector<MenuItem*> items = AllItems(trial);
  const MenuKeys keys(trial, items);
  std::size_t hidden = 0;
  for (MenuItem* item : items) {
    const auto one = trial.KeysTo(*item);
    EXPECT_EQ(one, keys.To(*item)) << base::ToUtf8(item->Path());
    if (!one) ++hidden;
  }
  EXPECT_LT(0u, hidden);
  EXPECT_LT(hidden, items.size());
}

TEST(MenuKeys, AMenuInWhichNothingIsLookedForIsNotOpened) {
  tests::StorageFolder folder;
  folder
      .WriteMenu(
          "<GROUP name=\"A\"><GROUP name=\"X\"><DisplayName>X</DisplayName><OID>1.1</OID><Type>Integer</Type>"
          "<ChoiceFmt>1#On|2#Off</ChoiceFmt><Dependency>IF X EQ 1 THEN \"ChoiceFmt=2#Off:2\"</Dependency></GROUP>"
          "</GROUP><GROUP name=\"B\"/>")
      .Write("device.txt", "1.1\tInteger\t1\n");
  const auto configuration = folder.Load();
  Trial trial(*configuration);
  const auto& lines = trial.Model().Root().Children();
  MenuItem* const menus[] = {lines.at(0).get(), lines.at(1).get()};
  const auto held = [&trial] { return base::ToUtf8(trial.Model().FindDescriptor(u"1.1")->GetValue().AsText()); };
  EXPECT_EQ(u"2", MenuKeys(trial, menus).To(*menus[1]));
  EXPECT_EQ("1", held());
  MenuItem* const within[] = {menus[0]->Children().at(0).get()};
  EXPECT_EQ(u"11", MenuKeys(trial, within).To(*within[0]));
  EXPECT_EQ("2", held());
}

TEST(MenuKeys, OfVeryManyKeysOnlyTheFirstAreSaid) {
  std::string menus;
  std::string ends;
  for (std::size_t i = 0; i < MenuKeys::kMostKeys + 2; ++i) {
    menus += "<GROUP name=\"M\">";
    ends += "</GROUP>";
  }
  tests::StorageFolder folder;
  const auto configuration = folder.WriteMenu(menus + ends).Load();
  Trial trial(*configuration);
  const std::vector<MenuItem*> items = AllItems(trial);
  const MenuKeys keys(trial, items);
  const WideString most(MenuKeys::kMostKeys, u'1');
  EXPECT_EQ(most, keys.To(*items[MenuKeys::kMostKeys]));
  EXPECT_EQ(most + MenuKeys::kRest, keys.To(*items[MenuKeys::kMostKeys + 1]));
  EXPECT_EQ(most + MenuKeys::kRest, keys.To(*items[MenuKeys::kMostKeys + 2]));
}

// Tells how often rules run.
class Counter final : public rules::RuleListener {
 public:
  std::size_t runs = 0;
  void OnNode(const config::ConfigKey&, const MenuItem*) override { ++runs; }
};

TEST(Search, TheRulesOfAMenuRunOnceForAllThatIsFoundInIt) {
  constexpr std::size_t kLines = 300;
  std::string groups = "<GROUP name=\"M\">";
  for (std::size_t i = 0; i < kLines; ++i) {
    groups += "<GROUP name=\"L" + std::to_string(i) +
              "\"><DisplayName>Line</DisplayName><Dependency>1|Integer|1|NoDisplay</Dependency></GROUP>";
  }
  tests::StorageFolder folder;
  const auto configuration = folder.WriteMenu(groups + "</GROUP>").Load();
  Counter counter;
  Trial trial(*configuration, &counter);
  const authoring::Hits hits = authoring::Search(trial, u"line");
  EXPECT_EQ(kLines, hits.all.size());
  EXPECT_EQ(u"1992", hits.keys.To(*hits.all.at(15).item)->substr(0, 4));
  EXPECT_EQ(kLines + 1, counter.runs);
}

}  // namespace
