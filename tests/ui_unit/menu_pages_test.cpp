#include "ui/menu_pages.h"

#include "base/number.h"
#include "tests/printing.h"
#include "tests/support/named_items.h"

#include <string>

namespace {

using model::DisplayState;
using model::MenuItem;

// A menu of items named a1, a2 and so on.
std::unique_ptr<MenuItem> MenuOf(int count) {
  auto menu = std::make_unique<MenuItem>(nullptr, u"R", u"Root", u"Root");
  for (int i = 1; i <= count; ++i) tests::AddNamed(*menu, u"a" + base::ToText(i));
  return menu;
}

MenuItem& Child(MenuItem& menu, std::size_t index) { return *menu.Children()[index]; }

// The lines joined by "/"; padding shows as nothing between two of them.
std::string Lines(const ui::MenuPages& pages) {
  std::string text;
  for (const ui::MenuLine& line : pages.lines) text += base::ToUtf8(line.text) + "/";
  return text;
}

std::string Padding(int lines) { return std::string(static_cast<std::size_t>(lines), '/'); }

TEST(MenuPages, OneItemIsPaddedToAPage) {
  const auto menu = MenuOf(1);
  const ui::MenuPages pages = ui::LayOutMenu(*menu, 9);
  EXPECT_EQ("1  a1/" + Padding(8), Lines(pages));
  EXPECT_EQ(0, pages.lastLine);
  EXPECT_EQ(0, pages.lastBackLine);
}

TEST(MenuPages, EightItemsLeaveOneLineOfPadding) {
  const auto menu = MenuOf(8);
  EXPECT_EQ("1  a1/2  a2/3  a3/4  a4/5  a5/6  a6/7  a7/8  a8/" + Padding(1), Lines(ui::LayOutMenu(*menu, 9)));
}

TEST(MenuPages, NineItemsMakeOnePageAndAFullPageOfPadding) {
  const auto menu = MenuOf(9);
  const ui::MenuPages pages = ui::LayOutMenu(*menu, 9);
  EXPECT_EQ("1  a1/2  a2/3  a3/4  a4/5  a5/6  a6/7  a7/8  a8/9  a9/" + Padding(9), Lines(pages));
  EXPECT_EQ(8, pages.lastLine);
}

TEST(MenuPages, TenItemsLeaveTwoForTheSecondPage) {
  const auto menu = MenuOf(10);
  const ui::MenuPages pages = ui::LayOutMenu(*menu, 9);
  EXPECT_EQ("1  a1/2  a2/3  a3/4  a4/5  a5/6  a6/7  a7/8  a8/9  More.../1  ...Back/2  a9/3  a10/" + Padding(6),
            Lines(pages));
  EXPECT_EQ(11, pages.lastLine);
  EXPECT_EQ(9, pages.lastBackLine);
}

TEST(MenuPages, TwentyItemsTakeThreePages) {
  const auto menu = MenuOf(20);
  const ui::MenuPages pages = ui::LayOutMenu(*menu, 9);
  EXPECT_EQ(
      "1  a1/2  a2/3  a3/4  a4/5  a5/6  a6/7  a7/8  a8/9  More.../"
      "1  ...Back/2  a9/3  a10/4  a11/5  a12/6  a13/7  a14/8  a15/9  More.../"
      "1  ...Back/2  a16/3  a17/4  a18/5  a19/6  a20/" +
          Padding(3),
      Lines(pages));
  EXPECT_EQ(18, pages.lastBackLine);
}

TEST(MenuPages, AMenuWithEveryItemHiddenSaysSo) {
  const auto menu = MenuOf(2);
  for (const auto& child : menu->Children()) child->SetState(DisplayState::kNotDisplayed);
  const ui::MenuPages pages = ui::LayOutMenu(*menu, 9);
  EXPECT_EQ("(no items)/", Lines(pages));
  EXPECT_EQ(-1, pages.lastLine);
}

TEST(MenuPages, AHiddenItemTakesNoNumberAndABlankOneKeepsIts) {
  const auto menu = MenuOf(4);
  Child(*menu, 0).SetState(DisplayState::kNotDisplayed);
  Child(*menu, 2).SetState(DisplayState::kBlank);
  EXPECT_EQ("1  a2/2  /3  a4/" + Padding(6), Lines(ui::LayOutMenu(*menu, 9)));
}

TEST(MenuPages, ALockedItemIsShownAsUsual) {
  const auto menu = MenuOf(1);
  Child(*menu, 0).SetState(DisplayState::kNoEdit);
  EXPECT_EQ("1  a1/" + Padding(8), Lines(ui::LayOutMenu(*menu, 9)));
}

TEST(MenuPages, AHeadingCarriesNoNumber) {
  const auto menu = MenuOf(3);
  Child(*menu, 1).list.nonSelectable = true;
  const ui::MenuPages pages = ui::LayOutMenu(*menu, 9);
  EXPECT_EQ("1  a1/a2/2  a3/" + Padding(6), Lines(pages));
  EXPECT_FALSE(pages.lines[1].IsSelectable());
}

TEST(MenuPages, AHeadingAtTheEndIsNotTheLastLine) {
  const auto menu = MenuOf(3);
  Child(*menu, 2).list.nonSelectable = true;
  EXPECT_EQ(1, ui::LayOutMenu(*menu, 9).lastLine);
}

TEST(MenuPages, TheLastLineIsTheLastThatCanBeSelected) {
  const struct {
    int items;
    int headings;  // after the items
    bool numbered;
    int lastLine;
  } cases[] = {
      {2, 2, true, 1}, {0, 1, true, -1}, {0, 12, true, 9},  // the second page's "...Back"
      {8, 3, true, 9}, {2, 2, false, 1}, {0, 12, false, -1},
  };
  for (const auto& c : cases) {
    const auto menu = MenuOf(c.items + c.headings);
    menu->list.numbered = c.numbered;
    for (int i = c.items; i < c.items + c.headings; ++i) {
      Child(*menu, static_cast<std::size_t>(i)).list.nonSelectable = true;
    }
    EXPECT_EQ(c.lastLine, ui::LayOutMenu(*menu, 9).lastLine) << c.items << " items, " << c.headings << " headings";
  }
}

TEST(MenuPages, AnItemKeptWithTheNextMovesToTheNextPageWithIt) {
  const auto menu = MenuOf(12);
  Child(*menu, 7).list.keepWithNext = true;
  EXPECT_EQ(
      "1  a1/2  a2/3  a3/4  a4/5  a5/6  a6/7  a7//9  More.../1  ...Back/2  a8/3  a9/4  a10/5  a11/6  a12/" + Padding(3),
      Lines(ui::LayOutMenu(*menu, 9)));
}

TEST(MenuPages, AnItemKeptWithTheNextStaysWhenTheNextIsTheLast) {
  const auto menu = MenuOf(9);
  Child(*menu, 7).list.keepWithNext = true;
  EXPECT_EQ("1  a1/2  a2/3  a3/4  a4/5  a5/6  a6/7  a7/8  a8/9  a9/" + Padding(9), Lines(ui::LayOutMenu(*menu, 9)));
}

TEST(MenuPages, ItemsThatAreAllKeptWithTheNextStillFindTheirPages) {
  for (const int pageSize : {3, 4, 9}) {
    const auto menu = MenuOf(30);
    for (const auto& child : menu->Children()) child->list.keepWithNext = true;
    const ui::MenuPages pages = ui::LayOutMenu(*menu, pageSize);
    std::size_t items = 0;
    for (const ui::MenuLine& line : pages.lines) items += line.item != nullptr ? 1u : 0u;
    EXPECT_EQ(30u, items) << pageSize;
    EXPECT_EQ(0u, pages.lines.size() % static_cast<std::size_t>(pageSize));
  }
}

TEST(MenuPages, APlainMenuIsAListOfTexts) {
  const auto menu = MenuOf(12);
  menu->list.numbered = false;
  const ui::MenuPages pages = ui::LayOutMenu(*menu, 9);
  EXPECT_EQ("a1/a2/a3/a4/a5/a6/a7/a8/a9/a10/a11/a12/", Lines(pages));
  EXPECT_EQ(11, pages.lastLine);
}

TEST(MenuPages, ALineShowsNameAndValue) {
  const auto menu = MenuOf(1);
  Child(*menu, 0).SetSuffix(u"  <5>");
  EXPECT_EQ("1  a1  <5>/" + Padding(8), Lines(ui::LayOutMenu(*menu, 9)));
}

}  // namespace
