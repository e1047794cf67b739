#include "values/value_types.h"

#include "tests/printing.h"

#include <gtest/gtest.h>

namespace values {
namespace {

WideString Dump(const PropertyValue& value) {
  if (value.IsEmpty()) return u"empty";
  return (value.IsInteger() ? u"number " : u"text ") + value.AsText();
}

TEST(PropertyValue, HoldsNothingANumberOrAText) {
  PropertyValue value;
  EXPECT_EQ(Dump(value), u"empty");
  EXPECT_EQ(value.AsText(), u"");
  EXPECT_EQ(value.AsInteger(), 0);
  value.SetInteger(-12);
  EXPECT_EQ(Dump(value), u"number -12");
  value.SetText(u"abc");
  EXPECT_EQ(Dump(value), u"text abc");
  EXPECT_EQ(value.AsInteger(), 0);
  value.SetText(u"-7 degrees");
  EXPECT_EQ(value.AsInteger(), -7);
  PropertyValue copy = value;
  value.Clear();
  EXPECT_EQ(value, PropertyValue());
  EXPECT_EQ(Dump(copy), u"text -7 degrees");
}

TEST(PropertyValue, AnEmptyTextIsNotNothing) { EXPECT_NE(PropertyValue::OfText(u""), PropertyValue()); }

TEST(ValueTypes, CodesAreFoundWithoutRegardToCase) {
  EXPECT_EQ(TypeCodeOf(u"None"), TypeCode::kNone);
  EXPECT_EQ(TypeCodeOf(u"INTEGER"), TypeCode::kInteger);
  EXPECT_EQ(TypeCodeOf(u"bool"), TypeCode::kBool);
  EXPECT_EQ(TypeCodeOf(u"octet string"), TypeCode::kOctetString);
  EXPECT_EQ(TypeCodeOf(u"ip address"), TypeCode::kIpAddress);
  EXPECT_EQ(TypeCodeOf(u"ReaderCmd"), TypeCode::kReaderCmd);
  EXPECT_EQ(TypeCodeOf(u"PASSWORD"), TypeCode::kPassword);
  EXPECT_EQ(TypeCodeOf(u"hex"), TypeCode::kHex);
  EXPECT_EQ(TypeCodeOf(u""), std::nullopt);
  EXPECT_EQ(TypeCodeOf(u"Counter"), std::nullopt);
  EXPECT_EQ(TypeCodeOf(u"Integer "), std::nullopt);
}

TEST(ValueTypes, OnlyAnExactHex32IsHex) {
  EXPECT_EQ(TypeCodeOf(u"Hex32"), TypeCode::kHex);
  EXPECT_EQ(TypeCodeOf(u"hex32"), std::nullopt);
}

TEST(ValueTypes, EveryCodeHasItsText) {
  for (int code = 0; code < kTypeCodeCount; ++code) {
    const auto typeCode = static_cast<TypeCode>(code);
    EXPECT_EQ(TypeCodeOf(TypeTextOf(typeCode)), typeCode);
  }
}

TEST(ValueTypes, TheTypeIdIsExactAndOpaqueForAllElse) {
  EXPECT_EQ(TypeIdOf(u"Integer"), TextId::kInteger);
  EXPECT_EQ(TypeIdOf(u"Octet String"), TextId::kOctetString);
  EXPECT_EQ(TypeIdOf(u"Bool"), TextId::kBool);
  EXPECT_EQ(TypeIdOf(u"IP Address"), TextId::kIpAddress);
  EXPECT_EQ(TypeIdOf(u"Counter"), TextId::kCounter);
  EXPECT_EQ(TypeIdOf(u"Gauge"), TextId::kGauge);
  EXPECT_EQ(TypeIdOf(u"Time Ticks"), TextId::kTimeTicks);
  EXPECT_EQ(TypeIdOf(u"Opaque"), TextId::kOpaque);
  EXPECT_EQ(TypeIdOf(u"integer"), TextId::kOpaque);
  EXPECT_EQ(TypeIdOf(u"Hex"), TextId::kOpaque);
  EXPECT_EQ(TypeIdOf(u""), TextId::kOpaque);
}

TEST(ValueTypes, TextIsReadByType) {
  const struct {
    const char16_t* type;
    const char16_t* text;
    const char16_t* value;
  } cases[] = {
      {u"Integer", u"12", u"number 12"},
      {u"Integer", u"12 apples", u"number 12"},
      {u"Integer", u"99999999999", u"number 2147483647"},
      {u"Integer", u"-5", u"text -5"},
      {u"Integer", u" 5", u"text  5"},
      {u"integer", u"5", u"number 5"},
      {u"Bool", u"1", u"number 1"},
      {u"Bool", u"TRUE", u"text TRUE"},
      {u"Octet String", u"12", u"text 12"},
      {u"ReaderCmd", u"0102", u"text 0102"},
      {u"Password", u"secret", u"text secret"},
      {u"Hex", u"0x12", u"text 0x12"},
      {u"Hex32", u"0x12", u"text 0x12"},
      {u"IP Address", u"0.0.1.2", u"number 258"},
      {u"IP Address", u"192.168.0.1", u"number -1062731775"},
      {u"IP Address", u"nowhere", u"number -1"},
      {u"Counter", u"12", u"text 12"},
      {u"Gauge", u"3", u"text 3"},
      {u"Time Ticks", u"4", u"text 4"},
      {u"Opaque", u"5", u"text 5"},
      {u"None", u"5", u"empty"},
      // the value stays as it was
      {u"Unheard of", u"5", u"text before"},
      {u"", u"5", u"text before"},
      {u"Integer", u"", u"text before"},
      {u"Octet String", u"", u"text before"},
  };
  for (const auto& c : cases) {
    PropertyValue value = PropertyValue::OfText(u"before");
    ParseValueAs(c.type, c.text, value);
    EXPECT_EQ(Dump(value), c.value) << base::ToUtf8(c.type) << " " << base::ToUtf8(c.text);
  }
}

}  // namespace
}  // namespace values
