// Keys that are pressed while the worker still builds the full tree.
#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"
#include "tests/printing.h"
#include "ui/menu_list.h"
#include "ui/private_messages.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

constexpr int kStarts = 50;

void StartAndPressAtOnce(std::string_view keys) {
  const TemporaryRoot root;
  std::filesystem::copy(KEL_DEMONSTRATION, root.Path(), std::filesystem::copy_options::recursive);
  for (int start = 0; start < kStarts; ++start) {
    Keypad keypad;
    keypad.Press(keys);
    keypad.waitsForWorker = false;
    ASSERT_EQ("", RunUtilityOn({root.Path()}, keypad));
    ASSERT_FALSE(keypad.IsStuck());
    ASSERT_EQ(std::vector<std::string>(), keypad.Boxes());
  }
}

// Until the full tree is there the first menu shows entries whose rules have not run. The many keys keep the worker
// busy meanwhile; when it is sooner ready all the same, the digit means the entry behind.
TEST(StartUp, WhatTheRulesHideDoesNotOpen) {
  const TemporaryRoot root;
  std::string menu =
      "<GROUP name=\"R\"><DisplayName>Main Menu</DisplayName>"
      "<GROUP name=\"Hidden\"><DisplayName>Hidden</DisplayName><Dependency>IF Mode EQ 5 THEN NoDisplay</Dependency>"
      "<GROUP name=\"Inner\"><DisplayName>Inner</DisplayName></GROUP></GROUP>"
      "<GROUP name=\"Shown\"><DisplayName>Shown</DisplayName>"
      "<GROUP name=\"Mode\"><DisplayName>Mode</DisplayName><OID>1.1</OID><Type>Integer</Type></GROUP>";
  for (int i = 0; i < 5000; ++i) menu += "<GROUP name=\"K" + std::to_string(i) + "\"><A>b</A></GROUP>";
  root.Write("Windows/ovu.xml", menu + "</GROUP></GROUP>");
  root.Write("device.txt", "1.1\tInteger\t5\n");
  for (int start = 0; start < kStarts / 5; ++start) {
    Keypad keypad;
    keypad.waitsForWorker = false;
    keypad.Press("1");
    keypad.Then([&] {
      const auto list = platform::host::ListStateOf(platform::ControlOf(platform::ActiveWindow(), ui::kMenuListId));
      ASSERT_TRUE(list);
      const WideString first = list->lines.front();
      EXPECT_TRUE(first == u"1  Shown" || first == u"1  Mode  <5>") << base::ToUtf8(first);
    });
    ASSERT_EQ("", RunUtilityOn({root.Path()}, keypad));
  }
}

// The tree is built from the document once, which goes then.
TEST(StartUp, BuildsTheTreeOnceHoweverOftenItIsAsked) {
  const TemporaryRoot root;
  root.Write(
      "Windows/ovu.xml",
      "<GROUP name='R'><DisplayName>Main</DisplayName><GROUP name='a'><DisplayName>A</DisplayName></GROUP></GROUP>");
  Keypad keypad;
  for (int i = 0; i < 2; ++i) {
    keypad.Then([] { platform::Post(platform::ActiveWindow(), ui::private_message::kStartWorker); });
    keypad.Press("{Home}");
  }
  ASSERT_EQ("", RunUtilityOn({root.Path()}, keypad));
  EXPECT_EQ(std::vector<std::string>(), keypad.Boxes());
}

TEST(StartUp, EntersAMenuWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce("{Enter}{Enter}"); }

TEST(StartUp, MovesAndGoesHomeWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce("{Down}{Down}{Enter}{Home}{Enter}"); }

TEST(StartUp, EndsWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce(""); }

}  // namespace
}  // namespace tests
