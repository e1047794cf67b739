// Configurations and devices that nobody in his right mind would write.
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "ui/edit_templates.h"
#include "ui/menu_list.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tests {
namespace {

using platform::WindowHandle;

std::string Property(const std::string& name, const std::string& attributes) {
  return "<GROUP name=\"" + name + "\"><DisplayName>" + name + "</DisplayName>" + attributes + "</GROUP>";
}

std::string Element(const std::string& name, const std::string& text) {
  return "<" + name + ">" + text + "</" + name + ">";
}

class HostileConfiguration : public ::testing::Test {
 protected:
  void PutMenu(const std::string& menu) {
    root.Write("Windows/ovu.xml", "<GROUP name=\"R\"><DisplayName>Main</DisplayName>" + menu + "</GROUP>");
  }

  // Presses the keys of a script; afterwards `lines` are those of the page shown last, and `boxes` were shown.
  void Press(const std::string& script, int mostKeysToLeave = 200) {
    Keypad keypad;
    ASSERT_EQ(0U, PressKeysOf(script, keypad)) << script;
    keypad.Then([this] { TakePage(); });
    keypad.mostKeysToLeave = mostKeysToLeave;
    EXPECT_EQ("", RunUtilityOn({root.Path()}, keypad));
    EXPECT_FALSE(keypad.IsStuck());
    boxes = keypad.Boxes();
  }

  void TakePage() {
    const WindowHandle dialog = platform::ActiveWindow();
    title = base::ToUtf8(platform::TextOf(dialog));
    const auto edit = platform::host::EditStateOf(platform::ControlOf(dialog, ui::kTextEntryId));
    typed = edit ? base::ToUtf8(edit->text) : "";
    const auto list = platform::host::ListStateOf(platform::ControlOf(dialog, ui::kMenuListId));
    lines.clear();
    if (!list) return;
    const int end = std::min(list->top + list->visibleLines, static_cast<int>(list->lines.size()));
    for (int i = list->top; i < end; ++i) lines.push_back(base::ToUtf8(list->lines[static_cast<std::size_t>(i)]));
  }

  TemporaryRoot root;
  std::vector<std::string> lines;
  std::vector<std::string> boxes;
  std::string title;
  std::string typed;
};

TEST_F(HostileConfiguration, AMenuOfTenThousandItemsCanBeWalkedFromBothEnds) {
  std::string menu;
  for (int i = 1; i <= 10'000; ++i) menu += Property("P" + std::to_string(i), "");
  PutMenu(menu);
  Press("key Up");
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const auto& line) { return line.ends_with("P10000"); }));
  Press("key Down Down");
  EXPECT_EQ("1  P1", lines.front());
}

TEST_F(HostileConfiguration, AMenuThatLeadsBackToItselfIsEnteredOnce) {
  root.Write("Windows/ovu.xml",
             "<GROUP name=\"HKEYR\"><DisplayName>Main</DisplayName>"
             "<GROUP name=\"Sub\"><DisplayName>Sub</DisplayName><GROUP name=\"HKEYR\"><DisplayName>Again</DisplayName>"
             "</GROUP>" +
                 Property("Leaf", "<OID>1.1</OID><Type>Integer</Type>") + "</GROUP>" +
                 Property("Store", "<Function>StoreConfig</Function>") +
                 Property("Restore", "<Function>RestoreDefaults</Function>") +
                 Property("Summary", "<Function>Summary</Function>") + "</GROUP>");
  root.Write("device.txt", "1.1\tInteger\t5\n");
  Press("key 2 3 4 Esc 1");
  EXPECT_EQ("1  Leaf  <5>", lines.front());
  EXPECT_FALSE(root.Read("CfgSettings.txt").empty());
}

TEST_F(HostileConfiguration, TwoMenusThatLeadToOneAnotherEnd) {
  root.Write("Windows/ovu.xml",
             "<GROUP name=\"R\"><DisplayName>Main</DisplayName><GROUP name=\"HKEYA\"><DisplayName>A</DisplayName>"
             "<GROUP name=\"HKEYB\"><DisplayName>B</DisplayName><GROUP name=\"HKEYA\"></GROUP></GROUP></GROUP>"
             "<GROUP name=\"HKEYB\"><DisplayName>B</DisplayName><GROUP name=\"HKEYA\"></GROUP></GROUP>" +
                 Property("Store", "<Function>StoreConfig</Function>") +
                 Property("Restore", "<Function>RestoreDefaults</Function>") + "</GROUP>");
  Press("key 3 4 1 1 1 1 1 1");
  SUCCEED();
}

TEST_F(HostileConfiguration, TenThousandLevelsAreNoDeeperThanTheMemory) {
  constexpr int kLevels = 10'000;
  std::string menu;
  for (int i = 0; i < kLevels; ++i) menu += "<GROUP name=\"a\">";
  for (int i = 0; i < kLevels; ++i) menu += "</GROUP>";
  PutMenu(menu);
  Press("key Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter");
  EXPECT_EQ("1  ", lines.front());
}

TEST_F(HostileConfiguration, FiveThousandRulesOfOneItemAreAllAsked) {
  std::string rules = Element("Dependency", "IF Mode EQ 1 THEN Display");
  for (int i = 1; i < 5000; ++i) {
    rules +=
        Element("Dependency" + std::to_string(i), i == 4999 ? "IF Mode EQ 1 THEN NoDisplay" : "1.1|Integer|1|Blank");
  }
  PutMenu(Property("Mode", "<OID>1.1</OID><Type>Integer</Type>") +
          Property("Ruled", "<OID>1.2</OID><Type>Integer</Type>" + rules));
  root.Write("device.txt", "1.1\tInteger\t1\n1.2\tInteger\t1\n");
  Press("key Down");
  EXPECT_EQ("1  Mode  <1>", lines.front());
  EXPECT_TRUE(std::none_of(lines.begin(), lines.end(), [](const auto& l) { return l.find("Ruled") != l.npos; }));
}

TEST_F(HostileConfiguration, AttributesOfAHundredThousandCharactersAreTakenAsTheyAre) {
  const std::string large(100'000, 'x');
  std::string choices;
  while (choices.size() < 100'000) choices += std::to_string(choices.size()) + "#Choice|";
  std::string range;
  while (range.size() < 100'000) range += "1-99,";
  PutMenu("<GROUP name=\"Large\">" + Element("DisplayName", large) + Element("ShortDesc", large) +
          "<OID>1.1</OID><Type>Octet String</Type>" + Element("TextFmt", large) + Element("Dependency", large) +
          Element("_OnExit", large) + Element("_OnError", large) + Element("Event", large) + "</GROUP>" +
          Property("Choices", "<OID>1.2</OID><Type>Integer</Type>" + Element("ChoiceFmt", choices)) +
          Property("Ranged", "<OID>1.3</OID><Type>Integer</Type>" + Element("Range", range)) +
          Property("Unknown", Element("OID", large) + Element("Type", large)) +
          Property("Started", Element("AppName", large)));
  root.Write("device.txt", "1.1\tOctet String\t5\n1.2\tInteger\t0\n1.3\tInteger\t5\n");
  Press("key 1\ntype ab\nkey Enter 2 Down Enter 3\ntype 7\nkey Enter 4 5");
  EXPECT_EQ("3  Ranged  <7>", lines[2]);
  EXPECT_NE("", root.Read("device.txt"));
}

TEST_F(HostileConfiguration, ControlCharactersInATitleAreShownAsText) {
  PutMenu("<GROUP name=\"A\">" + Element("DisplayName", "a\x01\x07\x1b[31m\r\nb") +
          Property("Leaf", "<OID>1.1</OID><Type>Octet String</Type>") + "</GROUP>");
  root.Write("device.txt", "1.1\tOctet String\t\\u0000\\u001B\\t\\n\\uD800\n");
  Press("key Enter");
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(lines.front().starts_with("1  Leaf  <")) << lines.front();
}

TEST_F(HostileConfiguration, NumbersFarOutOfRangeHoldAtTheEndsOfTheirType) {
  const std::string huge = "99999999999999999999";
  PutMenu(Property("Ordered", Element("Ordinal", huge) + "<OID>1.1</OID><Type>Integer</Type>" +
                                  Element("MaxChars", huge) + Element("Range", "-" + huge + "-" + huge)) +
          Property("Before", Element("Ordinal", "-" + huge) + "<OID>1.2</OID><Type>Octet String</Type>" +
                                 Element("MaxChars", "-" + huge)) +
          Property("Command", Element("Ordinal", "7") + "<OID>1.3</OID><Type>ReaderCmd</Type>" +
                                  Element("CmdString", huge + ",-5," + huge + ",2147483647,2147483647") +
                                  Element("DefVal", "abc") + Element("Dependency", "1.3|ReaderCmd|-" + huge)) +
          Property("Field", Element("Ordinal", "8") + "<CmdOID>1.3:" + huge + "</CmdOID><Type>Integer</Type>") +
          Property("Third", Element("Ordinal", "8") + "<CmdOID>1.3:3</CmdOID><Type>Integer</Type>") +
          Property("Negative", Element("Ordinal", "8") + "<CmdOID>1.3:-1</CmdOID><Type>Integer</Type>") +
          Property("Restore", Element("Ordinal", "9") + "<Function>RestoreDefaults</Function>"));
  root.Write("device.txt", "1.1\tInteger\t99999999999999\n1.2\tOctet String\tabc\n1.3\tReaderCmd\t1234567\n");
  Press("key 1\ntype x\nkey Enter 4\ntype 1\nkey Enter 5\ntype 2\nkey Enter 6\ntype 3\nkey Enter 2\ntype 5\nkey Enter");
  ASSERT_LT(6U, lines.size());
  Press("key Home 3 Esc 7 Esc Esc");
}

TEST_F(HostileConfiguration, ARangeWhoseTableIsMissingRefusesEveryValue) {
  PutMenu(Property("Ranged", "<OID>1.1</OID><Type>Integer</Type><Range>Table,NONE,Nothing</Range>") +
          Property("Odd", "<OID>1.2</OID><Type>Integer</Type><Range>Table,</Range>"));
  root.Write("device.txt", "1.1\tInteger\t5\n1.2\tInteger\t5\n");
  Press("key 1\ntype 7\nkey Enter Esc 2\ntype 7\nkey Enter Esc");
  const std::string refused = "Error: Cannot perform range test.  Range table not found.";
  EXPECT_EQ((std::vector<std::string>{refused, refused}), boxes);
  EXPECT_EQ("1.1\tInteger\t5\n1.2\tInteger\t5\n", root.Read("device.txt"));
}

TEST_F(HostileConfiguration, AMillionCharactersFromTheDeviceCanBeEdited) {
  const std::string large(1'000'000, 'v');
  PutMenu(Property("Text", "<OID>1.1</OID><Type>Octet String</Type>") +
          Property("Number", "<OID>1.2</OID><Type>Integer</Type>") +
          Property("Key", "<OID>1.3</OID><Type>Hex</Type><WEP>Encrypted</WEP>") +
          Property("Secret", "<OID>1.4</OID><Type>Password</Type><PassWordChar>*</PassWordChar>") +
          Property("Address", "<OID>1.5</OID><Type>IP Address</Type>") +
          Property("Choice", "<OID>1.6</OID><Type>Octet String</Type><ChoiceFmt>a#A|b#B</ChoiceFmt>") +
          Property("Summary", "<Function>Summary</Function>") + Property("Store", "<Function>StoreConfig</Function>"));
  std::string device;
  for (int i = 1; i <= 6; ++i) {
    device += "1." + std::to_string(i) + "\tOctet String\t" + large.substr(0, i <= 2 ? large.size() : 50'000) + "\n";
  }
  root.Write("device.txt", device);
  Press("key 1 End\ntype w\nkey Enter 2\ntype 1\nkey Enter 3\ntype a\nkey Esc 4 Esc 5 Esc 6 Esc 7 Down Esc 8");
  ASSERT_LT(1U, lines.size());
  EXPECT_EQ("2  Number  <1>", lines[1]);
  EXPECT_LT(large.size(), root.Read("CfgSettings.txt").size());
}

TEST_F(HostileConfiguration, APropertyThatIsAFieldAsWellIsTheField) {
  PutMenu(Property("Command", "<OID>1.1</OID><Type>ReaderCmd</Type><CmdString>2,1,1</CmdString>") +
          Property("Both", "<Ordinal>5</Ordinal><OID>1.2</OID><CmdOID>1.1:2</CmdOID><Type>Integer</Type>") +
          Property("Orphan", "<Ordinal>6</Ordinal><CmdOID>9.9:1</CmdOID><Type>Integer</Type>") +
          Property("Own", "<Ordinal>7</Ordinal><OID>1.3</OID><CmdOID>1.3:1</CmdOID><Type>Integer</Type>"));
  root.Write("device.txt", "1.1\tReaderCmd\t12\n1.2\tInteger\t7\n1.3\tInteger\t3\n");
  Press("key 2\ntype 9\nkey Enter 3\ntype 4\nkey Enter 4\ntype 4\nkey Enter");
  EXPECT_EQ("2  Both  <9>", lines[1]);
  EXPECT_EQ("1.1\tReaderCmd\t19\n1.2\tInteger\t7\n1.3\tInteger\t3\n", root.Read("device.txt"));
}

TEST_F(HostileConfiguration, OneOidUnderSeveralNamesIsEditedUnderEach) {
  std::string menu;
  for (int i = 1; i <= 5; ++i) {
    menu += Property("P" + std::to_string(i),
                     "<OID>1.1</OID><Type>Integer</Type><_OnExit>Refresh</_OnExit>"
                     "<Dependency>IF P1 EQ 7 THEN Refresh</Dependency>");
  }
  PutMenu(menu);
  root.Write("device.txt", "1.1\tInteger\t5\n");
  Press("key 1\ntype 6\nkey Enter 3\ntype 7\nkey Enter 5\ntype 8\nkey Enter");
  EXPECT_EQ("1.1\tInteger\t8\n", root.Read("device.txt"));
}

TEST_F(HostileConfiguration, AStorageWithABrokenLineIsNamedInOneLine) {
  PutMenu("");
  const struct {
    const char* file;
    const char* bytes;
    const char* problem;
  } cases[] = {
      {"device.txt", "1.1\tInteger\t5\nnonsense\n", "device.txt:2: "},
      {"registry.reg", "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\A]\n\"a=\n", "registry.reg:4: "},
      {"tables.txt", "ONE\tTWO\n", "tables.txt:1: "},
  };
  for (const auto& c : cases) {
    root.Write(c.file, c.bytes);
    Keypad keypad;
    const std::string problem = RunUtilityOn({root.Path()}, keypad);
    EXPECT_NE(std::string::npos, problem.find(c.problem)) << problem;
    EXPECT_EQ(std::string::npos, problem.find('\n'));
    EXPECT_EQ(c.bytes, root.Read(c.file));
    std::filesystem::remove(root.Path() / c.file);
  }
}

}  // namespace
}  // namespace tests
