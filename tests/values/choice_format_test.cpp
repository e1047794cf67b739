#include "values/choice_format.h"

#include "base/number.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <random>

namespace values {
namespace {

WideString Dump(const ChoiceFormat& choices) {
  WideString dump;
  for (const auto& entry : choices.Entries()) {
    dump += u"[" + entry.key + u"|" + base::ToText(entry.number) + u"|" + entry.text + u"]";
  }
  return dump;
}

TEST(ChoiceFormat, EntriesKeepTheirOrderAndDegradeQuietly) {
  const struct {
    const char16_t* text;
    const char16_t* entries;
  } cases[] = {
      {u"1#Open|2#Shared|4#WPA", u"[1|1|Open][2|2|Shared][4|4|WPA]"},
      {u"", u""},
      {u"A|B", u"[|0|A][|0|B]"},
      {u"1#A|", u"[1|1|A]"},
      {u"1#A||2#B", u"[1|1|A][|0|][2|2|B]"},
      {u"|", u"[|0|]"},
      {u"2x#A|x#B", u"[2x|2|A][x|0|B]"},
      {u"1#A#B", u"[1|1|A#B]"},
      {u"#A", u"[|0|A]"},
      {u"1#", u"[1|1|]"},
      {u"1#A|1#A", u"[1|1|A][1|1|A]"},
      {u"-5#Cold", u"[-5|-5|Cold]"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Dump(ChoiceFormat(c.text, KeyMode::kNumeric)), c.entries);
    EXPECT_EQ(Dump(ChoiceFormat(c.text, KeyMode::kText)), c.entries);
  }
}

TEST(ChoiceFormat, OfTwoEqualKeysTheLastIsShownAndBothTextsGiveTheKey) {
  const ChoiceFormat choices(u"1#A|1#B", KeyMode::kNumeric);
  EXPECT_EQ(choices.IndexOfValue(1), 1u);
  EXPECT_EQ(choices.GetValue(u"A"), 1);
  EXPECT_EQ(choices.GetValue(u"B"), 1);
}

TEST(ChoiceFormat, EntriesWithoutKeysAllHaveTheNumberZero) {
  const ChoiceFormat choices(u"A|B", KeyMode::kNumeric);
  EXPECT_EQ(choices.IndexOfValue(0), 1u);
  EXPECT_EQ(choices.GetValue(u"A"), 0);
}

TEST(ChoiceFormat, OfTwoEqualTextsTheFirstGivesTheKey) {
  EXPECT_EQ(ChoiceFormat(u"1#Same|2#Same", KeyMode::kNumeric).GetValue(u"Same"), 1);
  EXPECT_EQ(ChoiceFormat(u"a#Same|b#Same", KeyMode::kText).GetKey(u"Same"), u"a");
}

TEST(ChoiceFormat, OfTwoEqualTextKeysTheFirstGivesTheTextAndTheLastTheIndex) {
  const ChoiceFormat choices(u"k#First|k#Second", KeyMode::kText);
  EXPECT_EQ(choices.GetText(u"k"), u"First");
  EXPECT_EQ(choices.IndexOfKey(u"k"), 1u);
}

TEST(ChoiceFormat, TextsAndKeysCompareExactly) {
  const ChoiceFormat choices(u"On#Yes|Off#No", KeyMode::kText);
  EXPECT_EQ(choices.GetKey(u"yes"), std::nullopt);
  EXPECT_EQ(choices.GetText(u"on"), std::nullopt);
  EXPECT_EQ(choices.IndexOfKey(u"On "), std::nullopt);
  EXPECT_EQ(choices.GetKey(u"No"), u"Off");
}

TEST(ChoiceFormat, LookUpsOfTheOtherModeFindNothing) {
  const ChoiceFormat numeric(u"1#A", KeyMode::kNumeric);
  EXPECT_EQ(numeric.GetKey(u"A"), std::nullopt);
  EXPECT_EQ(numeric.GetText(u"1"), std::nullopt);
  EXPECT_EQ(numeric.IndexOfKey(u"1"), std::nullopt);
  const ChoiceFormat text(u"1#A", KeyMode::kText);
  EXPECT_EQ(text.GetValue(u"A"), std::nullopt);
  EXPECT_EQ(text.IndexOfValue(1), std::nullopt);
}

TEST(ChoiceFormat, AValueFindsItsEntryAsNumberOrAsText) {
  const ChoiceFormat numbers(u"0#Off|-1#Auto", KeyMode::kNumeric);
  EXPECT_EQ(numbers.IndexOf(PropertyValue::OfInteger(0)), 0u);
  EXPECT_EQ(numbers.IndexOf(PropertyValue::OfText(u"-1")), 1u);
  EXPECT_EQ(numbers.IndexOf(PropertyValue::OfText(u"abc")), std::nullopt);
  EXPECT_EQ(numbers.IndexOf(PropertyValue()), std::nullopt);
  const ChoiceFormat texts(u"0#Off|-1#Auto", KeyMode::kText);
  EXPECT_EQ(texts.IndexOf(PropertyValue::OfInteger(-1)), 1u);
  EXPECT_EQ(texts.IndexOf(PropertyValue::OfText(u" 0")), std::nullopt);
}

TEST(ChoiceFormat, AnEmptyListFindsNothing) {
  EXPECT_EQ(ChoiceFormat().GetValue(u""), std::nullopt);
  EXPECT_EQ(ChoiceFormat(u"", KeyMode::kText).GetText(u""), std::nullopt);
}

// The same list read one character at a time.
WideString PlainReading(WideStringView text) {
  WideString dump, key, entryText;
  bool hasKey = false;
  const auto finish = [&] {
    dump += u"[" + key + u"|" + base::ToText(base::ToLong(key)) + u"|" + entryText + u"]";
    key.clear();
    entryText.clear();
    hasKey = false;
  };
  for (const char16_t unit : text) {
    if (unit == u'|') {
      finish();
    } else if (unit == u'#' && !hasKey) {
      hasKey = true;
      key = std::exchange(entryText, {});
    } else {
      entryText.push_back(unit);
    }
  }
  if (hasKey || !entryText.empty()) finish();
  return dump;
}

TEST(ChoiceFormat, AgreesWithAPlainReadingOfRandomTexts) {
  constexpr WideStringView kUnits = u"||##019-+ aA";
  std::mt19937 random(20);
  for (int i = 0; i < 100000; ++i) {
    WideString text(random() % 16, u' ');
    for (char16_t& unit : text) unit = kUnits[random() % kUnits.size()];
    const ChoiceFormat choices(text, i % 2 == 0 ? KeyMode::kNumeric : KeyMode::kText);
    ASSERT_EQ(Dump(choices), PlainReading(text)) << base::ToUtf8(text);

    for (const auto& entry : choices.Entries()) {
      std::size_t firstText = choices.Count(), firstKey = choices.Count(), lastKey = 0;
      for (std::size_t at = choices.Count(); at-- > 0;) {
        const auto& other = choices.Entries()[at];
        if (other.text == entry.text) firstText = at;
        const bool sameKey = i % 2 == 0 ? other.number == entry.number : other.key == entry.key;
        if (sameKey && firstKey == choices.Count()) lastKey = at;
        if (sameKey) firstKey = at;
      }
      if (choices.Mode() == KeyMode::kNumeric) {
        ASSERT_EQ(choices.GetValue(entry.text), choices.Entries()[firstText].number) << base::ToUtf8(text);
        ASSERT_EQ(choices.IndexOfValue(entry.number), lastKey) << base::ToUtf8(text);
      } else {
        ASSERT_EQ(choices.GetKey(entry.text), choices.Entries()[firstText].key) << base::ToUtf8(text);
        ASSERT_EQ(choices.GetText(entry.key), choices.Entries()[firstKey].text) << base::ToUtf8(text);
        ASSERT_EQ(choices.IndexOfKey(entry.key), lastKey) << base::ToUtf8(text);
      }
    }
  }
}

}  // namespace
}  // namespace values
