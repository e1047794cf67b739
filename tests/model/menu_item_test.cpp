#include "model/menu_item.h"

#include "tests/printing.h"

namespace {

using model::DisplayState;
using model::MenuItem;

TEST(MenuItem, ItsLineIsTextAndSuffix) {
  MenuItem item(nullptr, u"a", u"SYM", u"Name");
  EXPECT_EQ(u"Name", item.LineText());
  item.SetSuffix(u"  <5>");
  EXPECT_EQ(u"Name  <5>", item.LineText());
  item.SetLineText(u"Name, <6>");
  EXPECT_EQ(u"Name, <6>", item.LineText());
  EXPECT_EQ(u"", item.Suffix());
}

TEST(MenuItem, ItsPathLeadsThroughTheNamesAboveIt) {
  MenuItem root(nullptr, u"R\\S", u"", u"");
  MenuItem& menu = root.AddChild(u"menu", u"", u"");
  EXPECT_EQ(u"R\\S", root.Path());
  EXPECT_EQ(u"R\\S\\menu", menu.Path());
  EXPECT_EQ(u"R\\S\\menu\\deep\\item", menu.AddChild(u"deep\\item", u"", u"").Path());
  EXPECT_EQ(u"R\\S\\menu\\", menu.AddChild(u"", u"", u"").Path());
  EXPECT_EQ(u"R\\S\\menu\\hkey", menu.AddChild(u"hkey", u"", u"").Path());
}

TEST(MenuItem, ANameWithHkeyIsAPathOfItsOwn) {
  MenuItem root(nullptr, u"R", u"", u"");
  MenuItem& menu = root.AddChild(u"HKEY_LOCAL_MACHINE\\X", u"", u"");
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\X", menu.Path());
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\X\\item", menu.AddChild(u"item", u"", u"").Path());
}

TEST(MenuItem, AMarkReplacesTheFirstColumn) {
  MenuItem item(nullptr, u"a", u" Beep", u" Beep");
  item.SetFirstColumn(u'\u221A');
  EXPECT_EQ(u"\u221ABeep", item.LineText());
  MenuItem empty(nullptr, u"b", u"", u"");
  empty.SetFirstColumn(u' ');
  EXPECT_EQ(u" ", empty.LineText());
}

TEST(MenuItem, ASuffixAfterAWholeLineFollowsTheTitleAgain) {
  MenuItem item(nullptr, u"b", u"b", u"Beep");
  item.SetLineText(u"Beep, <On>");
  EXPECT_EQ(u"Beep, <On>", item.LineText());
  item.SetSuffix(u"  <Off>");
  EXPECT_EQ(u"Beep  <Off>", item.LineText());
  item.SetFirstColumn(u'*');
  item.SetSuffix(u"  <On>");
  EXPECT_EQ(u"*eep  <On>", item.LineText());
}

TEST(MenuItem, ALineEndsWhereNoScreenShowsIt) {
  const WideString title(MenuItem::kLongestLine - 1, u't');
  MenuItem item(nullptr, u"b", u"b", title);
  item.SetSuffix(u"  <On>");
  EXPECT_EQ(title + u" ", item.LineText());
  const WideString longest(MenuItem::kLongestLine, u'l');
  item.SetSuffix(longest + u"l");
  EXPECT_EQ(longest, item.Suffix());
  item.SetLineText(longest + u"l");
  EXPECT_EQ(longest, item.LineText());

  const WideString endless(MenuItem::kLongestLine + 1, u't');
  MenuItem named(nullptr, u"b", u"b", endless);
  named.SetSuffix(u"  <On>");
  named.SetFirstColumn(u'*');
  EXPECT_EQ(u"*" + endless.substr(2), named.LineText());
}

TEST(MenuItem, AnotherKeyTakesTheLineWithIt) {
  MenuItem item(nullptr, u"a", u"a", u"Old");
  item.SetLineText(u"Old, <5>");
  item.SetFirstColumn(u'*');
  item.Rename(u"b", u"b", u"New");
  EXPECT_EQ(u"New", item.LineText());
}

TEST(MenuItem, NormalAndHiddenTravelToTheLinkedItemAndTheOthersDoNot) {
  MenuItem linked(nullptr, u"b", u"b", u"b");
  MenuItem item(nullptr, u"a", u"a", u"a");
  item.SetLinkedItem(&linked);
  item.SetState(DisplayState::kNotDisplayed);
  EXPECT_EQ(DisplayState::kNotDisplayed, linked.State());
  item.SetState(DisplayState::kNoEdit);
  EXPECT_EQ(DisplayState::kNotDisplayed, linked.State());
  item.SetState(DisplayState::kBlank);
  EXPECT_EQ(DisplayState::kNotDisplayed, linked.State());
  item.SetState(DisplayState::kNormal);
  EXPECT_EQ(DisplayState::kNormal, linked.State());
}

TEST(MenuItem, AMenuOfAnyDepthCanBeDestroyed) {
  MenuItem root(nullptr, u"R", u"", u"");
  MenuItem* deepest = &root;
  for (int i = 0; i < 200'000; ++i) deepest = &deepest->AddChild(u"", u"", u"");
  root.RemoveChildren();
  EXPECT_TRUE(root.IsLeaf());
}

}  // namespace
