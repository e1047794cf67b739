#include "model/ordered_menu_items.h"

#include "tests/printing.h"
#include "tests/support/trees.h"

#include <string>

namespace {

// Children a, b, c ... of R with these ordinals ("" is none), as the menu orders them.
std::string OrderOf(std::initializer_list<const char*> ordinals) {
  std::string xml = "<GROUP name=\"R\">";
  std::vector<WideString> names;
  char16_t name = u'a';
  for (const char* ordinal : ordinals) {
    names.emplace_back(1, name);
    xml += "<GROUP name=\"" + base::ToUtf8(names.back()) + "\"><Ordinal>" + ordinal + "</Ordinal></GROUP>";
    ++name;
  }
  const auto tree = tests::TreeOf(xml + "</GROUP>");
  model::InitOrderedMenuItems(names, u"R", *tree);
  std::string order;
  for (const WideString& ordered : names) order += base::ToUtf8(ordered);
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
  const auto tree = tests::TreeOf("<GROUP name='R'><GROUP name='b'><Ordinal>2</Ordinal></GROUP></GROUP>");
  std::vector<WideString> names = {u"lost", u"b"};
  model::InitOrderedMenuItems(names, u"R", *tree);
  EXPECT_EQ((std::vector<WideString>{u"b", u"lost"}), names);
}

TEST(OrderedMenuItems, ADescendentTakesPartLikeAnyOtherChild) {
  const auto tree = tests::TreeOf(
      "<GROUP name='R'><Descendent>a\\deep</Descendent>"
      "<GROUP name='a'><GROUP name='deep'><Ordinal>1</Ordinal></GROUP></GROUP></GROUP>");
  std::vector<WideString> names = {u"a", u"a\\deep"};
  model::InitOrderedMenuItems(names, u"R", *tree);
  EXPECT_EQ((std::vector<WideString>{u"a\\deep", u"a"}), names);
}

TEST(OrderedMenuItems, AChildNameWithHkeyIsAPathOfItsOwn) {
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\X", model::ChildPath(u"R", u"HKEY_LOCAL_MACHINE\\X"));
  EXPECT_EQ(u"R\\hkey", model::ChildPath(u"R", u"hkey"));
}

}  // namespace
