#include "ui/key_filters.h"

#include "tests/printing.h"
#include "tests/support/scripted_terminal.h"

#include <functional>

namespace {

using platform::EditField;
using ui::InsertFlag;

class Field {
 public:
  Field(WideStringView text, int start, int end)
      : field_(platform::MakeWindow(
            {.className = u"Edit", .style = platform::style::kVisible, .width = 100, .height = 20})) {
    platform::SetText(field_.Handle(), text);
    field_.Select(start, end);
  }
  ~Field() { platform::Destroy(field_.Handle()); }
  const EditField& Get() const { return field_; }
  EditField::Selection Selection() const { return field_.GetSelection(); }

 private:
  EditField field_;
};

constexpr InsertFlag kInsert{true};
constexpr InsertFlag kOvertype{false};

WideString Repeat(char16_t character, std::size_t count) { return WideString(count, character); }

TEST(KeyFilters, PrintableIsWhatShowsOnTheScreen) {
  for (const char16_t character : {u'a', u'Z', u'0', u'.', u' ', u'~', u'\xE9', u'\x416', u'\xA0'}) {
    EXPECT_TRUE(ui::IsPrintable(character)) << static_cast<int>(character);
  }
  for (const char16_t character :
       {char16_t{0}, char16_t{8}, char16_t{13}, char16_t{27}, char16_t{0x7F}, char16_t{0x85}}) {
    EXPECT_FALSE(ui::IsPrintable(character)) << static_cast<int>(character);
  }
}

struct KeyCase {
  WideString text;
  int start;
  int end;
  char16_t character;
  bool swallowed;
};

void ExpectFilter(bool (*filter)(const EditField&, char16_t, InsertFlag), const std::vector<KeyCase>& cases) {
  const tests::ScriptedTerminal terminal;
  for (const KeyCase& c : cases) {
    const Field field(c.text, c.start, c.end);
    EXPECT_EQ(c.swallowed, filter(field.Get(), c.character, kInsert))
        << base::ToUtf8(c.text) << " at " << c.start << ": " << static_cast<char>(c.character);
    EXPECT_EQ(c.text, platform::TextOf(field.Get().Handle()));
  }
}

TEST(KeyFilters, AWepKeyIsHexadecimalAfterItsPrefixAndShort) {
  const WideString hex28 = u"0x" + Repeat(u'A', 26);
  const WideString hex27 = u"0x" + Repeat(u'A', 25);
  ExpectFilter(ui::FilterWepKeyChar, {
                                         {u"0x", 2, 2, u'f', false},
                                         {u"0x", 2, 2, u'F', false},
                                         {u"0x", 2, 2, u'g', true},
                                         {u"\\X12", 4, 4, u'.', true},
                                         {u"\\X12", 4, 4, u'9', false},
                                         {hex27, 27, 27, u'1', false},
                                         {hex28, 28, 28, u'1', true},
                                         {u"abcdefghijkl", 12, 12, u'm', false},
                                         {u"abcdefghijklm", 13, 13, u'n', true},
                                         {u"0y", 2, 2, u'z', false},  // no prefix
                                     });
}

TEST(KeyFilters, APreSharedKeyHasItsOwnLimits) {
  const WideString hex66 = u"0x" + Repeat(u'A', 64);
  ExpectFilter(ui::FilterPreSharedKeyChar, {
                                               {u"0X" + Repeat(u'A', 63), 65, 65, u'1', false},
                                               {hex66, 66, 66, u'1', true},
                                               {u"0x12", 4, 4, u'x', true},
                                               {Repeat(u'p', 62), 62, 62, u'q', false},
                                               {Repeat(u'p', 63), 63, 63, u'q', true},
                                           });
}

TEST(KeyFilters, AtTheFirstTwoPlacesNothingIsLimited) {
  const WideString long20 = Repeat(u'a', 20);
  const WideString hex28 = u"0x" + Repeat(u'A', 26);
  ExpectFilter(ui::FilterWepKeyChar, {
                                         {long20, 0, 0, u'b', false},
                                         {long20, 1, 1, u'b', false},
                                         {long20, 2, 2, u'b', true},
                                         {hex28, 1, 1, u'g', false},
                                         {hex28, 0, 28, u'g', false},
                                     });
}

TEST(KeyFilters, ControlCharactersPassEvenAFullKey) {
  ExpectFilter(ui::FilterWepKeyChar, {
                                         {Repeat(u'a', 13), 13, 13, char16_t{8}, false},
                                         {Repeat(u'a', 13), 13, 13, char16_t{22}, false},
                                     });
}

TEST(KeyFilters, OvertypingSelectsTheCharacterAfterTheCaret) {
  const tests::ScriptedTerminal terminal;
  const struct {
    int start, end;
    InsertFlag flag;
    EditField::Selection after;
  } cases[] = {
      {1, 1, kOvertype, {1, 2}},
      {1, 1, kInsert, {1, 1}},
      {3, 3, kOvertype, {3, 3}},  // at the end there is nothing to overwrite
      {0, 2, kOvertype, {0, 2}},  // a selection is replaced anyway
  };
  using Filter = std::function<bool(const EditField&, char16_t, InsertFlag)>;
  const Filter filters[] = {ui::FilterWepKeyChar, ui::FilterPreSharedKeyChar, ui::FilterAnyChar,
                            [](const EditField& field, char16_t character, InsertFlag flag) {
                              return ui::FilterNumericChar(field, character, flag, 0);
                            }};
  for (const Filter& filter : filters) {
    for (const auto& c : cases) {
      const Field field(u"123", c.start, c.end);
      EXPECT_FALSE(filter(field.Get(), u'7', c.flag));
      EXPECT_EQ(c.after, field.Selection()) << c.start << "-" << c.end;
    }
  }
}

TEST(KeyFilters, ASwallowedOrUnprintableCharacterSelectsNothing) {
  const tests::ScriptedTerminal terminal;
  const Field field(u"0x12345", 3, 3);
  EXPECT_TRUE(ui::FilterWepKeyChar(field.Get(), u'z', kOvertype));
  EXPECT_FALSE(ui::FilterWepKeyChar(field.Get(), char16_t{8}, kOvertype));
  EXPECT_FALSE(ui::FilterAnyChar(field.Get(), char16_t{8}, kOvertype));
  EXPECT_EQ((EditField::Selection{3, 3}), field.Selection());
}

TEST(KeyFilters, ANumberTakesAsManyDigitsAsItsMask) {
  const tests::ScriptedTerminal terminal;
  const struct {
    WideStringView text;
    int start, end;
    char16_t character;
    InsertFlag flag;
    std::size_t digits;
    bool swallowed;
  } cases[] = {
      {u"12", 2, 2, u'3', kInsert, 3, false},
      {u"123", 3, 3, u'4', kInsert, 3, true},
      {u"123", 0, 3, u'4', kInsert, 3, false},    // the selection makes room
      {u"123", 1, 1, u'4', kOvertype, 3, false},  // and so does overwriting
      {u"123", 3, 3, u'4', kOvertype, 3, true},
      {u"-12", 3, 3, u'3', kInsert, 3, false},  // digits alone count
      {u"12345678", 8, 8, u'9', kInsert, 0, false},
      {u"", 0, 0, u'a', kInsert, 0, true},
      {u"", 0, 0, u'-', kInsert, 0, true},
      {u"", 0, 0, u' ', kInsert, 0, true},
      {u"123", 3, 3, char16_t{8}, kInsert, 3, false},
  };
  for (const auto& c : cases) {
    const Field field(c.text, c.start, c.end);
    EXPECT_EQ(c.swallowed, ui::FilterNumericChar(field.Get(), c.character, c.flag, c.digits))
        << base::ToUtf8(c.text) << " " << c.start;
  }
}

}  // namespace
