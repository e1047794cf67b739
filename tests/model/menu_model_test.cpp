#include "model/menu_model.h"

#include "base/number.h"
#include "model/key_visits.h"
#include "tests/printing.h"
#include "tests/support/fake_boxes.h"
#include "tests/support/fake_device.h"
#include "tests/support/test_terminal.h"
#include "tests/support/trees.h"

#include <algorithm>
#include <string>

namespace {

using model::MenuItem;
using model::MenuModel;

class MenuModelTest : public testing::Test {
 protected:
  void Build(std::string_view xml, std::uint32_t depth = 9999) {
    EXPECT_TRUE(menu_.Build(tests::TreeOf(xml), u"R", depth));
  }

  // Every item on a line of its own, indented by its depth.
  std::string Dump() {
    std::string text;
    for (const auto& child : menu_.Root().Children()) DumpItem(*child, "", text);
    return text;
  }

  static void DumpItem(const MenuItem& item, const std::string& indent, std::string& text) {
    text += indent + base::ToUtf8(item.LineText()) + "\n";
    for (const auto& child : item.Children()) DumpItem(*child, indent + "  ", text);
  }

  tests::TestTerminal terminal_;
  tests::FakeDevice fake_;
  tests::FakeBoxes boxes_;
  values::SymbolTable symbols_{values::SymbolTable::Texts{{u"SYM_NET", u"Network"}}};
  values::DeviceAccess device_{fake_.Connector()};
  platform::Event deviceGate_{u"", true};
  MenuModel menu_{{device_, symbols_, deviceGate_, boxes_}};
};

TEST_F(MenuModelTest, TheFirstMenuHasNoCommandsNoPropertiesAndReadsNothing) {
  menu_.BuildTopLevel(
      tests::TreeOf("<GROUP name='R'><DisplayName>Main</DisplayName>"
                    "<GROUP name='a'><DisplayName>SYM_NET</DisplayName><GROUP name='x'/></GROUP>"
                    "<GROUP name='b'><DisplayName>Store</DisplayName><Function>StoreConfig</Function></GROUP>"
                    "<GROUP name='c'><DisplayName>Run</DisplayName><AppName>a.exe</AppName></GROUP>"
                    "<GROUP name='d'><DisplayName>Speed</DisplayName><OID>1.2</OID></GROUP></GROUP>",
                    config::PDataStore::kTopLevelOnly),
      u"R");
  EXPECT_EQ(u"Main", menu_.Root().Title());
  EXPECT_EQ("Network\nSpeed\n", Dump());
  EXPECT_TRUE(menu_.Root().Children()[0]->topLevel);
  EXPECT_EQ(u"SYM_NET", menu_.Root().Children()[0]->DisplayName());
  EXPECT_EQ(nullptr, menu_.Root().Children()[1]->Descriptor());
  EXPECT_EQ(0, fake_.connections);
}

TEST_F(MenuModelTest, AWholeModelHasItsPropertiesWithTheirValues) {
  fake_.Put(u"1.1", u"2");
  fake_.Put(u"1.2", u"192.168.0.1");
  fake_.Put(u"1.3", u"secret");
  Build(
      "<GROUP name='R'><GROUP name='m'><DisplayName>Menu</DisplayName>"
      "<GROUP name='a'><DisplayName>Mode</DisplayName><OID>1.1</OID><Type>Integer</Type>"
      "<ChoiceFmt>1#Off|2#On</ChoiceFmt></GROUP>"
      "<GROUP name='b'><DisplayName>Address</DisplayName><OID>1.2</OID><Type>IP Address</Type></GROUP>"
      "<GROUP name='c'><DisplayName>Word</DisplayName><OID>1.3</OID><Type>Password</Type>"
      "<PassWordChar>*</PassWordChar></GROUP>"
      "<GROUP name='d'><DisplayName>Gone</DisplayName><OID>9.9</OID><Type>Integer</Type></GROUP>"
      "</GROUP></GROUP>");
  EXPECT_EQ("Menu\n  Mode  <On>\n  Address  <192.168.0.1>\n  Word  <******>\n  Gone  <Unavailable>\n", Dump());
  EXPECT_TRUE(menu_.Root().Children()[0]->topLevel);
  EXPECT_FALSE(menu_.Root().Children()[0]->Children()[0]->topLevel);
}

TEST_F(MenuModelTest, AKeyWithACommandOidAloneIsAPropertyUnderThat) {
  fake_.Put(u"7.7", u"0312");
  Build(
      "<GROUP name='R'>"
      "<GROUP name='cmd'><DisplayName>Cmd</DisplayName><Ordinal>1</Ordinal><OID>7.7</OID><Type>ReaderCmd</Type>"
      "<CmdString>2,2,2</CmdString></GROUP>"
      "<GROUP name='f'><DisplayName>Field</DisplayName><CmdOID>7.7:2</CmdOID><Ordinal>2</Ordinal>"
      "<Type>Integer</Type></GROUP></GROUP>");
  ASSERT_NE(nullptr, menu_.FindDescriptor(u"7.7:2"));
  EXPECT_EQ(u"7.7:2", menu_.OidByName(u"Field"));
  EXPECT_EQ(u"Integer", menu_.TypeByOid(u"7.7:2"));
  EXPECT_EQ(u"12", menu_.FindDescriptor(u"7.7:2")->GetValue().AsText());
  EXPECT_EQ("Cmd\nField  <12>\n", Dump());  // a whole command shows no value
}

TEST_F(MenuModelTest, AKeyWithNeitherOidIsAPlainEntry) {
  Build("<GROUP name='R'><GROUP name='a'><DisplayName>Plain</DisplayName><Type>Integer</Type></GROUP></GROUP>");
  EXPECT_EQ("Plain\n", Dump());
  EXPECT_TRUE(menu_.Descriptors().empty());
}

TEST_F(MenuModelTest, ALaterPropertyOfTheSameNameTakesItsPlaceInTheTable) {
  Build(
      "<GROUP name='R'><GROUP name='a'><DisplayName>X</DisplayName><OID>1</OID></GROUP>"
      "<GROUP name='b'><DisplayName>X</DisplayName><OID>2</OID></GROUP></GROUP>");
  EXPECT_EQ(u"2", menu_.OidByName(u"X"));
  EXPECT_EQ(u"", menu_.OidByName(u"x"));
}

TEST_F(MenuModelTest, PropertiesThatNameOnePageShareIt) {
  Build(
      "<GROUP name='R'><GROUP name='a'><OID>1</OID><CustPage>P</CustPage></GROUP>"
      "<GROUP name='b'><OID>2</OID><CustPage>P</CustPage></GROUP></GROUP>");
  ASSERT_NE(nullptr, menu_.FindPage(u"P"));
  EXPECT_EQ(2u, menu_.FindPage(u"P")->size());
  EXPECT_EQ(nullptr, menu_.FindPage(u"Q"));
}

TEST_F(MenuModelTest, TheDeviceKnowsBeforehandWhatBuildingReads) {
  fake_.Put(u"cfg|80211PM|ActiveProfile", u"3");
  const char* xml =
      "<GROUP name='R'><OID>0.0</OID><Type>Integer</Type>"
      "<GROUP name='m'><DisplayName>Menu</DisplayName>"
      "<GROUP name='a'><OID>1.1</OID><Type>Integer</Type><GROUP name='deep'><OID>1.2</OID></GROUP></GROUP>"
      "<GROUP name='again'><OID>1.1</OID><Type>Bool</Type></GROUP>"
      "<GROUP name='pseudo'><OID>_GetIPAddress</OID><Type>IP Address</Type></GROUP></GROUP>"
      "<GROUP name='cmd'><OID>7.7</OID><Type>ReaderCmd</Type><CmdString>2,2</CmdString></GROUP>"
      "<GROUP name='f'><CmdOID>7.7:2</CmdOID><OID>7.7</OID><Ordinal>2</Ordinal><Type>Integer</Type></GROUP>"
      "<GROUP name='plain'><Type>Integer</Type></GROUP></GROUP>";
  Build(xml);
  EXPECT_EQ(4u, fake_.ahead.size());
  EXPECT_EQ(fake_.TakeLog(), fake_.ahead);
  Build(xml);
  EXPECT_EQ(fake_.TakeLog(), fake_.ahead);
  EXPECT_EQ(2, fake_.timesAhead);
  EXPECT_EQ(2, fake_.timesAheadEnded);
}

TEST_F(MenuModelTest, OfASettingOfTheProfileInUseTheProfileIsReadAhead) {
  fake_.Put(u"cfg|80211PM|ActiveProfile", u"3");
  Build(
      "<GROUP name='R'><GROUP name='p'><OID>cfg|*|x</OID><FillOID>Profile</FillOID><Type>Integer</Type></GROUP>"
      "<GROUP name='s'><OID>cfg|*|y</OID><Type>Integer</Type></GROUP></GROUP>");
  EXPECT_EQ((std::vector<WideString>{u"get cfg|80211PM|ActiveProfile Octet String", u"get cfg|*|y Integer"}),
            fake_.ahead);
  EXPECT_EQ((std::vector<WideString>{u"get cfg|80211PM|ActiveProfile Octet String", u"get cfg|3|x Integer",
                                     u"get cfg|*|y Integer"}),
            fake_.TakeLog());
}

TEST_F(MenuModelTest, EveryDescriptorKnowsItsItem) {
  Build("<GROUP name='R'><GROUP name='a'><DisplayName>A</DisplayName><OID>1</OID></GROUP></GROUP>");
  const MenuItem& item = *menu_.Root().Children()[0];
  EXPECT_EQ(&item, menu_.ItemOf(*menu_.FindDescriptor(u"1")));
}

TEST_F(MenuModelTest, ARebuildForgetsTheNamesAndTypesThatThereWere) {
  Build(
      "<GROUP name='R'><GROUP "
      "name='a'><DisplayName>Speed</DisplayName><OID>1</OID><Type>Integer</Type></GROUP></GROUP>");
  EXPECT_EQ(u"1", menu_.OidByName(u"Speed"));
  EXPECT_EQ(u"Integer", menu_.TypeByOid(u"1"));
  Build("<GROUP name='R'/>");
  EXPECT_EQ(u"", menu_.OidByName(u"Speed"));
  EXPECT_EQ(u"", menu_.TypeByOid(u"1"));
}

TEST_F(MenuModelTest, ARebuildLeavesNoDescriptorBehind) {
  const int before = values::PropertyDescriptor::LiveCount();
  const char* xml = "<GROUP name='R'><GROUP name='a'><OID>1</OID></GROUP><GROUP name='b'><OID>1</OID></GROUP></GROUP>";
  Build(xml);
  Build(xml);
  EXPECT_EQ(before + 2, values::PropertyDescriptor::LiveCount());
  Build("<GROUP name='R'/>");
  EXPECT_EQ(before, values::PropertyDescriptor::LiveCount());
  EXPECT_EQ(nullptr, menu_.FindDescriptor(u"1"));
}

TEST_F(MenuModelTest, OrdinalsOrderTheItems) {
  Build(
      "<GROUP name='R'><GROUP name='a'><DisplayName>A</DisplayName><Ordinal>2</Ordinal></GROUP>"
      "<GROUP name='b'><DisplayName>B</DisplayName><Ordinal>1</Ordinal></GROUP></GROUP>");
  EXPECT_EQ("B\nA\n", Dump());
}

TEST_F(MenuModelTest, LevelsBeyondTheDepthAreLeftOut) {
  Build(
      "<GROUP name='R'><GROUP name='a'><DisplayName>A</DisplayName><GROUP name='b'><DisplayName>B</DisplayName>"
      "<GROUP name='c'><DisplayName>C</DisplayName></GROUP></GROUP></GROUP></GROUP>",
      1);
  EXPECT_EQ("A\n  B\n", Dump());
}

TEST_F(MenuModelTest, AChildNameThatLeadsBackToAnOpenMenuIsSkipped) {
  const char* xml =
      "<GROUP name='HKEY_R'><DisplayName>Root</DisplayName>"
      "<GROUP name='a'><DisplayName>A</DisplayName><Descendent>HKEY_R</Descendent></GROUP></GROUP>";
  const auto tree = tests::TreeOf(xml, config::PDataStore::kWholeTree, u"HKEY_R");
  menu_.BuildTopLevel(tree, u"HKEY_R");
  ASSERT_TRUE(menu_.Build(tree, u"HKEY_R"));
  // Below the root "a" names the root itself; and every other way round ends as well.
  EXPECT_EQ("A\n", Dump());
  EXPECT_EQ((std::vector<WideString>{u"FAILED: MenuModel::Build  [HKEY_R] leads back to a key above it\r\n"}),
            terminal_.TakeDebugLines());
}

TEST_F(MenuModelTest, AnAbsoluteNameStandsWhereItsOwnOrdinalPutsIt) {
  using platform::host::RegistryTree;
  const WideString root = u"HKEY_LOCAL_MACHINE\\Menu";
  const auto add = [&](WideStringView path, WideStringView displayName, WideStringView ordinal) {
    auto& key = terminal_.Registry().Add(RegistryTree::kLocalMachine, path);
    RegistryTree::SetText(key, u"DisplayName", displayName);
    RegistryTree::SetText(key, u"Ordinal", ordinal);
    return &key;
  };
  RegistryTree::SetText(*add(u"Menu", u"Main", u""), u"Descendent", root + u"\\a\\deep");
  add(u"Menu\\a", u"A", u"3");
  add(u"Menu\\a\\deep", u"Deep", u"2");
  add(u"Menu\\a\\deep\\x", u"X", u"");
  add(u"Menu\\b", u"B", u"1");
  ASSERT_TRUE(menu_.Build(std::make_shared<const config::PDataStore>(root, nullptr, std::span<const WideString>(),
                                                                     config::PDataStore::kWholeTree),
                          root));
  EXPECT_EQ("B\nDeep\n  X\nA\n  Deep\n    X\n", Dump());
  EXPECT_EQ(root + u"\\a\\deep\\x", menu_.Root().Children()[1]->Children()[0]->Path());
}

TEST_F(MenuModelTest, SymbolsStandInTitlesAndTheirNamesInTheTableOfNames) {
  fake_.Put(u"1.2", u"5");
  Build(
      "<GROUP name='R'><DisplayName>SYM_NET</DisplayName><GROUP name='a'><DisplayName>SYM_NET</DisplayName>"
      "<OID>1.2</OID><Type>Integer</Type></GROUP></GROUP>");
  EXPECT_EQ(u"Network", menu_.Root().Title());
  EXPECT_EQ("Network  <5>\n", Dump());
  EXPECT_EQ(u"1.2", menu_.OidByName(u"SYM_NET"));
  EXPECT_EQ(u"", menu_.OidByName(u"Network"));
}

TEST_F(MenuModelTest, SiblingsOfOneNameAreBothTheFirstOfThem) {
  Build(
      "<GROUP name='R'><GROUP name='a'><DisplayName>A</DisplayName><GROUP name='x'><DisplayName>X</DisplayName></GROUP>"
      "</GROUP><GROUP name='a'><DisplayName>B</DisplayName></GROUP></GROUP>");
  EXPECT_EQ("A\n  X\nA\n  X\n", Dump());
  EXPECT_EQ(std::vector<WideString>(), terminal_.TakeDebugLines());
}

TEST_F(MenuModelTest, MenusThatAreMetOverAndOverDoNotMultiplyIt) {
  constexpr int kLevels = 60;
  std::string siblings;
  std::string descendents;
  for (int i = 0; i < kLevels; ++i) {
    siblings += "<GROUP name='a'>";
    descendents += "<GROUP name='x'><Descendent>x\\x</Descendent>";
  }
  for (int i = 0; i < kLevels; ++i) {
    siblings += "</GROUP><GROUP name='a'/>";
    descendents += "</GROUP>";
  }
  for (const std::string& groups : {siblings, descendents}) {
    Build("<GROUP name='R'>" + groups + "</GROUP>");
    const auto items = static_cast<std::size_t>(std::ranges::count(Dump(), '\n'));
    EXPECT_GE(items, std::size_t{kLevels});
    EXPECT_LE(items, std::size_t{kLevels} * 2 * (model::KeyVisits::kMost + 1));
    const WideString name = groups == siblings ? u"a" : u"x";
    const std::vector<WideString> lines = terminal_.TakeDebugLines();
    EXPECT_NE(lines.end(), std::ranges::find(lines, u"FAILED: MenuModel::Build  [" + name +
                                                        u"] is met too often, nothing below it is taken\r\n"));
  }
}

TEST_F(MenuModelTest, AMenuThatManyLinesShowHasItsEntriesAtItsOwnPlaceToo) {
  constexpr int kLinks = 20;
  std::string groups;
  for (int i = 0; i < kLinks; ++i) {
    groups += "<GROUP name='l" + std::to_string(i) + "'><Descendent>HKEY\\m</Descendent></GROUP>";
  }
  groups +=
      "<GROUP name='m'><DisplayName>Menu</DisplayName><GROUP name='s'><GROUP name='x'>"
      "<DisplayName>Entry</DisplayName></GROUP></GROUP></GROUP>";
  EXPECT_TRUE(menu_.Build(
      tests::TreeOf("<GROUP name='HKEY'>" + groups + "</GROUP>", config::PDataStore::kWholeTree, u"HKEY"), u"HKEY"));
  const auto& menus = menu_.Root().Children();
  ASSERT_EQ(std::size_t{kLinks + 1}, menus.size());
  for (int i = 0; i < kLinks; ++i) {
    const MenuItem& menu = *menus[static_cast<std::size_t>(i)]->Children().at(0);
    EXPECT_EQ(u"Menu", menu.Title());
    EXPECT_EQ(i >= model::KeyVisits::kMost, menu.IsLeaf()) << i;
  }
  ASSERT_FALSE(menus.back()->IsLeaf());
  EXPECT_EQ(u"Entry", menus.back()->Children()[0]->Children().at(0)->Title());
  EXPECT_EQ(
      std::vector<WideString>(kLinks - model::KeyVisits::kMost,
                              u"FAILED: MenuModel::Build  [HKEY\\m] is met too often, nothing below it is taken\r\n"),
      terminal_.TakeDebugLines());
}

TEST_F(MenuModelTest, TheLinesOfOneKeyHoldItsTextsOnce) {
  fake_.Put(u"1", u"12345");
  Build(
      "<GROUP name='R'><GROUP name='a'><DisplayName>Command</DisplayName><ShortDesc>Columns</ShortDesc><OID>1</OID>"
      "<Type>ReaderCmd</Type><CmdString>2,3,2</CmdString></GROUP><GROUP name='a'/><GROUP name='a'/></GROUP>");
  const auto& lines = menu_.Root().Children();
  ASSERT_EQ(3u, lines.size());
  const config::ConfigKey* const key = menu_.FindKey(u"R\\a");
  const char16_t* const name = key->Value(TextId::kDisplayName).data();
  for (const auto& line : lines) {
    EXPECT_EQ(u"Command", line->Title());
    EXPECT_EQ(name, line->Title().data());
    EXPECT_EQ(name, line->DisplayName().data());
    const values::PropertyDescriptor& property = *line->Descriptor();
    EXPECT_EQ(name, property.DisplayName().data());
    EXPECT_EQ(key->Value(TextId::kShortDesc).data(), property.Attributes().Get(TextId::kShortDesc).data());
    ASSERT_NE(nullptr, property.CommandLayout());
    EXPECT_EQ(lines.front()->Descriptor()->CommandLayout(), property.CommandLayout());
  }
}

TEST_F(MenuModelTest, TheKeyOfAnItemIsTheOneAtItsPath) {
  Build(
      "<GROUP name='R'><GROUP name='a'><Descendent>b\\c</Descendent><GROUP name='b'><GROUP name='c'><GROUP name='d'/>"
      "</GROUP></GROUP></GROUP><GROUP name='HKEY'><GROUP name='x'/></GROUP><GROUP><GROUP name='y'/></GROUP>"
      "<GROUP name='a'/></GROUP>");
  std::vector<const MenuItem*> items{&menu_.Root()};
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
    EXPECT_NE(nullptr, items[i]->Key());
    EXPECT_EQ(menu_.FindKey(items[i]->Path()), items[i]->Key()) << base::ToUtf8(items[i]->Path());
  }
  EXPECT_LT(8u, items.size());
  menu_.BuildTopLevel(tests::TreeOf("<GROUP name='R'><GROUP name='a'><GROUP name='x'/></GROUP></GROUP>"), u"R");
  EXPECT_EQ(menu_.FindKey(u"R"), menu_.Root().Key());
  EXPECT_EQ(menu_.FindKey(u"R\\a"), menu_.Root().Children().at(0)->Key());
  menu_.Build(nullptr, u"R");
  EXPECT_EQ(nullptr, menu_.Root().Key());
}

TEST_F(MenuModelTest, ADeepMenuHoldsEachOfItsNamesOnce) {
  constexpr std::size_t kLevels = 3000;
  const std::string name(200, 'n');
  std::string xml = "<GROUP name='R'>";
  for (std::size_t i = 0; i < kLevels; ++i) xml += "<GROUP name='" + name + "'><OID>1</OID>";
  for (std::size_t i = 0; i <= kLevels; ++i) xml += "</GROUP>";
  Build(xml);
  std::size_t units = 0;
  std::size_t levels = 0;
  const MenuItem* item = &menu_.Root();
  for (; !item->IsLeaf(); item = item->Children()[0].get()) {
    units += item->Name().size();
    ++levels;
  }
  EXPECT_EQ(kLevels, levels);
  EXPECT_LE(units, kLevels * name.size() * 2);
  EXPECT_EQ(1 + kLevels * (1 + name.size()), item->Path().size());
  EXPECT_EQ(item->Path(), item->Descriptor()->Path());
}

TEST_F(MenuModelTest, AWaitForTheDeviceThatFailsIsShownAndTheModelIsBuiltAllTheSame) {
  fake_.Put(u"1", u"5");
  platform::host::CurrentEnvironment().failsWait = [](WideStringView) { return true; };
  Build("<GROUP name='R'><GROUP name='a'><DisplayName>A</DisplayName><OID>1</OID><Type>Integer</Type></GROUP></GROUP>");
  EXPECT_EQ("A  <5>\n", Dump());
  const WideString box = u"Error: WaitForSingleObject Error [" + base::ToText(values::kErrorBox) + u"]";
  EXPECT_EQ((std::vector<WideString>{box, box}), boxes_.TakeShown());  // before the reading and the showing
}

TEST_F(MenuModelTest, WithoutARootKeyThereIsNoModel) {
  EXPECT_FALSE(menu_.Build(tests::TreeOf("<GROUP name='R'/>"), u"Other"));
  EXPECT_TRUE(menu_.Root().IsLeaf());
}

TEST_F(MenuModelTest, WithoutADeviceEveryPropertyIsUnavailableAndEachReadSaysSo) {
  fake_.reachable = false;
  Build(
      "<GROUP name='R'><GROUP name='a'><DisplayName>A</DisplayName><OID>1</OID><Type>Integer</Type></GROUP>"
      "<GROUP name='b'><DisplayName>B</DisplayName><OID>2</OID><Type>Integer</Type></GROUP></GROUP>");
  EXPECT_EQ("A  <Unavailable>\nB  <Unavailable>\n", Dump());
  EXPECT_EQ(2u, terminal_.TakeSystemBoxes().size());
  EXPECT_EQ(2, fake_.connections);
}

TEST_F(MenuModelTest, TheSuffixFollowsTheValue) {
  fake_.Put(u"1", u"5");
  Build("<GROUP name='R'><GROUP name='a'><DisplayName>A</DisplayName><OID>1</OID><Type>Integer</Type></GROUP></GROUP>");
  MenuItem& item = *menu_.Root().Children()[0];
  values::PropertyValue value;
  value.SetInteger(6);
  item.Descriptor()->SetNewValue(value);
  menu_.UpdateSuffix(item);
  EXPECT_EQ(u"A  <6>", item.LineText());
}

}  // namespace
