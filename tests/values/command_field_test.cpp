#include "values/property_descriptor.h"

#include "base/number.h"
#include "tests/values/property_fixture.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using tests::Lines;

class CommandField : public tests::PropertyTest {
 protected:
  PropertyDescriptor& MakeCommand(WideStringView record, WideStringView layout = u"3,2,4,3") {
    device_.Put(u"5.1", record);
    return Make({{u"OID", u"5.1"}, {u"Type", u"ReaderCmd"}, {u"CmdString", WideString(layout)}});
  }

  PropertyDescriptor& MakeField(WideStringView field, WideStringView type = u"Integer") {
    return Make({{u"CmdOID", WideString(field)}, {u"Ordinal", u"1"}, {u"Type", WideString(type)}});
  }
};

TEST_F(CommandField, ReadsItsPartOfTheCommandsValue) {
  MakeCommand(u"010234abc");
  device_.TakeLog();
  const PropertyDescriptor& first = MakeField(u"5.1:1");
  EXPECT_EQ(first.GetValue(), PropertyValue::OfInteger(1));
  EXPECT_EQ(MakeField(u"5.1:2").GetValue(), PropertyValue::OfInteger(234));
  EXPECT_EQ(MakeField(u"5.1:3", u"Octet String").GetValue(), PropertyValue::OfText(u"abc"));
  EXPECT_EQ(FindDescriptor(descriptors_, u"5.1:1"), &first);
  EXPECT_EQ(first.EditorName(), u"Integer");
  EXPECT_EQ(device_.TakeLog(), Lines());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(CommandField, AShortRecordGivesTheShorterTail) {
  MakeCommand(u"0102");
  EXPECT_EQ(MakeField(u"5.1:2", u"Octet String").GetValue(), PropertyValue::OfText(u"02"));
}

TEST_F(CommandField, NumberZeroIsNoFieldAndLeavesTheFailureTexts) {
  MakeCommand(u"010234abc");
  const PropertyDescriptor& field = MakeField(u"5.1:0");
  EXPECT_TRUE(field.GetValue().IsEmpty());
  EXPECT_TRUE(field.IsAvailable());
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"KEL_ZEP_INVALID_READERCMD_VALUE_E  m_sPath[Root\\Property]\r\n",
                                               u"nChars[-1] startPos[0] sCmdValue.GetLength[9]\r\n"}));
}

TEST_F(CommandField, BeyondTheLayoutOrTheRecordItLeavesTheFailureTexts) {
  MakeCommand(u"01");
  MakeField(u"5.1:2");
  EXPECT_EQ(terminal_.TakeDebugLines().at(1), u"nChars[4] startPos[2] sCmdValue.GetLength[2]\r\n");
  MakeField(u"5.1:4");
  EXPECT_EQ(terminal_.TakeDebugLines().at(1), u"nChars[-1] startPos[9] sCmdValue.GetLength[2]\r\n");
  MakeField(u"5.1");
  EXPECT_EQ(terminal_.TakeDebugLines().at(1), u"nChars[-1] startPos[0] sCmdValue.GetLength[2]\r\n");
}

TEST_F(CommandField, AnUnavailableCommandMakesItUnavailable) {
  Make({{u"OID", u"5.1"}, {u"Type", u"ReaderCmd"}, {u"CmdString", u"1,2"}});
  const PropertyDescriptor& field = MakeField(u"5.1:1");
  EXPECT_FALSE(field.IsAvailable());
  EXPECT_TRUE(field.IsReadOnly());
  EXPECT_EQ(field.HeldType(), u"None");
  EXPECT_EQ(field.EditorName(), u"None");
}

TEST_F(CommandField, BeforeItsCommandOrWithoutAnOrdinalItReadsNothing) {
  EXPECT_TRUE(MakeField(u"5.1:1").GetValue().IsEmpty());
  MakeCommand(u"010234abc");
  EXPECT_TRUE(Make({{u"CmdOID", u"5.1:1"}, {u"Type", u"Integer"}}).GetValue().IsEmpty());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(CommandField, ReadsItsValueAgainWhenAsked) {
  PropertyDescriptor& command = MakeCommand(u"010234abc");
  PropertyDescriptor& field = MakeField(u"5.1:1");
  command.SetNewValue(PropertyValue::OfText(u"070234abc"));
  field.InitFromCommand();
  EXPECT_EQ(field.GetValue(), PropertyValue::OfInteger(7));
}

TEST_F(CommandField, BecomesAvailableWithItsCommand) {
  PropertyDescriptor& command = Make({{u"OID", u"5.1"}, {u"Type", u"ReaderCmd"}, {u"CmdString", u"2,2,4"}});
  PropertyDescriptor& field = MakeField(u"5.1:1");
  PropertyDescriptor& beyond = MakeField(u"5.1:2");
  command.SetTaken(PropertyValue::OfText(u"07"));
  field.InitFromCommand();
  beyond.InitFromCommand();
  EXPECT_EQ(field.GetValue(), PropertyValue::OfInteger(7));
  EXPECT_EQ(field.EditorName(), u"Integer");
  EXPECT_FALSE(field.IsReadOnly());
  EXPECT_TRUE(beyond.IsAvailable());  // as when the record had been too short from the start
  EXPECT_TRUE(beyond.GetValue().IsEmpty());
}

TEST_F(CommandField, AnEditThatHadNoPlaceInTheRecordIsGoneWhenTheCommandIsTaken) {
  PropertyDescriptor& command = MakeCommand(u"01");
  PropertyDescriptor& field = MakeField(u"5.1:3", u"Octet String");
  field.SetNewValue(PropertyValue::OfText(u"abc"));
  command.SetTaken(PropertyValue::OfText(u"02"));
  field.InitFromCommand();
  EXPECT_TRUE(field.GetValue().IsEmpty());
  EXPECT_FALSE(field.IsChanged());
}

TEST_F(CommandField, IsAsWideAsItsColumn) {
  PropertyDescriptor& before = MakeField(u"5.1:2");
  MakeCommand(u"010234abc", u"4,2,4,0,-3");
  EXPECT_EQ(before.ColumnWidth(), 4);
  EXPECT_EQ(MakeField(u"5.1:1").ColumnWidth(), 2);
  for (const WideStringView none : {u"5.1:0", u"5.1:3", u"5.1:4", u"5.1:5", u"5.2:1"}) {
    EXPECT_EQ(MakeField(none).ColumnWidth(), 0);
  }
  EXPECT_EQ(MakeWithValue(u"Integer", u"5").ColumnWidth(), 0);
}

TEST_F(CommandField, ACommandWithoutALayoutGivesNothing) {
  device_.Put(u"5.1", u"0102");
  PropertyDescriptor& plain = Make({{u"OID", u"5.1"}, {u"Type", u"Octet String"}});
  const PropertyDescriptor& field = MakeField(u"5.1:1");
  EXPECT_TRUE(field.GetValue().IsEmpty());
  EXPECT_FALSE(field.WriteToCommand(&plain, PropertyValue::OfInteger(1)));
}

TEST_F(CommandField, WritesANumberPaddedWithZeros) {
  PropertyDescriptor& command = MakeCommand(u"010234abc");
  EXPECT_TRUE(MakeField(u"5.1:2").WriteToCommand(&command, PropertyValue::OfInteger(5)));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"010005abc"));
  EXPECT_TRUE(MakeField(u"5.1:1").WriteToCommand(&command, PropertyValue::OfInteger(123)));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"120005abc"));
}

TEST_F(CommandField, AWrittenTextLeavesWhatItDoesNotCover) {
  PropertyDescriptor& command = MakeCommand(u"010234abc");
  const PropertyDescriptor& field = MakeField(u"5.1:3", u"Octet String");
  EXPECT_TRUE(field.WriteToCommand(&command, PropertyValue::OfText(u"XY")));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"010234XYc"));
  EXPECT_TRUE(field.WriteToCommand(&command, PropertyValue::OfText(u"12345")));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"010234123"));
}

TEST_F(CommandField, AWrittenFieldNeverLengthensTheRecord) {
  PropertyDescriptor& command = MakeCommand(u"0102");
  EXPECT_TRUE(MakeField(u"5.1:2").WriteToCommand(&command, PropertyValue::OfInteger(9)));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"0100"));
  EXPECT_TRUE(MakeField(u"5.1:3").WriteToCommand(&command, PropertyValue::OfInteger(9)));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"0100"));
}

TEST_F(CommandField, WithoutAParentOrAttributesNothingIsWritten) {
  PropertyDescriptor& command = MakeCommand(u"010234abc");
  const PropertyValue value = PropertyValue::OfInteger(5);
  EXPECT_FALSE(MakeField(u"5.1:1").WriteToCommand(nullptr, value));
  EXPECT_FALSE(Make({{u"CmdOID", u"5.1:1"}, {u"Type", u"Integer"}}).WriteToCommand(&command, value));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"010234abc"));
}

TEST_F(CommandField, AWriteOutsideTheLayoutIsDoneAndChangesNothing) {
  PropertyDescriptor& command = MakeCommand(u"010234abc");
  for (const WideStringView field : {u"5.1:0", u"5.1:4", u"5.1"}) {
    EXPECT_TRUE(MakeField(field).WriteToCommand(&command, PropertyValue::OfInteger(5)));
    EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"010234abc"));
  }
  PropertyDescriptor& backwards = MakeCommand(u"010234abc", u"3,-2,4,0");
  for (const WideStringView field : {u"5.1:1", u"5.1:2", u"5.1:3"}) {
    EXPECT_TRUE(MakeField(field).WriteToCommand(&backwards, PropertyValue::OfInteger(5)));
    EXPECT_EQ(backwards.GetValue(), PropertyValue::OfText(u"010234abc"));
  }
}

TEST_F(CommandField, ANumberFillsAFieldOfAnyWidth) {
  for (const std::size_t width : {260u, 261u, 300u, 5000u}) {
    const WideString layout = u"2," + base::ToText(static_cast<std::int64_t>(width)) + u",3";
    PropertyDescriptor& command = MakeCommand(WideString(width, u'x') + u"abc", layout);
    EXPECT_TRUE(MakeField(u"5.1:1").WriteToCommand(&command, PropertyValue::OfInteger(42)));
    EXPECT_EQ(command.GetValue(), PropertyValue::OfText(WideString(width - 2, u'0') + u"42abc")) << width;
    EXPECT_TRUE(MakeField(u"5.1:1", u"Octet String").WriteToCommand(&command, PropertyValue::OfText(command.Path())));
    EXPECT_TRUE(command.GetValue().AsText().starts_with(command.Path() + u"0")) << width;
  }
}

TEST_F(CommandField, ANegativeNumberHasItsSignInFrontOfTheZeros) {
  PropertyDescriptor& command = MakeCommand(u"010234abc");
  EXPECT_TRUE(MakeField(u"5.1:2").WriteToCommand(&command, PropertyValue::OfInteger(-5)));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"01-000abc"));
}

TEST_F(CommandField, AHugeWidthIsWrittenInMeasure) {
  for (const WideStringView layout : {u"1,2000000000", u"1,2147483647"}) {
    PropertyDescriptor& command = MakeCommand(u"0102", layout);
    EXPECT_TRUE(MakeField(u"5.1:1").WriteToCommand(&command, PropertyValue::OfInteger(987654321)));
    EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"0000"));
  }
}

TEST_F(CommandField, ARecordThatEndsWithinTheNumberHasItsFirstDigits) {
  PropertyDescriptor& command = MakeCommand(u"xxxx", u"1,6");
  EXPECT_TRUE(MakeField(u"5.1:1").WriteToCommand(&command, PropertyValue::OfInteger(12345)));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"0123"));
}

}  // namespace
}  // namespace values
