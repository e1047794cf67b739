#include "values/property_descriptor.h"

#include "tests/values/property_fixture.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using tests::Lines;

using PropertyDescriptorTest = tests::PropertyTest;

TEST_F(PropertyDescriptorTest, TakesItsAttributesFromItsKey) {
  device_.Put(u"1.2", u"5");
  const PropertyDescriptor& property = Make({{u"OID", u"1.2"},
                                             {u"Type", u"Integer"},
                                             {u"DisplayName", u"Volume"},
                                             {u"SubType", u"Date"},
                                             {u"MaxChars", u"12x"},
                                             {u"CustPage", u"Extra"}});
  EXPECT_EQ(property.Path(), u"Root\\Property");
  EXPECT_EQ(property.DisplayName(), u"Volume");
  EXPECT_EQ(property.HeldType(), u"Integer");
  EXPECT_EQ(property.SubType(), u"Date");
  EXPECT_EQ(property.EditorName(), u"Integer");
  EXPECT_EQ(property.PageName(), u"Extra");
  EXPECT_EQ(property.GetOID(), u"1.2");
  EXPECT_EQ(property.GetType(), u"Integer");
  EXPECT_EQ(property.GetTypeId(), TextId::kInteger);
  EXPECT_EQ(property.GetMaxChars(), 12);
  EXPECT_EQ(property.GetValue(), PropertyValue::OfInteger(5));
  EXPECT_TRUE(property.IsAvailable());
  EXPECT_FALSE(property.IsReadOnly());
  EXPECT_FALSE(property.IsChanged());
  EXPECT_EQ(FindDescriptor(descriptors_, u"1.2"), &property);
  EXPECT_EQ(device_.TakeLog(), (Lines{u"get 1.2 Integer"}));
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(PropertyDescriptorTest, WithoutAKeyItIsEmptyAndSilent) {
  const PropertyDescriptor property(nullptr, access_, symbols_, descriptors_);
  EXPECT_EQ(property.Path(), u"");
  EXPECT_EQ(property.DisplayName(), u"No Display Name");
  EXPECT_EQ(property.HeldType(), u"None");
  EXPECT_EQ(property.EditorName(), u"None");
  EXPECT_EQ(property.GetMaxChars(), 0);
  EXPECT_TRUE(property.GetValue().IsEmpty());
  EXPECT_TRUE(property.IsAvailable());
  EXPECT_TRUE(descriptors_.empty());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(PropertyDescriptorTest, LivePropertiesAreCounted) {
  const int before = PropertyDescriptor::LiveCount();
  {
    const PropertyDescriptor property(nullptr, access_, symbols_, descriptors_);
    EXPECT_EQ(PropertyDescriptor::LiveCount(), before + 1);
  }
  EXPECT_EQ(PropertyDescriptor::LiveCount(), before);
}

TEST_F(PropertyDescriptorTest, ValueNamesInLowerCaseAreNotRead) {
  const PropertyDescriptor& property = Make({{u"oid", u"1.2"}, {u"displayname", u"Volume"}});
  EXPECT_EQ(property.DisplayName(), u"No Display Name");
  EXPECT_TRUE(descriptors_.empty());
  EXPECT_EQ(device_.TakeLog(), Lines());
}

TEST_F(PropertyDescriptorTest, ASymbolReplacesItsDisplayName) {
  SetSymbols({{u"IDS_VOLUME", u"Volume"}});
  EXPECT_EQ(Make({{u"DisplayName", u"IDS_VOLUME"}}).DisplayName(), u"Volume");
  EXPECT_EQ(Make({{u"DisplayName", u"My IDS_VOLUME"}}).DisplayName(), u"My IDS_VOLUME");
  PropertyDescriptor& renamed = Make({{u"DisplayName", u"IDS_VOLUME"}});
  renamed.SetDisplayName(u"Loudness");
  EXPECT_EQ(renamed.DisplayName(), u"Loudness");
}

TEST_F(PropertyDescriptorTest, ALaterPropertyOfTheSameOidTakesItsPlace) {
  device_.Put(u"1.2", u"5");
  Make({{u"OID", u"1.2"}, {u"Type", u"Integer"}});
  const PropertyDescriptor& later = Make({{u"OID", u"1.2"}, {u"Type", u"Octet String"}});
  EXPECT_EQ(FindDescriptor(descriptors_, u"1.2"), &later);
  EXPECT_EQ(FindDescriptor(descriptors_, u"1.3"), nullptr);
}

TEST_F(PropertyDescriptorTest, AnIntegerThatBeginsWithASignIsHeldAsText) {
  EXPECT_EQ(MakeWithValue(u"Integer", u"-5").GetValue(), PropertyValue::OfText(u"-5"));
}

TEST_F(PropertyDescriptorTest, AFailedReadMakesItUnavailableAndReadOnly) {
  const PropertyDescriptor& property = Make({{u"OID", u"1.2"}, {u"Type", u"Integer"}, {u"SubType", u"Date"}});
  EXPECT_FALSE(property.IsAvailable());
  EXPECT_TRUE(property.IsReadOnly());
  EXPECT_EQ(property.HeldType(), u"None");
  EXPECT_EQ(property.SubType(), u"");
  EXPECT_EQ(property.EditorName(), u"None");
  EXPECT_EQ(property.GetType(), u"Integer");
  EXPECT_TRUE(property.GetValue().IsEmpty());
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"**FAILED PropertyDescriptor::InitValue SnmpGet 1.2 Integer\r\n"}));
}

TEST_F(PropertyDescriptorTest, EvenASuccessOtherThanZeroIsAFailedRead) {
  device_.Put(u"1.2", u"5");
  device_[u"1.2"].getResult = platform::kFalse;
  EXPECT_FALSE(Make({{u"OID", u"1.2"}, {u"Type", u"Integer"}}).IsAvailable());
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"**FAILED PropertyDescriptor::InitValue SnmpGet 1.2 Integer\r\n"}));
}

TEST_F(PropertyDescriptorTest, AReadWithoutATextIsAFailedReadWithoutADebugLine) {
  device_[u"1.2"].text.reset();
  EXPECT_FALSE(Make({{u"OID", u"1.2"}, {u"Type", u"Integer"}}).IsAvailable());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(PropertyDescriptorTest, AReadThatBreaksDownIsAFailedRead) {
  device_[u"1.2"].throws = true;
  EXPECT_FALSE(Make({{u"OID", u"1.2"}, {u"Type", u"Integer"}}).IsAvailable());
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"EXCEPTION: PropertyDescriptor::InitValue SnmpGet 1.2 Integer\r\n"}));
}

TEST_F(PropertyDescriptorTest, WithoutADeviceItIsUnavailable) {
  device_.reachable = false;
  EXPECT_FALSE(Make({{u"OID", u"1.2"}, {u"Type", u"Integer"}}).IsAvailable());
  EXPECT_EQ(terminal_.TakeSystemBoxes(), (Lines{u"Error: Cannot get SNMP Interface"}));
}

TEST_F(PropertyDescriptorTest, AnEmptyTextFromTheDeviceIsNoValueButAvailable) {
  const PropertyDescriptor& property = MakeWithValue(u"Integer", u"");
  EXPECT_TRUE(property.IsAvailable());
  EXPECT_TRUE(property.GetValue().IsEmpty());
}

TEST_F(PropertyDescriptorTest, ASpecialOidIsReadByTheAlternateOperation) {
  device_.Put(u"1.3.6.1.4.1.4242.10.5.1.6.0", u"5");
  Make({{u"OID", u"1.3.6.1.4.1.4242.10.5.1.6.0"}, {u"Type", u"Integer"}});
  EXPECT_EQ(device_.TakeLog(), (Lines{u"getspecial 1.3.6.1.4.1.4242.10.5.1.6.0 Integer"}));
}

TEST_F(PropertyDescriptorTest, AProfileOidIsReadWithTheActiveProfile) {
  device_.Put(u"cfg|80211PM|ActiveProfile", u"Work");
  device_.Put(u"cfg|Work|SSID", u"warehouse");
  const PropertyDescriptor& property =
      Make({{u"OID", u"cfg|*|SSID"}, {u"Type", u"Octet String"}, {u"FillOID", u"Profile"}});
  EXPECT_EQ(property.GetValue(), PropertyValue::OfText(u"warehouse"));
  EXPECT_EQ(DeviceOid(descriptors_, access_, u"cfg|*|SSID"), u"cfg|Work|SSID");
  EXPECT_EQ(DeviceOid(descriptors_, access_, u"cfg|*|Other"), u"cfg|*|Other");
  EXPECT_EQ(FindDescriptor(descriptors_, u"cfg|*|SSID"), &property);
}

TEST_F(PropertyDescriptorTest, IndirectAttributesAreResolved) {
  device_.Put(u"9.9", u"5");
  terminal_.PutTable(u"Oids", u"Volume", u"9.9");
  terminal_.PutTable(u"Ranges", u"Volume", u"0-255");
  const PropertyDescriptor& property =
      Make({{u"OID", u"Table,Oids,Volume"}, {u"Type", u"Integer"}, {u"Range", u"Table,Ranges,Volume"}});
  EXPECT_EQ(FindDescriptor(descriptors_, u"9.9"), &property);
  EXPECT_EQ(property.GetTextFormat(), u"###");
}

TEST_F(PropertyDescriptorTest, AnUnknownTypeHoldsNothing) {
  const PropertyDescriptor& property = MakeWithValue(u"Mystery", u"5");
  EXPECT_TRUE(property.GetValue().IsEmpty());
  EXPECT_EQ(property.HeldType(), u"Mystery");
  EXPECT_TRUE(property.IsAvailable());
}

TEST_F(PropertyDescriptorTest, SecurityMakesItReadOnlyWithoutAnEditor) {
  const PropertyDescriptor& property = MakeWithValue(u"Integer", u"5", {{u"Security", u"1"}});
  EXPECT_TRUE(property.IsReadOnly());
  EXPECT_EQ(property.EditorName(), u"None");
  EXPECT_EQ(property.HeldType(), u"Integer");
}

TEST_F(PropertyDescriptorTest, AnEditorOfItsOwnStandsBeforeSecurity) {
  const PropertyDescriptor& property =
      MakeWithValue(u"Integer", u"5", {{u"Security", u"1"}, {u"PropEditor", u"Octet String"}});
  EXPECT_FALSE(property.IsReadOnly());
  EXPECT_EQ(property.EditorName(), u"Octet String");
}

TEST_F(PropertyDescriptorTest, EmptyAttributesCountAsNotSet) {
  const PropertyDescriptor& property =
      MakeWithValue(u"Integer", u"5", {{u"Security", u""}, {u"PropEditor", u""}, {u"CmdOID", u""}});
  EXPECT_FALSE(property.IsReadOnly());
  EXPECT_EQ(property.EditorName(), u"Integer");
}

TEST_F(PropertyDescriptorTest, ACommandHasALayoutAndNoEditor) {
  const PropertyDescriptor& property = MakeWithValue(u"ReaderCmd", u"0102", {{u"CmdString", u"2,2,2"}});
  ASSERT_NE(property.CommandLayout(), nullptr);
  EXPECT_EQ(property.CommandLayout()->Count(), 2);
  EXPECT_EQ(property.EditorName(), u"None");
  EXPECT_EQ(property.GetTextFormat(), u"####");
  EXPECT_EQ(MakeWithValue(u"Integer", u"1").CommandLayout(), nullptr);
}

TEST_F(PropertyDescriptorTest, AnUnknownPseudoOidIsLeftToTheRules) {
  const PropertyDescriptor& property = Make({{u"OID", u"_Network Key Setting"}, {u"Type", u"Integer"}});
  EXPECT_EQ(FindDescriptor(descriptors_, u"_Network Key Setting"), &property);
  EXPECT_TRUE(property.GetValue().IsEmpty());
  EXPECT_TRUE(property.IsAvailable());
  EXPECT_FALSE(property.IsReadOnly());
  EXPECT_EQ(device_.TakeLog(), Lines());
}

TEST_F(PropertyDescriptorTest, TheHostsOwnAddressIsReadByTheProgramItself) {
  const PropertyDescriptor& property = Make({{u"OID", u"_GetIPAddress"}, {u"Type", u"Octet String"}});
  EXPECT_FALSE(property.GetValue().AsText().empty());
  EXPECT_TRUE(property.IsReadOnly());
  EXPECT_EQ(device_.TakeLog(), Lines());
  EXPECT_EQ(FindDescriptor(descriptors_, u"_GetIPAddress"), &property);
}

TEST_F(PropertyDescriptorTest, TheMaskComesFromTheFormatThenTheRangeThenTheType) {
  const struct {
    const char16_t* type;
    const char16_t* textFormat;
    const char16_t* range;
    const char16_t* mask;
  } cases[] = {
      {u"Integer", u"##", u"0-65535", u"##"},   {u"Integer", u"", u"0-65535", u"#####"},
      {u"Integer", u"", u"", u"######"},        {u"integer", u"", u"", u"######"},
      {u"Octet String", u"", u"1,255", u"###"}, {u"Octet String", u"", u"", u""},
      {u"IP Address", u"##", u"0-5", u""},      {u"Integer", u"", u"Table,No,Such", u"######"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(MakeWithValue(c.type, u"1", {{u"TextFmt", c.textFormat}, {u"Range", c.range}}).GetTextFormat(), c.mask)
        << base::ToUtf8(c.type) << " " << base::ToUtf8(c.textFormat) << " " << base::ToUtf8(c.range);
  }
}

TEST_F(PropertyDescriptorTest, TheRangeIsTestedWithItsMessage) {
  const PropertyDescriptor& property = MakeWithValue(u"Integer", u"1", {{u"Range", u"1,99"}});
  WideString message;
  EXPECT_TRUE(property.TestRange(PropertyValue::OfInteger(50), message));
  EXPECT_EQ(message, u"");
  EXPECT_FALSE(property.TestRange(PropertyValue::OfInteger(100), message));
  EXPECT_EQ(message, u"Value 100 is out of range {1,99}");
}

TEST_F(PropertyDescriptorTest, ANegativeNumberHeldAsTextIsTestedAsANumber) {
  const PropertyDescriptor& property = MakeWithValue(u"Integer", u"1", {{u"Range", u"-10-5"}});
  WideString message;
  EXPECT_TRUE(property.TestRange(PropertyValue::OfText(u"-7"), message));
  EXPECT_FALSE(property.TestRange(PropertyValue::OfText(u"-11"), message));
  EXPECT_EQ(message, u"Value -11 is out of range {-10-5}");
}

TEST_F(PropertyDescriptorTest, AnEmptyRangePassesEverything) {
  WideString message;
  EXPECT_TRUE(MakeWithValue(u"Integer", u"1").TestRange(PropertyValue::OfInteger(-1), message));
}

TEST_F(PropertyDescriptorTest, ARangeWhoseTableIsMissingFailsWithItsMessage) {
  const PropertyDescriptor& property = MakeWithValue(u"Integer", u"1", {{u"Range", u"Table,Ranges,Missing"}});
  WideString message;
  EXPECT_FALSE(property.TestRange(PropertyValue::OfInteger(1), message));
  EXPECT_EQ(message, u"Cannot perform range test.  Range table not found.");
}

TEST_F(PropertyDescriptorTest, ChoicesGoThroughTheSymbolsAndAreNumericForExactlyAnInteger) {
  SetSymbols({{u"ONOFF", u"0#Off|1#On"}});
  const ChoiceFormat numeric = MakeWithValue(u"Integer", u"1", {{u"ChoiceFmt", u"ONOFF"}}).Choices();
  EXPECT_EQ(numeric.GetValue(u"On"), 1);
  const ChoiceFormat text = MakeWithValue(u"integer", u"1", {{u"ChoiceFmt", u"ONOFF"}}).Choices();
  EXPECT_EQ(text.GetKey(u"On"), u"1");
  EXPECT_EQ(MakeWithValue(u"Integer", u"1").Choices().Count(), 0u);
}

TEST_F(PropertyDescriptorTest, ReplacedChoicesStayInTheLivePropertyAlone) {
  const tests::KeyValues values = {{u"OID", u"1.2.3"}, {u"Type", u"Integer"}, {u"ChoiceFmt", u"0#Off|1#On"}};
  device_.Put(u"1.2.3", u"1");
  const tests::ConfigTree tree({{u"Choice", values}});
  PropertyDescriptor property(tree.Key(u"Choice"), access_, symbols_, descriptors_);
  property.ReplaceChoices(u"1#On");
  EXPECT_EQ(property.Choices().Count(), 1u);
  const PropertyDescriptor again(tree.Key(u"Choice"), access_, symbols_, descriptors_);
  EXPECT_EQ(again.Choices().Count(), 2u);
}

TEST_F(PropertyDescriptorTest, AReplacedTypeTakesItsEditorAlong) {
  PropertyDescriptor& key = MakeWithValue(u"Hex", u"abcde");
  key.ReplaceType(u"Hex32");
  EXPECT_EQ(key.GetType(), u"Hex32");
  EXPECT_EQ(key.HeldType(), u"Hex32");
  EXPECT_EQ(key.EditorName(), u"Hex32");
  EXPECT_EQ(key.GetValue(), PropertyValue::OfText(u"abcde"));

  PropertyDescriptor& own = MakeWithValue(u"Hex", u"abcde", {{u"PropEditor", u"Hex"}});
  own.ReplaceType(u"Hex32");
  EXPECT_EQ(own.EditorName(), u"Hex");
}

TEST_F(PropertyDescriptorTest, AReplacedTypeDoesNotOpenASecureProperty) {
  PropertyDescriptor& property = MakeWithValue(u"", u"abcde", {{u"Security", u"1"}});
  property.ReplaceType(u"Hex32");
  EXPECT_EQ(property.HeldType(), u"Hex32");
  EXPECT_EQ(property.EditorName(), u"None");
  property.ReplaceType(u"");
  EXPECT_EQ(property.HeldType(), u"Hex32");
}

TEST_F(PropertyDescriptorTest, AReplacedTypeDoesNotOpenAnUnavailableProperty) {
  PropertyDescriptor& property = Make({{u"OID", u"1.2"}, {u"Type", u"Hex"}});
  property.ReplaceType(u"Hex32");
  EXPECT_EQ(property.GetType(), u"Hex32");
  EXPECT_EQ(property.HeldType(), u"None");
  EXPECT_EQ(property.EditorName(), u"None");
}

TEST_F(PropertyDescriptorTest, AnEditWaitsUntilItIsTakenRefusedOrDropped) {
  const PropertyValue five = PropertyValue::OfInteger(5);
  const PropertyValue six = PropertyValue::OfInteger(6);
  const struct {
    const char* name;
    void (*end)(PropertyDescriptor&, const PropertyValue&);
    PropertyValue value;
    PropertyValue offered;
    bool changed;
  } cases[] = {
      {"waiting", [](auto&, const auto&) {}, six, six, true},
      {"taken", [](auto& property, const auto& value) { property.SetTaken(value); }, six, six, false},
      {"refused", [](auto& property, const auto& value) { property.SetRefused(value); }, five, six, true},
      {"dropped", [](auto& property, const auto&) { property.DropEdit(); }, five, five, false},
  };
  for (const auto& c : cases) {
    PropertyDescriptor& property = MakeWithValue(u"Integer", u"5");
    property.SetNewValue(PropertyValue::OfInteger(9));
    property.SetNewValue(six);
    c.end(property, six);
    EXPECT_EQ(property.GetValue(), c.value) << c.name;
    EXPECT_EQ(property.OfferedValue(), c.offered) << c.name;
    EXPECT_EQ(property.IsChanged(), c.changed) << c.name;
  }
}

TEST_F(PropertyDescriptorTest, ARefusedValueIsOfferedUntilThereIsAnother) {
  PropertyDescriptor& property = MakeWithValue(u"Integer", u"5");
  property.SetRefused(PropertyValue::OfInteger(6));
  property.SetNewValue(PropertyValue::OfInteger(7));
  EXPECT_EQ(property.OfferedValue(), PropertyValue::OfInteger(7));
  property.SetRefused(PropertyValue::OfInteger(7));
  property.SetRead(PropertyValue::OfInteger(5));  // nothing new
  EXPECT_EQ(property.OfferedValue(), PropertyValue::OfInteger(7));
  property.SetTaken(PropertyValue::OfInteger(5));
  EXPECT_EQ(property.OfferedValue(), PropertyValue::OfInteger(5));
  property.SetRefused(PropertyValue::OfInteger(7));
  property.SetRead(PropertyValue::OfInteger(8));
  EXPECT_EQ(property.OfferedValue(), PropertyValue::OfInteger(8));
}

TEST_F(PropertyDescriptorTest, AnyValueOfTheDeviceMakesItAvailable) {
  PropertyDescriptor& open = Make({{u"OID", u"1.2"}, {u"Type", u"Integer"}, {u"SubType", u"Date"}});
  PropertyDescriptor& secured = Make({{u"OID", u"1.3"}, {u"Type", u"Integer"}, {u"Security", u"1"}});
  for (PropertyDescriptor* property : {&open, &secured}) {
    EXPECT_FALSE(property->IsAvailable());
    EXPECT_EQ(property->SubType(), u"");
    property->SetTaken(PropertyValue::OfInteger(5));
    EXPECT_TRUE(property->IsAvailable());
    EXPECT_EQ(property->HeldType(), u"Integer");
  }
  EXPECT_EQ(open.EditorName(), u"Integer");
  EXPECT_EQ(open.SubType(), u"Date");
  EXPECT_FALSE(open.IsReadOnly());
  EXPECT_EQ(secured.EditorName(), u"None");
  EXPECT_TRUE(secured.IsReadOnly());
}

}  // namespace
}  // namespace values
