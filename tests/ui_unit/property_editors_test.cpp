#include "ui/property_editors.h"

#include "tests/ui_unit/property_bench.h"
#include "values/shown_value.h"

namespace {

using ui::EditorTable;
using ui::EditRequest;
using ui_test::PropertyBench;
using Texts = std::vector<WideString>;

TEST(PropertyEditors, EveryTypeWithAnEditorIsInTheTable) {
  const EditorTable table;
  for (const WideStringView type :
       {u"None", u"Integer", u"Bool", u"Octet String", u"IP Address", u"Password", u"Hex", u"Hex32"}) {
    EXPECT_NE(nullptr, table.Find(type)) << base::ToUtf8(type);
  }
  for (const WideStringView type : {u"ReaderCmd", u"Counter", u"integer", u"HEX", u""}) {
    EXPECT_EQ(nullptr, table.Find(type)) << base::ToUtf8(type);
  }
}

TEST(PropertyEditors, HexAndHex32ShareOneEditor) {
  const EditorTable table;
  EXPECT_EQ(table.Find(u"Hex"), table.Find(u"Hex32"));
}

TEST(PropertyEditors, ARequestNamesTypeSubtypeAndValue) {
  PropertyBench bench;
  const EditRequest request =
      EditorTable().MakeRequest(bench.Make(u"Integer", u"20050131", {{u"SubType", u"Date"}, {u"ChoiceFmt", u"1#A"}}));
  EXPECT_EQ(u"Integer", request.editorType);
  EXPECT_EQ(u"Date", request.subType);
  EXPECT_EQ(u"20050131", request.value);
  EXPECT_FALSE(request.masked);
}

TEST(PropertyEditors, AnIntegerStartsWithItsTextMaskAndLength) {
  PropertyBench bench;
  const EditRequest request =
      EditorTable().MakeRequest(bench.Make(u"Integer", u"42", {{u"Range", u"0-65535"}, {u"MaxChars", u"4"}}));
  EXPECT_EQ(Texts{}, request.choices);
  EXPECT_EQ(-1, request.selected);
  EXPECT_EQ(u"42", request.text);
  EXPECT_EQ(u"#####", request.mask);
  EXPECT_EQ(4, request.maxChars);
}

TEST(PropertyEditors, ARefusedValueIsOfferedAgain) {
  using values::PropertyValue;
  const struct {
    WideString type;
    WideString choices;
    PropertyValue refused;
    WideString value;
    WideString text;
    int selected;
    std::uint32_t number;
  } cases[] = {
      {u"Integer", u"", PropertyValue::OfInteger(7), u"7", u"7", -1, 0},
      {u"Integer", u"4#A|7#B", PropertyValue::OfInteger(7), u"7", u"", 1, 0},
      {u"Bool", u"", PropertyValue::OfInteger(1), u"1", u"", -1, 1},
      {u"Octet String", u"", PropertyValue::OfText(u"new"), u"new", u"new", -1, 0},
      {u"Octet String", u"old#A|new#B", PropertyValue::OfText(u"new"), u"new", u"new", 1, 0},
      {u"Password", u"", PropertyValue::OfText(u"new"), u"new", u"new", -1, 0},
      {u"IP Address", u"", PropertyValue::OfInteger(9), u"9", u"9", -1, 9},
  };
  for (const auto& c : cases) {
    PropertyBench bench;
    values::PropertyDescriptor& property = bench.Make(c.type, u"0", {{u"ChoiceFmt", c.choices}});
    property.SetRefused(c.refused);
    const EditRequest request = EditorTable().MakeRequest(property);
    EXPECT_EQ(c.value, request.value) << base::ToUtf8(c.type);
    EXPECT_EQ(c.text, request.text) << base::ToUtf8(c.type);
    EXPECT_EQ(c.selected, request.selected) << base::ToUtf8(c.type);
    EXPECT_EQ(c.number, request.number.value_or(0)) << base::ToUtf8(c.type);
  }
}

TEST(PropertyEditors, AnEntryIsNoLongerThanTheColumnOfItsField) {
  const struct {
    WideString type;
    WideString maxChars;
    int limit;
  } cases[] = {{u"Octet String", u"", 3}, {u"Octet String", u"2", 2}, {u"Octet String", u"9", 3},
               {u"Integer", u"", 3},      {u"Password", u"-1", 3},    {u"Hex", u"0", 3}};
  for (const auto& c : cases) {
    PropertyBench bench;
    bench.device.Put(u"5.1", u"AABBB");
    bench.Make(u"ReaderCmd", u"", {{u"CmdString", u"2,2,3"}, {u"OID", u"5.1"}});
    const auto& field = bench.Make(c.type, u"", {{u"CmdOID", u"5.1:2"}, {u"Ordinal", u"1"}, {u"MaxChars", c.maxChars}});
    EXPECT_EQ(c.limit, EditorTable().MakeRequest(field).maxChars) << base::ToUtf8(c.type + u" " + c.maxChars);
  }
}

TEST(PropertyEditors, AnIntegerWithChoicesIsChosen) {
  PropertyBench bench;
  const EditRequest request =
      EditorTable().MakeRequest(bench.Make(u"Integer", u"4", {{u"ChoiceFmt", u"1#Open|2#Shared|4#WPA"}}));
  EXPECT_EQ((Texts{u"Open", u"Shared", u"WPA"}), request.choices);
  EXPECT_EQ(2, request.selected);
  EXPECT_EQ(u"", request.text);
  EXPECT_EQ(u"", request.mask);
}

TEST(PropertyEditors, AnIntegerThatIsNoChoiceSelectsNone) {
  PropertyBench bench;
  for (const WideStringView value : {u"3", u"-1", u"abc"}) {
    const EditRequest request =
        EditorTable().MakeRequest(bench.Make(u"Integer", value, {{u"ChoiceFmt", u"0#Off|1#On"}}));
    EXPECT_EQ(-1, request.selected) << base::ToUtf8(value);
    EXPECT_EQ(2u, request.choices.size());
  }
}

TEST(PropertyEditors, ANegativeNumberSelectsItsChoiceAsItsLineShowsIt) {
  PropertyBench bench;
  const values::PropertyDescriptor& property = bench.Make(u"Integer", u"-1", {{u"ChoiceFmt", u"0#Off|-1#Auto"}});
  EXPECT_EQ(1, EditorTable().MakeRequest(property).selected);
  EXPECT_EQ(u"Auto", values::ShownValue(property));
}

TEST(PropertyEditors, OfDuplicateKeysTheLastIsSelected) {
  PropertyBench bench;
  EXPECT_EQ(1, EditorTable().MakeRequest(bench.Make(u"Integer", u"1", {{u"ChoiceFmt", u"1#A|1#B"}})).selected);
}

TEST(PropertyEditors, AnIntegerWithoutAValuePreparesNothing) {
  PropertyBench bench;
  const EditRequest request = EditorTable().MakeRequest(bench.Make(u"Integer", u"", {{u"ChoiceFmt", u"0#Off|1#On"}}));
  EXPECT_EQ(Texts{}, request.choices);
  EXPECT_EQ(-1, request.selected);
  EXPECT_EQ(u"", request.text);
  EXPECT_EQ(u"", request.mask);
}

TEST(PropertyEditors, AFlagIsANumber) {
  const struct {
    WideStringView value;
    std::uint32_t number;
  } cases[] = {{u"1", 1}, {u"0", 0}, {u"7", 1}, {u"", 0}, {u"yes", 0}};
  for (const auto& c : cases) {
    PropertyBench bench;
    const EditRequest request = EditorTable().MakeRequest(bench.Make(u"Bool", c.value));
    EXPECT_EQ(c.number, request.number.value_or(0)) << base::ToUtf8(c.value);
    EXPECT_EQ(Texts{}, request.choices);
  }
}

TEST(PropertyEditors, AFlagWithChoicesShowsThem) {
  PropertyBench bench;
  const EditRequest request = EditorTable().MakeRequest(bench.Make(u"Bool", u"0", {{u"ChoiceFmt", u"1#On|0#Off"}}));
  EXPECT_EQ((Texts{u"On", u"Off"}), request.choices);
  EXPECT_EQ(1, request.selected);
}

TEST(PropertyEditors, AFreeTextHasTitleTextMaskAndLength) {
  for (const WideStringView type : {u"Octet String", u"Hex", u"Hex32"}) {
    PropertyBench bench;
    const EditRequest request =
        EditorTable().MakeRequest(bench.Make(type, u"abc", {{u"TextFmt", u"##-##"}, {u"MaxChars", u"9"}}));
    EXPECT_EQ(u"Change 'Thing' Setting", request.title);
    EXPECT_EQ(u"abc", request.text);
    EXPECT_EQ(u"##-##", request.mask);
    EXPECT_EQ(9, request.maxChars);
    EXPECT_EQ(Texts{}, request.choices);
  }
}

TEST(PropertyEditors, TwoOrThreeChoicesArePlainChoices) {
  for (const WideStringView choices : {u"1#TRUE|0#FALSE", u"a#A|b#B|c#C"}) {
    PropertyBench bench;
    const EditRequest request = EditorTable().MakeRequest(
        bench.Make(u"Octet String", u"0", {{u"ChoiceFmt", WideString(choices)}, {u"MaxChars", u"9"}}));
    EXPECT_EQ(u"", request.mask);
    EXPECT_EQ(0, request.maxChars);
    EXPECT_EQ(u"0", request.text);
    EXPECT_EQ(std::vector<std::string>{}, bench.terminal.debugLines);
  }
}

TEST(PropertyEditors, OneOrManyChoicesHaveALengthToo) {
  for (const WideStringView choices : {u"b#B", u"a#A|b#B|c#C|d#D"}) {
    PropertyBench bench;
    const EditRequest request = EditorTable().MakeRequest(
        bench.Make(u"Octet String", u"b", {{u"ChoiceFmt", WideString(choices)}, {u"MaxChars", u"9"}}));
    EXPECT_GE(request.selected, 0);
    EXPECT_EQ(9, request.maxChars);
  }
}

TEST(PropertyEditors, AValueThatIsNoneOfManyChoicesIsNotedInTheDebugOutput) {
  const struct {
    WideStringView type;
    const char* line;
  } cases[] = {{u"Octet String", "ASN_OCTETSTRING_PropertyEditor index < 0\r\n"},
               {u"Hex", "ASN_HEX_PropertyEditor index < 0\r\n"},
               {u"Hex32", "ASN_HEX_PropertyEditor index < 0\r\n"}};
  for (const auto& c : cases) {
    PropertyBench bench;
    const EditRequest request =
        EditorTable().MakeRequest(bench.Make(c.type, u"x", {{u"ChoiceFmt", u"a#A|b#B|c#C|d#D"}, {u"MaxChars", u"9"}}));
    EXPECT_EQ(4u, request.choices.size());
    EXPECT_EQ(-1, request.selected);
    EXPECT_EQ(0, request.maxChars);
    EXPECT_EQ(u"", request.mask);
    EXPECT_EQ(std::vector<std::string>{c.line}, bench.terminal.debugLines);
  }
}

TEST(PropertyEditors, AnAddressIsANumberWithItsFirstFieldOnTop) {
  PropertyBench bench;
  const EditRequest request = EditorTable().MakeRequest(bench.Make(u"IP Address", u"192.168.0.1"));
  EXPECT_EQ(u"Change 'Thing' Setting", request.title);
  EXPECT_EQ(0xC0A80001u, request.number);
  EXPECT_NE(u"", request.text);
}

TEST(PropertyEditors, AnAddressMayHaveBlanksAroundItAndATextThatIsNoneHasNoNumber) {
  const struct {
    const char16_t* type;
    const char16_t* text;
    std::optional<std::uint32_t> number;
  } cases[] = {
      {u"IP Address", u" 192.168.0.1  ", 0xC0A80001u},
      {u"Octet String", u" 192.168.0.1\t", 0xC0A80001u},
      {u"IP Address", u"by DHCP", std::nullopt},
      {u"Octet String", u"by DHCP", std::nullopt},
      {u"Octet String", u"", std::nullopt},
      {u"IP Address", u"0.0.0.0", 0u},
  };
  for (const auto& c : cases) {
    PropertyBench bench;
    const tests::KeyValues more = {{u"PropEditor", u"IP Address"}};
    EXPECT_EQ(c.number, EditorTable().MakeRequest(bench.Make(c.type, c.text, more)).number) << base::ToUtf8(c.text);
  }
}

TEST(PropertyEditors, APasswordHasItsTextAndLengthAndIsMasked) {
  PropertyBench bench;
  const EditRequest request = EditorTable().MakeRequest(bench.Make(u"Password", u"secret", {{u"MaxChars", u"8"}}));
  EXPECT_EQ(u"secret", request.text);
  EXPECT_EQ(8, request.maxChars);
  EXPECT_TRUE(request.masked);
}

TEST(PropertyEditors, APropertyShownAsStarsIsTypedAsStars) {
  PropertyBench bench;
  EXPECT_TRUE(EditorTable().MakeRequest(bench.Make(u"Octet String", u"x", {{u"PassWordChar", u"*"}})).masked);
}

TEST(PropertyEditors, ACommandKeepsItsChoiceTextsThoughItHasNoDialog) {
  PropertyBench bench;
  const EditorTable table;
  const EditRequest request =
      table.MakeRequest(bench.Make(u"ReaderCmd", u"2", {{u"PropEditor", u"None"}, {u"ChoiceFmt", u"1#One|2#Two"}}));
  EXPECT_EQ(u"None", request.editorType);
  EXPECT_EQ(1, request.selected);
  EXPECT_EQ((Texts{u"One", u"Two"}), table.Find(u"None")->ChoiceTexts());
  EXPECT_EQ(Texts{}, request.choices);
}

TEST(PropertyEditors, AnotherPropertyWithoutAnEditorLeavesThemAlone) {
  PropertyBench bench;
  const EditorTable table;
  table.MakeRequest(bench.Make(u"ReaderCmd", u"2", {{u"PropEditor", u"None"}, {u"ChoiceFmt", u"1#One|2#Two"}}));
  table.MakeRequest(bench.Make(u"Integer", u"2", {{u"PropEditor", u"None"}, {u"ChoiceFmt", u"1#Three"}}));
  EXPECT_EQ((Texts{u"One", u"Two"}), table.Find(u"None")->ChoiceTexts());
}

TEST(PropertyEditors, NothingIsPreparedWithoutADescriptor) {
  const EditorTable table;
  for (const WideStringView type :
       {u"None", u"Integer", u"Bool", u"Octet String", u"IP Address", u"Password", u"Hex"}) {
    EditRequest request;
    request.text = u"kept";
    request.selected = 5;
    table.Find(type)->Prepare(nullptr, request);
    EXPECT_EQ(u"kept", request.text);
    EXPECT_EQ(5, request.selected);
  }
}

TEST(PropertyEditors, AnUnknownEditorAddsNothing) {
  PropertyBench bench;
  const EditRequest request = EditorTable().MakeRequest(bench.Make(u"Integer", u"2", {{u"PropEditor", u"integer"}}));
  EXPECT_EQ(u"integer", request.editorType);
  EXPECT_EQ(u"2", request.value);
  EXPECT_EQ(u"", request.text);
}

}  // namespace
