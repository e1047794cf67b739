#include "authoring/manual.h"

#include "authoring/rule_words.h"
#include "authoring/screen_svg.h"
#include "authoring/units.h"
#include "base/utf8.h"
#include "tests/authoring/kelconf_run.h"
#include "tests/authoring/storage_folder.h"

#include <algorithm>
#include <set>
#include <vector>

namespace {

using authoring::Manual;

// The values of all attributes of one name: name="VALUE".
std::vector<std::string> ValuesOf(const std::string& html, const std::string& attribute) {
  std::vector<std::string> values;
  const std::string start = " " + attribute + "=\"";
  for (std::size_t at = html.find(start); at != std::string::npos; at = html.find(start, at)) {
    at += start.size();
    values.push_back(html.substr(at, html.find('"', at) - at));
  }
  return values;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

void ExpectThatItHoldsTogether(const std::string& html) {
  const auto ids = ValuesOf(html, "id");
  const std::set<std::string> known(ids.begin(), ids.end());
  EXPECT_EQ(ids.size(), known.size()) << "an id occurs twice";
  for (const std::string& link : ValuesOf(html, "href")) {
    EXPECT_TRUE(link.starts_with("#") && known.contains(link.substr(1))) << link;
  }
  for (const char* tag : {"section", "article", "ul", "li", "ol", "dl", "dt", "dd", "p", "table", "tr", "td", "svg",
                          "div", "nav", "details", "text", "kbd", "a"}) {
    const std::string name = tag;
    EXPECT_EQ(CountOf(html, "<" + name + ">") + CountOf(html, "<" + name + " "), CountOf(html, "</" + name + ">"))
        << tag;
  }
  EXPECT_EQ(0u, CountOf(html, "<script"));
  EXPECT_EQ(0u, CountOf(html, "http"));
}

TEST(Manual, OfTheDemonstrationHoldsEverythingOnceAndItsLinksLeadSomewhere) {
  const auto configuration = authoring::Configuration::Load(tests::kDemonstration).configuration;
  const Manual manual = authoring::MakeManual(*configuration, {});
  ASSERT_EQ("", manual.problem);
  ExpectThatItHoldsTogether(manual.html);
  EXPECT_EQ(1u, CountOf(manual.html, "<h3>DHCP</h3>"));
  // Pictures of menus, and of editors within.
  EXPECT_LE(100u, CountOf(manual.html, "<svg class=\"screen\""));
  EXPECT_LE(76u, CountOf(manual.html, "How it is edited"));
  EXPECT_NE(std::string::npos, manual.html.find("Shown only when Mode is Ad hoc."));
  EXPECT_NE(std::string::npos, manual.html.find("the terminal asks whether to restart"));
}

TEST(Manual, EscapesWhatTheConfigurationHolds) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"a\"><DisplayName>&lt;b&gt; &amp; \"c\"</DisplayName><ShortDesc>&lt;script&gt;</ShortDesc>"
      "<OID>1.1</OID><Type>Integer</Type><ChoiceFmt>0#&lt;i&gt;|1#x</ChoiceFmt></GROUP>");
  folder.Write("device.txt", "1.1\tInteger\t0\n");
  const Manual manual = authoring::MakeManual(*folder.Load(), {});
  ExpectThatItHoldsTogether(manual.html);
  EXPECT_NE(std::string::npos, manual.html.find("<h3>&lt;b&gt; &amp; &quot;c&quot;</h3>"));
}

TEST(Manual, NamesAFactoryPasswordNowhere) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP "
      "name=\"a\"><DisplayName>Secret</DisplayName><OID>1.1</OID><Type>Password</Type><DefVal>hush</DefVal></GROUP>");
  folder.Write("device.txt", "1.1\tPassword\thush\n");
  const Manual manual = authoring::MakeManual(*folder.Load(), {});
  EXPECT_EQ(0u, CountOf(manual.html, "hush"));
}

TEST(Manual, SaysNoSecretOfTheDeviceOfDefaultsOrOfRules) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"a\"><DisplayName>Key</DisplayName><OID>1.1</OID><Type>Hex</Type><WEP>Set</WEP></GROUP>\n"
      "<GROUP name=\"b\"><DisplayName>Passphrase</DisplayName><OID>1.2</OID><Type>Octet String</Type></GROUP>\n"
      "<GROUP name=\"c\"><DisplayName>Use</DisplayName><OID>1.3</OID><Type>Bool</Type>"
      "<Dependency>IF Passphrase EQ hush5 THEN NoEdit</Dependency></GROUP>\n"
      "<GROUP name=\"d\"><DisplayName>Both</DisplayName><OID>1.4</OID><Type>ReaderCmd</Type>"
      "<CmdString>2,5,2</CmdString><DefVal>hush507</DefVal>"
      "<GROUP name=\"e\"><Ordinal>1</Ordinal><DisplayName>PIN</DisplayName><CmdOID>1.4:1</CmdOID><Type>Password</Type>"
      "</GROUP><GROUP name=\"f\"><Ordinal>2</Ordinal><DisplayName>Level</DisplayName><CmdOID>1.4:2</CmdOID>"
      "<Type>Integer</Type></GROUP></GROUP>\n");
  folder.Write("device.txt", "1.1\tHex\thush5\n1.2\tOctet String\thush5\n1.3\tBool\t1\n1.4\tReaderCmd\thush542\n");
  const Manual manual = authoring::MakeManual(*folder.Load(), {});
  ASSERT_EQ("", manual.problem);
  EXPECT_EQ(0u, CountOf(manual.html, "hush"));
  EXPECT_NE(std::string::npos, manual.html.find("When Passphrase is a certain value, it cannot be changed."));
  EXPECT_LE(1u, CountOf(manual.html, "&lt;****"));  // the menu's picture
  // A field's factory value stands in its command's, and a number has no zeros in front.
  EXPECT_NE(std::string::npos, manual.html.find("<dt>Factory value</dt><dd>7</dd>"));
  EXPECT_NE(std::string::npos, manual.html.find("&lt;42&gt;"));
}

TEST(Manual, GivesTheKeysFromTheMenuOnAndSaysWhichLinesAreNotThere) {
  tests::StorageFolder folder;
  std::string menu =
      "<GROUP name=\"h\"><DisplayName>Hidden</DisplayName><OID>1.1</OID><Type>Bool</Type>"
      "<Dependency>IF L1 EQ 1 THEN NoDisplay</Dependency></GROUP>\n";
  for (int i = 1; i < 11; ++i) {
    const std::string number = std::to_string(i);
    menu += "<GROUP name=\"l" + number + "\"><DisplayName>L" + number + "</DisplayName><OID>1.2." + number +
            "</OID><Type>Bool</Type></GROUP>\n";
  }
  folder.WriteMenu("<GROUP name=\"m\"><DisplayName>M</DisplayName>" + menu + "</GROUP>");
  folder.Write("device.txt", "1.1\tBool\t0\n1.2.1\tBool\t1\n");
  const std::string html = authoring::MakeManual(*folder.Load(), {}).html;
  EXPECT_NE(std::string::npos, html.find(">Hidden</a> (not always shown)</li>"));
  EXPECT_NE(std::string::npos, html.find("<p class=\"path\">Keys <kbd>1</kbd>, once it is shown</p>"));
  EXPECT_NE(std::string::npos, html.find("<li><kbd>8</kbd> <a href=\"#e10\">L8</a></li>"));
  EXPECT_NE(std::string::npos, html.find("<li><kbd>9</kbd> <kbd>2</kbd> <a href=\"#e11\">L9</a></li>"));
  // "1.2.9" before "1.2.10".
  const std::size_t index = html.find("id=\"by-oid\"");
  EXPECT_LT(html.find("<code>1.2.9</code>", index), html.find("<code>1.2.10</code>", index));
}

TEST(Manual, SaysUnitsDatesAndWhatTheWirelessRulesDo) {
  const auto configuration = authoring::Configuration::Load(tests::kForklift).configuration;
  authoring::ManualTerms terms;
  terms.pictures = false;
  const std::string html = authoring::MakeManual(*configuration, terms).html;
  ExpectThatItHoldsTogether(html);
  for (const char* words : {
           "<dt>Allowed</dt><dd>0 or from 2 to 30</dd>\n<dt>Unit</dt><dd>seconds</dd>",
           "<dt>Allowed</dt><dd>from 1 to 10</dd>\n<dt>Unit</dt><dd>none is stated</dd>",
           "<dt>Factory value</dt><dd>06:00:00</dd>",
           "<dt>Belongs to</dt><dd>the wireless profile that is in use; each profile has its own</dd>",
           "Shown only when Authentication is Shared, or is Open and Encryption is not Disabled.",
           "<p>Shown only when 802.1X is not Disabled.</p>",
           "<p>When the menu is left, the terminal warns of a network key that is missing.</p>",
           "<dt>Takes effect</dt><dd>when the menu is left</dd>",
       }) {
    EXPECT_NE(std::string::npos, html.find(words)) << words;
  }
}

TEST(Units, AreReadFromTheDescriptionElseFromTheName) {
  const struct {
    const char* name;
    const char* description;
    const char* unit;
  } cases[] = {
      {"Timeout", "Seconds after the last key", "seconds"},
      {"Timeout", "Tenths of a second", "tenths of a second"},
      {"Supply mV", "", "millivolts"},
      {"Delay (s)", "", "seconds"},
      {"Delay [min]", "", "minutes"},
      {"Speed (min)", "km/h from which the screen is dark", "km/h"},
      {"Heat below", "In \u00B0C", "degrees Celsius"},
      {"Volume %", "", "percent"},
      {"Volume", "0-100%", "percent"},
      {"Power", "10 dBm at least", "dBm"},
      {"Pitch", "Hertz", "Hz"},
      {"Minimum length", "", ""},  // no minutes
      {"Second server", "", ""},   // no seconds
      {"A", "s", ""},              // too short without parentheses
      {"Kgs", "", ""},
      {"Level", "1 is dark, 10 is bright", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(c.unit, authoring::UnitIn(c.name, c.description)) << c.name;
}

TEST(Manual, OfAMenuThatStandsInItselfEnds) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"a\"><DisplayName>a</DisplayName><Descendent>b</Descendent><GROUP name=\"b\"><DisplayName>b"
      "</DisplayName></GROUP></GROUP>");
  const Manual manual = authoring::MakeManual(*folder.Load(), {});
  EXPECT_EQ("", manual.problem);
  ExpectThatItHoldsTogether(manual.html);
}

TEST(RuleWords, SayWhatARuleDoes) {
  const struct {
    const char* rule;
    const char* words;
  } cases[] = {
      {"1.1|Integer|1|Display", "Shown only when Mode is On."},
      {"1.1|Integer|1|NoDisplay", "When Mode is On, the line is not shown."},
      {"1.1|Integer|0|NoEdit", "When Mode is Off, it cannot be changed."},
      {"this|Integer|Empty|Refresh", "It is read from the terminal again each time it is shown."},
      {"Empty|Integer|Empty|NoEdit", "Always: it cannot be changed."},
      {"this|Integer|5|Blank", "When x is \"5\", the line is empty."},
      {"IF Mode EQ 1 THEN NoEdit", "When Mode is On, it cannot be changed."},
      {"IF Mode NEQ 1 THEN Display ELSE NoDisplay",
       "When Mode is not On, the line is shown. Otherwise the line is not shown."},
      {"IF Mode EQ 1 OR Mode EQ 2 AND x EQ 5 THEN Blank",
       "When (Mode is On or Mode is \"2\") and x is \"5\", the line is empty."},
      {"IF (Mode EQ 1 OR x EQ 5) AND x NEQ 6 THEN Blank",
       "When (Mode is On or x is \"5\") and x is not \"6\", the line is empty."},
      {"IF Mode EQ 1 THEN \"ChoiceFmt=1#Low|2#High:2\"", "When Mode is On, the choices are Low, High."},
      {"IF Mode XX 1 THEN NoEdit", ""},
      // A group must stand first: this rule does nothing, and so it says nothing.
      {"IF Mode EQ 1 AND (x EQ 5 OR x EQ 6) THEN NoEdit", ""},
      // Parentheses that stand together open one group, and so there is none left to close.
      {"IF ((Mode EQ 1) AND x EQ 5) OR x EQ 6 THEN NoEdit", ""},
      {"IF (Mode EQ 1 AND x EQ 5) OR x EQ 6 THEN NoEdit",
       "When (Mode is On and x is \"5\") or x is \"6\", it cannot be changed."},
      {"IF Mode EQ 1 AND x EQ 5 AND x NEQ 6 THEN NoEdit",
       "When Mode is On and x is \"5\" and x is not \"6\", it cannot be changed."},
      {"Empty|Integer|5|Display", "Always: the line is not shown."},
      {"IF Mode EQ 1 THEN Sparkle", ""},
      {"nonsense", ""},
  };
  for (const auto& c : cases) {
    tests::StorageFolder folder;
    folder.WriteMenu(
        "<GROUP name=\"m\"><DisplayName>Mode</DisplayName><OID>1.1</OID><Type>Integer</Type>"
        "<ChoiceFmt>0#Off|1#On</ChoiceFmt></GROUP><GROUP name=\"x\"><DisplayName>x</DisplayName><OID>1.2</OID>"
        "<Type>Integer</Type><Dependency>" +
        std::string(c.rule) + "</Dependency></GROUP>");
    folder.Write("device.txt", "1.1\tInteger\t0\n1.2\tInteger\t5\n");
    const auto configuration = folder.Load();
    authoring::Trial trial(*configuration);
    const auto words = authoring::RulesInWords(trial, *trial.Model().Root().Children()[1]);
    EXPECT_EQ(c.words, words.empty() ? "" : words.front()) << c.rule;
  }
}

TEST(ScreenSvg, DrawsRunsOfOneStyleAndNothingBesideTheDevice) {
  simulator::CellGrid grid(12, 4);
  const simulator::CellRect all = grid.Whole();
  grid.Box({0, 0, 8, 3}, simulator::CellStyle::kFrame, all);
  grid.Text(2, 1, u"a<b", simulator::CellStyle::kInverse, all);
  grid.Text(10, 2, u"x", simulator::CellStyle::kNormal, all);
  grid.Text(3, 2, u"Dv", simulator::CellStyle::kFaint, all);
  const std::string svg = authoring::ScreenSvg(grid, "A \"picture\"");
  EXPECT_NE(std::string::npos, svg.find("aria-label=\"A &quot;picture&quot;\" width=\"64\" height=\"51\""));
  EXPECT_NE(std::string::npos, svg.find("<text class=\"i\" x=\"16\" y=\"30\" textLength=\"24\">a&lt;b</text>"));
  EXPECT_EQ(std::string::npos, svg.find(">x<"));
  EXPECT_EQ(std::string::npos, svg.find("Dv"));
}

TEST(KelconfManual, WritesAFileOrSaysWhyNot) {
  tests::StorageFolder folder;
  const std::string file = (folder.Path() / "manual.html").string();
  EXPECT_EQ(0, tests::RunKelconf({"manual", tests::kSmallExample.string(), "-o", file}).status);
  std::ifstream html(file);
  std::string first;
  std::getline(html, first);
  EXPECT_EQ("<!DOCTYPE html>", first);
  EXPECT_EQ(2, tests::RunKelconf({"manual", tests::kSmallExample.string(), "-o", "/nowhere/manual.html"}).status);
  EXPECT_EQ(2, tests::RunKelconf({"manual", tests::kSmallExample.string()}).status);
}

}  // namespace
