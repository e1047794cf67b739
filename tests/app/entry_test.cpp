#include "app/entry.h"

#include "tests/printing.h"
#include "tests/support/test_terminal.h"

namespace {

// What a second start does: the index of the program that it brought forward, or -1 and a first start.
int BroughtForward(std::vector<WideString> titles) {
  tests::TestTerminal terminal;
  auto& environment = platform::host::CurrentEnvironment();
  environment.otherWindows = std::move(titles);
  int forward = -1;
  environment.bringOtherForward = [&](std::size_t index) { forward = static_cast<int>(index); };
  const app::RunReport report = app::RunUtility(u"");
  EXPECT_EQ(forward >= 0, report.isLoaded);
  // Without a configuration a first start shows a box and ends; a second one shows nothing.
  EXPECT_EQ(forward < 0 ? 1u : 0u, terminal.TakeSystemBoxes().size());
  return forward;
}

TEST(Entry, ARunningInstanceIsKnownByItsWholeTitle) {
  EXPECT_EQ(-1, BroughtForward({}));
  EXPECT_EQ(0, BroughtForward({u"Configuration Utility"}));
  EXPECT_EQ(-1, BroughtForward({u"Configuration Utility 2"}));
  EXPECT_EQ(-1, BroughtForward({u"configuration utility"}));
  EXPECT_EQ(-1, BroughtForward({u"", u"My Configuration Utility"}));
  EXPECT_EQ(2, BroughtForward({u"", u"Clock", u"Configuration Utility", u"Configuration Utility"}));
}

TEST(Entry, OnlyTheFirst260CharactersOfATitleCount) {
  const WideString title = u"Configuration Utility";
  EXPECT_EQ(-1, BroughtForward({title + WideString(300, u' ')}));
}

}  // namespace
