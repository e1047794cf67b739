#include "model/ordered_menu_items.h"

#include "tests/printing.h"
#include "tests/support/test_terminal.h"
#include "tests/support/trees.h"

#include <string>

namespace {

using Names = std::vector<WideStringView>;

// The children of R as the menu orders them; the names live as long as the tree.
Names Ordered(const config::PDataStore& tree) {
  const config::ConfigKey& parent = *tree.Find(u"R");
  Names names(parent.Subkeys().begin(), parent.Subkeys().end());
  model::InitOrderedMenuItems(names, parent, tree);
  return names;
}

// Children a, b, c ... of R with these ordinals ("" is none), as the menu orders them.
std::string OrderOf(std::initializer_list<const char*> ordinals) {
  std::string xml = "<GROUP name='R'>";
  char name = 'a';
  for (const char* ordinal : ordinals) {
    xml += std::string("<GROUP name='") + name + "'><Ordinal>" + ordinal + "</Ordinal></GROUP>";
    ++name;
  }
  const auto tree = tests::TreeOf(xml + "</GROUP>");
  std::string order;
  for (const WideStringView ordered : Ordered(*tree)) order += base::ToUtf8(ordered);
  return order;
}

TEST(OrderedMenuItems, OrdinalsDecideTheOrder) { EXPECT_EQ("bca", OrderOf({"3", "1", "2"})); }

TEST(OrderedMenuItems, AnOrdinalBeyondTheNumberOfSiblingsIsNone) { EXPECT_EQ("ba", OrderOf({"5", "1"})); }

TEST(OrderedMenuItems, OfTwoEqualOrdinalsTheFirstTakesThePlace) { EXPECT_EQ("acb", OrderOf({"1", "1", "2"})); }

TEST(OrderedMenuItems, GapsAreClosedBeforeTheOthersFollow) { EXPECT_EQ("bdac", OrderOf({"", "2", "", "3"})); }

TEST(OrderedMenuItems, WithoutOrdinalsTheOrderStays) { EXPECT_EQ("abcd", OrderOf({"", "", "", ""})); }

TEST(OrderedMenuItems, ZeroNegativeAndNonNumbersAreNone) { EXPECT_EQ("dabc", OrderOf({"0", "-1", "x", "1"})); }

TEST(OrderedMenuItems, OnlyLeadingDigitsCount) { EXPECT_EQ("ba", OrderOf({"2nd", "1st"})); }

TEST(OrderedMenuItems, NoNamesAreFine) { EXPECT_EQ("", OrderOf({})); }

TEST(OrderedMenuItems, ANameWithoutAKeyIsKeptBehindThePlacedOnes) {
  const tests::TestTerminal terminal;
  const auto tree = tests::TreeOf("<GROUP name='R'><GROUP name='b'><Ordinal>2</Ordinal></GROUP></GROUP>");
  Names names = {u"lost", u"b"};
  model::InitOrderedMenuItems(names, *tree->Find(u"R"), *tree);
  EXPECT_EQ((Names{u"b", u"lost"}), names);
}

TEST(OrderedMenuItems, ANameWithoutAKeyHasADebugLine) {
  tests::TestTerminal terminal;
  const auto tree = tests::TreeOf("<GROUP name='R'><GROUP name='b'/></GROUP>");
  Names names = {u"lost", u"b", u"HKEY_LOCAL_MACHINE\\Lost"};
  model::InitOrderedMenuItems(names, *tree->Find(u"R"), *tree);
  const WideString line = u"ERROR 4 CKelConfigApp::InitOrderedMenuItems\r\n";
  EXPECT_EQ((std::vector<WideString>{line, line}), terminal.TakeDebugLines());
}

TEST(OrderedMenuItems, TheEmptyNameComesLastAndHoldsNoPlace) {
  const auto tree = tests::TreeOf(
      "<GROUP name='R'><GROUP><Ordinal>1</Ordinal></GROUP><GROUP name='a'/>"
      "<GROUP name='b'><Ordinal>1</Ordinal></GROUP><GROUP name=''/></GROUP>");
  EXPECT_EQ((Names{u"b", u"a", u"", u""}), Ordered(*tree));
}

TEST(OrderedMenuItems, OfAnAbsoluteNameTheKeyThatItNamesHasTheOrdinal) {
  tests::TestTerminal terminal;
  using platform::host::RegistryTree;
  RegistryTree& registry = terminal.Registry();
  RegistryTree::SetText(registry.Add(RegistryTree::kLocalMachine, u"Menu"), u"Descendent",
                        u"HKEY_LOCAL_MACHINE\\Menu\\a\\deep");
  RegistryTree::SetText(registry.Add(RegistryTree::kLocalMachine, u"Menu\\a"), u"Ordinal", u"2");
  RegistryTree::SetText(registry.Add(RegistryTree::kLocalMachine, u"Menu\\a\\deep"), u"Ordinal", u"1");
  const config::PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, config::PDataStore::kWholeTree);
  const config::ConfigKey& parent = *tree.Find(u"HKEY_LOCAL_MACHINE\\Menu");
  Names names(parent.Subkeys().begin(), parent.Subkeys().end());
  ASSERT_EQ((Names{u"a", u"HKEY_LOCAL_MACHINE\\Menu\\a\\deep"}), names);
  model::InitOrderedMenuItems(names, parent, tree);
  EXPECT_EQ((Names{u"HKEY_LOCAL_MACHINE\\Menu\\a\\deep", u"a"}), names);
}

TEST(OrderedMenuItems, ADescendentTakesPartLikeAnyOtherChild) {
  const auto tree = tests::TreeOf(
      "<GROUP name='R'><Descendent>a\\deep</Descendent>"
      "<GROUP name='a'><GROUP name='deep'><Ordinal>1</Ordinal></GROUP></GROUP></GROUP>");
  EXPECT_EQ((Names{u"a\\deep", u"a"}), Ordered(*tree));
}

}  // namespace
