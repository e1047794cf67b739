#include "authoring/values_that_matter.h"

#include "authoring/trial.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

namespace {

// "1 0 (4)": the values that matter, the one that stands for all others in parentheses, "-" for an empty one.
std::string ValuesOf(const std::string& attributes, const std::vector<WideString>& wanted,
                     const std::string& device = "1.1\tInteger\t1\n", const std::string& more = {}) {
  tests::StorageFolder folder;
  folder.WriteMenu("<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID>" + attributes + "</GROUP>" + more);
  folder.Write("device.txt", device);
  const auto configuration = folder.Load();
  const authoring::Trial trial(*configuration);
  const authoring::Survey survey(*configuration);
  const auto matter = authoring::ValuesThatMatter(survey, u"1.1", trial.Model().FindDescriptor(u"1.1"), wanted);
  std::string text;
  for (const WideString& value : matter.values) {
    const std::string said = value.empty() ? "-" : base::ToUtf8(value);
    text += (text.empty() ? "" : " ") + (matter.other == value ? "(" + said + ")" : said);
  }
  return text;
}

TEST(ValuesThatMatter, AreAllThatAPropertyComesDownTo) {
  const std::string integer = "<Type>Integer</Type>";
  const std::string choices = "<ChoiceFmt>1#One|2#Two</ChoiceFmt>";
  const struct {
    std::string attributes;
    std::vector<WideString> wanted;
    const char* values;
  } cases[] = {
      {integer, {u"5"}, "5 (4) -"},
      {integer, {u"4", u"47"}, "4 47 (477) -"},
      {integer + "<Range>1-9</Range>", {u"5", u"12"}, "5 (1)"},
      {integer + "<Range>1-9</Range>", {u"1", u"2", u"4"}, "1 2 4 (3)"},
      {integer + "<Range>1-2</Range>", {u"1", u"2"}, "1 2"},
      {integer + "<Range>1-2,7</Range>", {u"1", u"2"}, "1 2 (7)"},
      {integer + choices, {u"1", u"7"}, "1 2"},
      {integer + choices, {u""}, "1 2 -"},
      {integer + choices + "<DefVal>8</DefVal>", {}, "1 2 8"},
      {integer + "<ChoiceFmt>01#One|x#None</ChoiceFmt>", {}, "1 0"},
      {integer + choices + "<Dependency>IF A EQ 1 THEN ChoiceFmt=\"3#Three|4#Four:5\"</Dependency>", {}, "1 2 3 4 5"},
      {"<Type>Bool</Type>", {u"TRUE"}, "1 0"},
      {"<Type>Bool</Type><ChoiceFmt>a#A|b#B</ChoiceFmt>", {}, "a b 1"},
      // such a list is the flag's own: its texts are stored as 1 and 0
      {"<Type>Bool</Type><ChoiceFmt>t#TRUE|f#FALSE</ChoiceFmt>", {}, "1 t 0 f"},
      {"<Type>Octet String</Type>", {u"X", u"xx"}, "X xx (xxx) -"},
      {"<Type>IP Address</Type>", {u"17"}, "17 (10.11.12.13) -"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.values, ValuesOf(c.attributes, c.wanted)) << c.attributes;
}

TEST(ValuesThatMatter, HoldWhatTheDeviceHasAndWhatHandlersSet) {
  const std::string choices = "<Type>Integer</Type><ChoiceFmt>1#One|2#Two</ChoiceFmt>";
  EXPECT_EQ("1 2 9", ValuesOf(choices, {}, "1.1\tInteger\t9\n"));
  EXPECT_EQ("1 2 -", ValuesOf(choices, {}, "1.1\tInteger\t\tget=0x80004005\n"));
  EXPECT_EQ("1 2 -", ValuesOf(choices, {}, "1.2\tInteger\t1\n"));
  EXPECT_EQ("1 2 6", ValuesOf(choices, {}, "1.1\tInteger\t1\n",
                              "<GROUP name=\"B\"><DisplayName>B</DisplayName><OID>1.2</OID><Type>Integer</Type>"
                              "<_OnExit>Set:1.1|Integer|6</_OnExit></GROUP>"));
}

TEST(ValuesThatMatter, OfASettingThatTwoEntriesShowAreThoseOfBoth) {
  const std::string other =
      "<GROUP name=\"B\"><DisplayName>B</DisplayName><OID>1.1</OID><Type>Integer</Type>"
      "<ChoiceFmt>3#Three</ChoiceFmt></GROUP>";
  EXPECT_EQ("1 3", ValuesOf("<Type>Integer</Type><ChoiceFmt>1#One</ChoiceFmt>", {}, "1.1\tInteger\t1\n", other));
}

TEST(ValuesThatMatter, OfAFieldAreItsPartOfTheCommandToo) {
  tests::StorageFolder folder;
  folder
      .WriteMenu(
          "<GROUP name=\"C\"><DisplayName>C</DisplayName><OID>1.6</OID><Type>ReaderCmd</Type><Ordinal>1</Ordinal>"
          "<CmdString>2,1,2</CmdString></GROUP><GROUP name=\"F\"><DisplayName>F</DisplayName><CmdOID>1.6:2</CmdOID>"
          "<Type>Octet String</Type><Ordinal>2</Ordinal><ChoiceFmt>aa#A|bb#B</ChoiceFmt></GROUP>")
      .Write("device.txt", "1.6\tOctet String\tXcc\n");
  const auto configuration = folder.Load();
  const authoring::Trial trial(*configuration);
  const authoring::Survey survey(*configuration);
  const auto matter = authoring::ValuesThatMatter(survey, u"1.6:2", trial.Model().FindDescriptor(u"1.6:2"), {});
  EXPECT_EQ((std::vector<WideString>{u"aa", u"bb", u"cc"}), matter.values);
}

}  // namespace
