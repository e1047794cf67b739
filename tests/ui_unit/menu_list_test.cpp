#include "ui/menu_list.h"

#include "base/number.h"
#include "tests/printing.h"
#include "tests/support/named_items.h"
#include "tests/support/test_terminal.h"
#include "ui/private_messages.h"

#include <string>

namespace {

using model::MenuItem;
using platform::LResult;
using platform::Message;
using platform::WindowHandle;
using namespace ui::private_message;

// The main screen's side of the conversation, with a log of what the list asked.
class Owner final : public platform::MessageHandler {
 public:
  explicit Owner(std::string& log) : log_(log) {}

  std::optional<LResult> OnMessage(WindowHandle, const Message& message) override {
    const auto* item = platform::FromParam<MenuItem>(message.lParam);
    switch (message.id) {
      case kMayEnterItem: return Question("enter", message, mayEnter);
      case kMayLeaveMenu: return Question("leave", message, mayLeave);
      case kActivateItem: log_ += "activate " + base::ToUtf8(item->Title()) + ";"; return 0;
      case kEvaluateItem: log_ += "rule " + base::ToUtf8(item->Title()) + ";"; return 0;
      case kBeforeFill: log_ += "fill " + base::ToUtf8(item->Title()) + ";"; return 0;
      case kFlipToggle: log_ += "insert;"; return 0;
      case kLeavingRoot: log_ += "leaving root;"; return 0;
      case kRebuildModel: log_ += "rebuild;"; return 0;
      case platform::message::kKeyDown: log_ += "key " + std::to_string(message.wParam) + ";"; return 0;
      default: return std::nullopt;
    }
  }

  bool mayEnter = true;
  bool mayLeave = true;

 private:
  LResult Question(const char* name, const Message& message, bool answer) {
    log_ += std::string(name) + " " + base::ToUtf8(platform::FromParam<MenuItem>(message.lParam)->Title()) + ";";
    *platform::FromParam<int>(message.wParam) = answer ? 1 : 0;
    return 0;
  }

  std::string& log_;
};

class MenuListTest : public testing::Test {
 protected:
  void SetUp() override {
    platform::RegisterWindowClass({.name = u"Owner", .make = [this](WindowHandle) {
                                     auto owner = std::make_unique<Owner>(log_);
                                     owner_ = owner.get();
                                     return owner;
                                   }});
    window_ = platform::MakeWindow({.className = u"Owner",
                                    .style = platform::style::kPopup | platform::style::kVisible,
                                    .width = 240,
                                    .height = 300});
    title_ = platform::MakeWindow({.className = u"Static",
                                   .style = platform::style::kChild | platform::style::kVisible,
                                   .width = 200,
                                   .height = 20,
                                   .parent = window_,
                                   .id = 1014});
  }

  void ShowMenuOf(int count) {
    for (int i = 1; i <= count; ++i) Add(root_, u"a" + base::ToText(i));
    ShowRoot();
  }

  static MenuItem& Add(MenuItem& menu, const WideString& name) { return tests::AddNamed(menu, name); }

  void ShowRoot() {
    ASSERT_TRUE(list_.Create(window_, root_, title_, {.x = 10, .y = 30, .width = 210, .height = 180}));
    ASSERT_TRUE(list_.Show(root_));
    log_.clear();
  }

  // With 20 items: the list box's own keys leave the list between the second page and the third.
  void GoBetweenPagesTwoAndThree() {
    for (int i = 0; i < 2; ++i) Key(platform::key::kPageDown);
    ASSERT_EQ("8/16 8  a15", At());
    Key(platform::key::kPageDown);
    ASSERT_EQ("16/24 ", At());
  }

  void Key(std::uint16_t key) { platform::Send(list_.Handle(), platform::message::kKeyDown, key); }
  void Type(char16_t character) { platform::Send(list_.Handle(), platform::message::kChar, character); }

  platform::ListBox Box() const { return platform::ListBox(list_.Handle()); }
  // "TOP/LINE TEXT" of the selection.
  std::string At() const {
    return std::to_string(Box().Top()) + "/" + std::to_string(Box().Selected()) + " " +
           base::ToUtf8(Box().Line(Box().Selected()));
  }

  tests::TestTerminal terminal_;
  std::string log_;
  Owner* owner_ = nullptr;
  WindowHandle window_ = nullptr;
  WindowHandle title_ = nullptr;
  MenuItem root_{nullptr, u"R", u"Root", u"Root"};
  ui::MenuList list_;
};

namespace key = platform::key;

TEST_F(MenuListTest, TheListHoldsNineLinesAndTheTitleLineItsMenu) {
  ShowMenuOf(3);
  EXPECT_EQ(u"Root", platform::TextOf(title_));
  EXPECT_EQ(9, platform::ClientRect(list_.Handle()).Height() / Box().ItemHeight());
  EXPECT_EQ("0/0 1  a1", At());
  EXPECT_EQ(list_.Handle(), platform::FocusedWindow());
}

TEST_F(MenuListTest, TheTitleLineIsTheRootMenusBeforeAnythingIsShown) {
  ASSERT_TRUE(list_.Create(window_, root_, title_, {.x = 10, .y = 30, .width = 210, .height = 180}));
  EXPECT_EQ(u"Root", platform::TextOf(title_));
  EXPECT_EQ(0, Box().Count());
}

TEST_F(MenuListTest, RulesRunOncePerNumberedItemAndThenForTheMenu) {
  Add(root_, u"a");
  Add(root_, u"heading").list.nonSelectable = true;
  Add(root_, u"b");
  ASSERT_TRUE(list_.Create(window_, root_, title_, {.x = 10, .y = 30, .width = 210, .height = 180}));
  list_.Show(root_);
  EXPECT_EQ("rule a;rule b;fill Root;", log_);
}

TEST_F(MenuListTest, DownOnMoreShowsTheNextPageFromItsFirstLine) {
  ShowMenuOf(20);
  for (int i = 0; i < 8; ++i) Key(key::kDown);
  EXPECT_EQ("0/8 9  More...", At());
  Key(key::kDown);
  EXPECT_EQ("9/9 1  ...Back", At());
}

TEST_F(MenuListTest, DownPastTheLastLineReturnsToTheFirstPage) {
  ShowMenuOf(10);
  for (int i = 0; i < 11; ++i) Key(key::kDown);
  EXPECT_EQ("9/11 3  a10", At());
  Key(key::kDown);
  EXPECT_EQ("0/0 1  a1", At());
}

TEST_F(MenuListTest, UpBeforeLineZeroGoesToTheLastLineOfTheLastPage) {
  ShowMenuOf(20);
  Key(key::kUp);
  EXPECT_EQ("18/23 6  a20", At());
}

TEST_F(MenuListTest, UpOnBackShowsThePreviousPageFromItsLastLine) {
  ShowMenuOf(20);
  for (int i = 0; i < 9; ++i) Key(key::kDown);
  Key(key::kUp);
  EXPECT_EQ("0/8 9  More...", At());
}

TEST_F(MenuListTest, EnterOnMoreSelectsTheNextPagesLastLine) {
  ShowMenuOf(20);
  Type(u'9');
  EXPECT_EQ("9/17 9  More...", At());
  Type(u'9');
  EXPECT_EQ("18/23 6  a20", At());
}

TEST_F(MenuListTest, EnterOnBackSelectsThePreviousPagesFirstLine) {
  ShowMenuOf(20);
  Type(u'9');
  Type(u'9');
  Type(u'1');
  EXPECT_EQ("9/9 1  ...Back", At());
  Type(u'1');
  EXPECT_EQ("0/0 1  a1", At());
  EXPECT_EQ("", log_);
}

TEST_F(MenuListTest, AfterAKeyOfTheProgramsOwnTheTopIsAPagesFirstLine) {
  ShowMenuOf(20);
  owner_->mayEnter = false;
  const struct {
    std::uint16_t key;
    const char* after;
  } cases[] = {{key::kUp, "9/15 7  a14"}, {key::kDown, "9/17 9  More..."}, {key::kEnter, "9/16 8  a15"}};
  for (const auto& c : cases) {
    Key(key::kHome);
    list_.Show(root_);
    for (const std::uint16_t page : {key::kPageDown, key::kPageDown}) Key(page);
    ASSERT_EQ("8/16 8  a15", At());
    Key(c.key);
    EXPECT_EQ(c.after, At());
    list_.Reset(root_);
    list_.Show(root_);
  }
}

TEST_F(MenuListTest, ADigitThatHitsALineBelowTheTopOfAPageTurnsToIt) {
  ShowMenuOf(20);
  owner_->mayEnter = false;
  for (const std::uint16_t page : {key::kPageDown, key::kPageDown}) Key(page);
  ASSERT_EQ("8/16 8  a15", At());
  Type(u'3');
  EXPECT_EQ("9/11 3  a10", At());
}

TEST_F(MenuListTest, EndOnPaddingAndUpShowTheWholeFirstPage) {
  ShowMenuOf(9);
  Key(key::kEnd);
  EXPECT_EQ("9/17 ", At());
  Key(key::kUp);
  EXPECT_EQ("0/8 9  a9", At());
}

TEST_F(MenuListTest, APlainListScrollsLineByLine) {
  for (int i = 1; i <= 12; ++i) Add(root_, u"a" + base::ToText(i));
  root_.list.numbered = false;
  ShowRoot();
  for (int i = 0; i < 9; ++i) Key(key::kDown);
  EXPECT_EQ("1/9 a10", At());
}

TEST_F(MenuListTest, TabMovesDownAndTheListBoxSeesItToo) {
  ShowMenuOf(3);
  Key(key::kTab);
  EXPECT_EQ("0/1 2  a2", At());
}

TEST_F(MenuListTest, LeftAndRightAreSwallowed) {
  ShowMenuOf(3);
  Key(key::kRight);
  Key(key::kLeft);
  EXPECT_EQ("0/0 1  a1", At());
}

TEST_F(MenuListTest, ADigitSelectsALineOfThePageAndEntersIt) {
  ShowMenuOf(3);
  Type(u'2');
  EXPECT_EQ("0/1 2  a2", At());
  EXPECT_EQ("enter a2;activate a2;", log_);
}

TEST_F(MenuListTest, ADigitOfAnotherPageDoesNothing) {
  ShowMenuOf(11);
  Type(u'9');  // the second page has four lines
  log_.clear();
  const std::string before = At();
  Type(u'8');
  EXPECT_EQ(before, At());
  EXPECT_EQ("", log_);
}

TEST_F(MenuListTest, AMenuThatMayNotBeEnteredStaysClosed) {
  Add(Add(root_, u"sub"), u"x");
  ShowRoot();
  owner_->mayEnter = false;
  Key(key::kEnter);
  EXPECT_EQ("enter sub;", log_);
  EXPECT_EQ(&root_, list_.Menu());
}

TEST_F(MenuListTest, AnEmptySubMenuIsRefused) {
  ShowMenuOf(1);
  EXPECT_FALSE(list_.Show(*root_.Children()[0]));
  EXPECT_EQ(&root_, list_.Menu());
}

TEST_F(MenuListTest, ALeafWithItsEntryFlagIsActivatedAndThenRefusedForWantOfChildren) {
  ShowMenuOf(1);
  root_.Children()[0]->list.entryFlag = true;
  Key(key::kEnter);
  EXPECT_EQ("enter a1;activate a1;", log_);
  EXPECT_EQ(&root_, list_.Menu());
}

TEST_F(MenuListTest, AMenuComesBackAsItWasLeftButEscForgetsTheOneThatIsLeft) {
  MenuItem& sub = Add(root_, u"s1");
  for (int i = 0; i < 12; ++i) Add(root_, u"b" + base::ToText(i));
  for (int i = 0; i < 3; ++i) Add(sub, u"x" + base::ToText(i));
  MenuItem& last = *root_.Children().back();
  Add(last, u"y");
  ShowRoot();
  Type(u'9');
  Key(key::kEnter);  // the last item, on the second page
  EXPECT_EQ(&last, list_.Menu());
  EXPECT_EQ(u"b11", platform::TextOf(title_));
  Key(key::kEscape);
  EXPECT_EQ(&root_, list_.Menu());
  EXPECT_EQ("9/14 6  b11", At());
  EXPECT_EQ(0, last.list.selectedLine);
}

TEST_F(MenuListTest, EscInAMenuThatMayNotBeLeftStays) {
  Add(Add(root_, u"sub"), u"x");
  ShowRoot();
  Key(key::kEnter);
  owner_->mayLeave = false;
  Key(key::kEscape);
  EXPECT_EQ(root_.Children()[0].get(), list_.Menu());
}

TEST_F(MenuListTest, EscAtTheRootLeavesTheProgram) {
  ShowMenuOf(1);
  Key(key::kEscape);
  EXPECT_EQ("leave Root;leaving root;", log_);
}

TEST_F(MenuListTest, HeadingsAreNeverSelected) {
  Add(root_, u"h0").list.nonSelectable = true;
  Add(root_, u"a");
  Add(root_, u"h1").list.nonSelectable = true;
  Add(root_, u"h2").list.nonSelectable = true;
  Add(root_, u"b");
  ShowRoot();
  EXPECT_EQ("0/1 1  a", At());
  Key(key::kDown);
  EXPECT_EQ("0/4 2  b", At());
  Key(key::kDown);
  EXPECT_EQ("0/1 1  a", At());
  Key(key::kUp);
  EXPECT_EQ("0/4 2  b", At());
  Key(key::kUp);
  EXPECT_EQ("0/1 1  a", At());
}

TEST_F(MenuListTest, HeadingsAtTheEndAreNeverSelected) {
  for (const bool numbered : {true, false}) {
    MenuItem menu(nullptr, u"M", u"Menu", u"Menu");
    menu.list.numbered = numbered;
    for (const WideStringView name : {u"a", u"b"}) Add(menu, WideString(name));
    for (const WideStringView name : {u"h1", u"h2"}) Add(menu, WideString(name)).list.nonSelectable = true;
    ui::MenuList list;
    ASSERT_TRUE(list.Create(window_, menu, title_, {.x = 10, .y = 30, .width = 210, .height = 180}));
    ASSERT_TRUE(list.Show(menu));
    const platform::ListBox box(list.Handle());
    platform::Send(list.Handle(), platform::message::kKeyDown, key::kUp);
    EXPECT_EQ(1, box.Selected());
    platform::Send(list.Handle(), platform::message::kKeyDown, key::kDown);
    EXPECT_EQ(0, box.Selected());
  }
}

TEST_F(MenuListTest, TheLineAboveStandsInForARememberedOneThatIsAHeadingNow) {
  Add(root_, u"a1");
  Add(root_, u"h").list.nonSelectable = true;
  Add(root_, u"a2");
  root_.list.selectedLine = 1;
  ShowRoot();
  EXPECT_EQ("0/0 1  a1", At());
}

TEST_F(MenuListTest, HasThreeLinesHoweverLowItIs) {
  for (int i = 1; i <= 6; ++i) Add(root_, u"a" + base::ToText(i));
  ASSERT_TRUE(list_.Create(window_, root_, title_, {.x = 10, .y = 30, .width = 210, .height = 20}));
  ASSERT_TRUE(list_.Show(root_));
  const WideString third = Box().Line(2);
  EXPECT_NE(WideString::npos, third.find(u"More")) << base::ToUtf8(third);
}

TEST_F(MenuListTest, AMenuOfHeadingsHasNothingToSelect) {
  Add(root_, u"h").list.nonSelectable = true;
  ShowRoot();
  for (const std::uint16_t virtualKey : {key::kDown, key::kUp, key::kTab}) {
    Key(virtualKey);
    EXPECT_EQ(-1, Box().Selected());
  }
}

TEST_F(MenuListTest, ADigitEntersNoHeading) {
  Add(root_, u"2 kinds of keys:").list.nonSelectable = true;
  Add(root_, u"a");
  Add(root_, u"b");
  ShowRoot();
  Type(u'2');
  EXPECT_EQ("0/2 2  b", At());
  EXPECT_EQ("enter b;activate b;", log_);
  log_.clear();
  Type(u'3');
  EXPECT_EQ("", log_);
}

TEST_F(MenuListTest, AnItemThatIsNoLongerDisplayedIsRefusedAndItsLineGoes) {
  ShowMenuOf(3);
  owner_->mayEnter = false;
  root_.Children()[1]->SetState(model::DisplayState::kNotDisplayed);
  Type(u'2');
  EXPECT_EQ(u"2  a3", Box().Line(1));
}

TEST_F(MenuListTest, TheEmptyLineAboveMoreIsSkipped) {
  for (int i = 1; i <= 12; ++i) Add(root_, u"a" + base::ToText(i));
  root_.Children()[7]->list.keepWithNext = true;
  ShowRoot();
  for (int i = 0; i < 7; ++i) Key(key::kDown);
  EXPECT_EQ("0/8 9  More...", At());
  Key(key::kUp);
  EXPECT_EQ("0/6 7  a7", At());
}

TEST_F(MenuListTest, HomeAndFunctionKeysGoToTheOwnerAndInsertIsReported) {
  ShowMenuOf(1);
  for (const std::uint16_t virtualKey : {key::kHome, key::kF1, key::kF2, key::kF3, key::kF4, key::kInsert}) {
    Key(virtualKey);
  }
  EXPECT_EQ("key 36;key 112;key 113;key 114;key 115;insert;", log_);
}

TEST_F(MenuListTest, ALineIsRewrittenBehindItsNumber) {
  ShowMenuOf(2);
  MenuItem& item = *root_.Children()[1];
  item.SetSuffix(u"  <7>");
  list_.UpdateLine(item);
  EXPECT_EQ(u"2  a2  <7>", Box().Line(1));
  EXPECT_EQ("0/0 1  a1", At());
}

TEST_F(MenuListTest, ARefillKeepsPageAndSelection) {
  ShowMenuOf(20);
  Type(u'9');
  Key(key::kUp);
  const std::string before = At();
  list_.Refill();
  EXPECT_EQ(before, At());
}

TEST_F(MenuListTest, ReplacedItemsAreFoundAgainByPath) {
  for (int i = 1; i <= 10; ++i) Add(root_, u"a" + base::ToText(i));
  ShowRoot();
  Type(u'9');
  EXPECT_EQ("9/11 3  a10", At());
  list_.ItemsWillBeReplaced();
  root_.RemoveChildren();
  Add(root_, u"new");
  for (int i = 1; i <= 10; ++i) Add(root_, u"a" + base::ToText(i));
  list_.ItemsWereReplaced();
  EXPECT_EQ("9/12 4  a10", At());
}

// What a replacement leaves of 20 items, and where the list then stands.
TEST_F(MenuListTest, PageLineAndKindOutliveAReplacementOfTheItems) {
  const struct {
    std::vector<std::uint16_t> keys;
    int left;
    const char* after;
  } cases[] = {
      {{key::kEnd}, 20, "18/23 6  a20"},  // from the padding to the last line
      {{key::kUp, key::kUp, key::kUp, key::kUp, key::kUp, key::kUp}, 20, "18/18 1  ...Back"},
      {{key::kUp, key::kUp, key::kUp, key::kUp, key::kUp, key::kUp, key::kUp}, 20, "9/17 9  More..."},
      {{key::kUp, key::kUp, key::kUp, key::kUp, key::kUp, key::kUp, key::kUp}, 12, "0/8 9  More..."},
      {{key::kUp, key::kUp, key::kUp, key::kUp, key::kUp, key::kUp, key::kUp}, 5, "0/4 5  a5"},
      {{key::kUp}, 12, "9/13 5  a12"},
      {{key::kPageDown, key::kPageDown}, 20, "8/16 8  a15"},  // between two pages, as it was
  };
  for (const auto& c : cases) {
    root_.RemoveChildren();
    root_.list = {};
    for (int i = 1; i <= 20; ++i) Add(root_, u"a" + base::ToText(i));
    ui::MenuList list;
    ASSERT_TRUE(list.Create(window_, root_, title_, {.x = 10, .y = 30, .width = 210, .height = 180}));
    ASSERT_TRUE(list.Show(root_));
    for (const std::uint16_t each : c.keys) platform::Send(list.Handle(), platform::message::kKeyDown, each);
    list.ItemsWillBeReplaced();
    root_.RemoveChildren();
    for (int i = 1; i <= c.left; ++i) Add(root_, u"a" + base::ToText(i));
    list.ItemsWereReplaced();
    const platform::ListBox box(list.Handle());
    EXPECT_EQ(c.after, std::to_string(box.Top()) + "/" + std::to_string(box.Selected()) + " " +
                           base::ToUtf8(box.Line(box.Selected())));
  }
}

TEST_F(MenuListTest, AfterAReplacementADigitMeansTheLineThatWasThere) {
  ShowMenuOf(20);
  Type(u'9');  // the second page, "More..." selected
  list_.ItemsWillBeReplaced();
  root_.RemoveChildren();
  for (int i = 1; i <= 20; ++i) Add(root_, u"a" + base::ToText(i));
  list_.ItemsWereReplaced();
  log_.clear();
  Type(u'3');
  EXPECT_EQ("enter a10;activate a10;", log_);
}

TEST_F(MenuListTest, AMenuThatIsGoneGivesWayToTheOneAbove) {
  Add(Add(root_, u"sub"), u"x");
  ShowRoot();
  Key(key::kEnter);
  list_.ItemsWillBeReplaced();
  root_.RemoveChildren();
  Add(root_, u"other");
  list_.ItemsWereReplaced();
  EXPECT_EQ(&root_, list_.Menu());
  EXPECT_EQ("0/0 1  other", At());
}

TEST_F(MenuListTest, ThePageAndItsThumbFollowTheSelection) {
  ShowMenuOf(20);  // three pages
  EXPECT_EQ(0, ui::CurrentScrollThumb().top);
  Type(u'9');
  EXPECT_EQ(41, ui::CurrentScrollThumb().top);
  EXPECT_EQ(42, ui::CurrentScrollThumb().length);
}

TEST_F(MenuListTest, TheThumbFollowsAMoveToAFirstLetter) {
  for (int i = 1; i <= 19; ++i) Add(root_, u"a" + base::ToText(i));
  Add(root_, u"z");
  root_.list.numbered = false;
  ShowRoot();
  Type(u'z');
  EXPECT_EQ("11/19 z", At());
  EXPECT_EQ(82, ui::CurrentScrollThumb().top);
}

TEST_F(MenuListTest, TheThumbFollowsAClick) {
  ShowMenuOf(20);
  owner_->mayEnter = false;
  GoBetweenPagesTwoAndThree();
  EXPECT_EQ(82, ui::CurrentScrollThumb().top);
  platform::Send(list_.Handle(), platform::message::kLeftButtonDown);
  platform::Send(list_.Handle(), platform::message::kLeftButtonUp);
  EXPECT_EQ("9/16 8  a15", At());
  EXPECT_EQ(41, ui::CurrentScrollThumb().top);
}

}  // namespace
