#include "settings/settings_file.h"

#include "base/utf8.h"
#include "settings/yaml_text.h"

#include <gtest/gtest.h>

namespace {

using settings::GivenValue;
using settings::ReadSettingsFile;
using Kind = GivenValue::Kind;

std::string Problems(std::string_view bytes) {
  std::string text;
  for (const auto& problem : ReadSettingsFile("f", bytes).problems)
    text += settings::ToText(problem.at) + ": " + problem.sentence + "\n";
  return text;
}

TEST(SettingsFile, ValuesStandBelowTheirMenusWithTheirPlaces) {
  const auto file =
      ReadSettingsFile("f", "A:\n  B: on\n  C:\n    D: !raw 0\n    E: !default\nÄ:\n  F: !secret K\n1.2.3: \"\"\n");
  EXPECT_TRUE(file.problems.empty());
  const struct {
    const char* path;
    GivenValue value;
    const char* at;
  } wanted[] = {{"A/B", {Kind::kShown, u"on"}, "f:2:3"},
                {"A/C/D", {Kind::kRaw, u"0"}, "f:4:5"},
                {"A/C/E", {Kind::kDefault, u""}, "f:5:5"},
                {"Ä/F", {Kind::kSecret, u"K"}, "f:7:3"},
                {"1.2.3", {Kind::kShown, u""}, "f:8:1"}};
  ASSERT_EQ(std::size(wanted), file.settings.size());
  for (std::size_t i = 0; i < std::size(wanted); ++i) {
    EXPECT_EQ(wanted[i].path, settings::ToText(file.settings[i].path));
    EXPECT_EQ(wanted[i].value, file.settings[i].value) << wanted[i].path;
    EXPECT_EQ(wanted[i].at, settings::ToText(file.settings[i].at));
  }
}

TEST(SettingsFile, EveryValueIsTheTextThatItLooksLike) {
  const char* const texts[] = {"yes", "1.0", "0x10", "007", "192.168.1.1", "2026-11-22", "[x", "null and void"};
  for (const std::string text : texts) {
    const auto file = ReadSettingsFile("f", "A: \"" + text + "\"\n");
    ASSERT_EQ(1u, file.settings.size()) << text;
    EXPECT_EQ(text, base::ToUtf8(file.settings[0].value.text));
  }
}

TEST(SettingsFile, SlipsAreNamedByLineAndColumn) {
  const struct {
    const char* bytes;
    const char* problems;
  } cases[] = {
      {"", ""},
      {"# nothing\n", ""},
      {"just a text\n", "f:1:1: a settings file is a map of menus and names, such as \"Network:\"\n"},
      {"A: 1\nA: 2\n", "f:2:1: \"A\" stands here twice\n"},
      {"A:\n  - 1\n", "f:2:3: a list has no meaning here; a setting has one value\n"},
      {"A: &x 1\nB: *x\n",
       "f:1:4: an anchor (\"&\") has no meaning here; put the text into quotes\n"
       "f:2:4: an alias (\"*\") has no meaning here; put the text into quotes\n"},
      {": 1\n", "f:1:1: a name is missing\n"},
      {"A: !scret X\n", "f:1:4: there is no tag \"!scret\"; there are !raw, !default and !secret\n"},
      {"A: !default 5\n", "f:1:4: !default takes no value\n"},
      {"A: 1\n---\nB: 2\n", "f:2:1: a settings file is one document; \"---\" begins another\n"},
      {"Ä: Ä: 1\n", "f:1:5: illegal map value\n"},
      {"A: \xff\n", "f: this is no UTF-8 text\n"},
      {"? {a: b}\n: c\n", "f:1:3: a name is one text\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.problems, Problems(c.bytes)) << c.bytes;
}

TEST(SettingsFile, NoDepthIsTooMuchForTheReader) {
  std::string deep;
  for (int i = 0; i < 300; ++i) deep += std::string(static_cast<std::size_t>(i), ' ') + "a:\n";
  EXPECT_NE(std::string::npos, Problems(deep).find("menus do not lie that deep"));
  EXPECT_NE("", Problems(std::string(100000, '[')));
  EXPECT_NE("", Problems(std::string(100000, '{')));
}

TEST(YamlText, ReadsBackAsWhatItWas) {
  const WideStringView texts[] = {u"",       u"plain text", u" blanks ",   u"null",       u"~",   u"- a",
                                  u"a: b",   u"a #b",       u"\"q\" \\n",  u"two\nlines", u"\t",  u"äöü \u20ac",
                                  u"\u2028", u"!raw 1",     u"\U0001F600", u"\u0000x",    u"yes", u"&a",
                                  u"%",      u"\uFEFF",     u"]C0"};
  for (const WideStringView text : texts) {
    const auto written = settings::YamlText(text);
    ASSERT_TRUE(written) << base::ToUtf8(text);
    const auto file = ReadSettingsFile("f", *written + ": " + *written + "\n");
    ASSERT_EQ(1u, file.settings.size()) << *written;
    EXPECT_EQ(text, file.settings[0].path[0]) << *written;
    EXPECT_EQ(text, file.settings[0].value.text) << *written;
  }
  EXPECT_FALSE(settings::YamlText(WideString(1, u'\xD800')));
}

}  // namespace
