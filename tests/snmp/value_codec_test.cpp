#include "snmp/value_codec.h"

#include "base/utf8.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

namespace {

using snmp::ErrorStatus;
using snmp::TextOf;
using snmp::Value;
using snmp::ValueOf;
using snmp::ValueType;
using enum snmp::ValueType;

Value Number(ValueType type, std::int64_t number) { return {type, number, {}}; }
Value Bytes(ValueType type, std::string bytes) { return {type, 0, std::move(bytes)}; }

TEST(ValueCodec, EachTypeTravelsInItsWay) {
  using namespace std::string_literals;
  const struct {
    WideString type, text;
    Value value;
  } cases[] = {
      {u"Integer", u"-2147483648", Number(kInteger, -2147483648LL)},
      {u"integer", u"7", Number(kInteger, 7)},
      {u"Bool", u"1", Number(kInteger, 1)},
      {u"IP Address", u"192.168.0.255", Bytes(kIpAddress, "\xC0\xA8\0\xFF"s)},
      {u"Counter", u"4294967295", Number(kCounter32, 4294967295)},
      {u"Gauge", u"0", Number(kGauge32, 0)},
      {u"Time Ticks", u"8640000", Number(kTimeTicks, 8640000)},
      {u"Opaque", u"x", Bytes(kOpaque, "x")},
      {u"Octet String", u"Größe", Bytes(kOctets, "Größe")},
      {u"ReaderCmd", u"0105", Bytes(kOctets, "0105")},
      {u"Password", u"", Bytes(kOctets, "")},
      {u"Hex32", u"ab01", Bytes(kOctets, "ab01")},
      {u"None", u"5", Bytes(kOctets, "5")},
      {u"a type of its own", u"5", Bytes(kOctets, "5")},
  };
  for (const auto& c : cases) EXPECT_EQ(c.value, ValueOf(c.type, c.text)) << base::ToUtf8(c.type);
}

TEST(ValueCodec, ATextThatIsNoValueOfItsTypeTravelsAsItIs) {
  const std::pair<WideString, WideString> cases[] = {
      {u"Integer", u""},
      {u"Integer", u"007"},
      {u"Integer", u"+1"},
      {u"Integer", u"5 "},
      {u"Integer", u"-0"},
      {u"Integer", u"2147483648"},
      {u"Bool", u"TRUE"},
      {u"Counter", u"-1"},
      {u"Gauge", u"4294967296"},
      {u"Time Ticks", u"1d"},
      {u"IP Address", u"1.2.3"},
      {u"IP Address", u"1.2.3.4.5"},
      {u"IP Address", u"1.2.3.256"},
      {u"IP Address", u"1.2.3.04"},
      {u"IP Address", u"1.2.3."},
      {u"IP Address", u"1.2.3.4."},
      {u"IP Address", u""},
  };
  for (const auto& [type, text] : cases) {
    EXPECT_EQ(Bytes(kOctets, base::ToUtf8(text)), ValueOf(type, text)) << base::ToUtf8(type + u" " + text);
  }
}

TEST(ValueCodec, ASetTakesWhatTheTypeHolds) {
  using enum snmp::ErrorStatus;
  const struct {
    const char16_t* type;
    const char16_t* current;
    Value value;
    ErrorStatus status;
    const char16_t* text;
  } cases[] = {
      {u"Integer", u"1", Number(kInteger, -5), kNoError, u"-5"},
      {u"Integer", u"1", Number(kGauge32, 5), kWrongType, u"old"},
      {u"Integer", u"1", Bytes(kOctets, "5"), kWrongType, u"old"},
      {u"Integer", u"", Bytes(kOctets, "5"), kNoError, u"5"},  // it travels so now
      {u"Integer", u"", Number(kInteger, 5), kNoError, u"5"},
      {u"Integer", u"1", Number(kInteger, 1LL << 31), kWrongValue, u"old"},
      {u"Bool", u"1", Number(kInteger, 0), kNoError, u"0"},
      {u"Bool", u"1", Number(kInteger, 2), kWrongValue, u"old"},
      {u"Gauge", u"1", Number(kGauge32, 4294967295), kNoError, u"4294967295"},
      {u"IP Address", u"1.1.1.1", Bytes(kIpAddress, "\x0A\x01\x02\xFF"), kNoError, u"10.1.2.255"},
      {u"IP Address", u"1.1.1.1", Bytes(kIpAddress, "\x0A\x01\x02"), kWrongLength, u"old"},
      {u"IP Address", u"1.1.1.1", Bytes(kIpAddress, "\x0A\x01\x02\x03\x04"), kWrongLength, u"old"},
      {u"Counter", u"1", Number(kCounter32, 2), kNotWritable, u"old"},
      {u"Time Ticks", u"1", Number(kTimeTicks, 2), kNotWritable, u"old"},
      {u"Opaque", u"x", Bytes(kOpaque, "y"), kNoError, u"y"},
      {u"Opaque", u"x", Bytes(kOctets, "y"), kWrongType, u"old"},
      {u"Octet String", u"x", Bytes(kOctets, "Größe\t"), kNoError, u"Größe\t"},
      {u"Octet String", u"x", Bytes(kOctets, "\xFF"), kWrongValue, u"old"},
      {u"Octet String", u"x", Number(kInteger, 5), kWrongType, u"old"},
      {u"Octet String", u"x", Number(kNull, 0), kWrongType, u"old"},
      {u"Hex", u"x", Bytes(static_cast<ValueType>(0x06), ""), kWrongType, u"old"},
  };
  for (const auto& c : cases) {
    WideString text = u"old";
    EXPECT_EQ(c.status, TextOf(c.value, c.type, c.current, text))
        << base::ToUtf8(c.type) << c.value.number << c.value.bytes;
    EXPECT_EQ(c.text, text) << base::ToUtf8(c.type) << c.value.number << c.value.bytes;
  }
}

TEST(ValueCodec, OfWhatIsReceivedTheReceivedTypeDecides) {
  const struct {
    Value value;
    std::optional<WideString> text;
  } cases[] = {
      {Number(kInteger, -5), u"-5"},
      {Number(kCounter32, 4294967295), u"4294967295"},
      {Number(kGauge32, 0), u"0"},
      {Number(kTimeTicks, 8640000), u"8640000"},
      {Number(kCounter64, -1), u"18446744073709551615"},
      {Bytes(kIpAddress, "\x0A\x01\x02\xFF"), u"10.1.2.255"},
      {Bytes(kIpAddress, "\x0A\x01"), u"10.1"},
      {Bytes(kOctets, ""), u""},
      {Bytes(kOctets, "Größe"), u"Größe"},
      {Bytes(kOctets, "a\xFFz"), u"a\uFFFDz"},
      {Bytes(kOpaque, "x"), u"x"},
      {Bytes(kObjectId, "1.3.6.1"), u"1.3.6.1"},
      {Number(kNull, 0), std::nullopt},
      {Number(kNoSuchObject, 0), std::nullopt},
      {Number(kNoSuchInstance, 0), std::nullopt},
      {Number(kEndOfMibView, 0), std::nullopt},
      {Number(static_cast<ValueType>(0x30), 0), std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(c.text, snmp::ReceivedText(c.value)) << c.value.number << c.value.bytes;
}

TEST(ValueCodec, ATextThatLacksReceivedOctetsIsDamaged) {
  EXPECT_TRUE(snmp::IsDamagedText(Bytes(kOctets, "a\xFFz")));
  EXPECT_TRUE(snmp::IsDamagedText(Bytes(kOpaque, "\x80")));
  for (const Value& whole : {Bytes(kOctets, "Größe"), Bytes(kOctets, "\uFFFD"), Bytes(kOctets, ""),
                             Bytes(kIpAddress, "\xFF\xFF\xFF\xFF"), Number(kInteger, 5)}) {
    EXPECT_FALSE(snmp::IsDamagedText(whole)) << whole.bytes;
  }
}

TEST(ValueCodec, ATextIsSentAsAValueOfItsType) {
  const struct {
    ValueType type;
    const char16_t* text;
    std::optional<Value> value;
  } cases[] = {
      {kInteger, u"-5", Number(kInteger, -5)},
      {kInteger, u"+5", Number(kInteger, 5)},
      {kInteger, u"007", Number(kInteger, 7)},
      {kInteger, u"-00", Number(kInteger, 0)},
      {kInteger, u"2147483647", Number(kInteger, 2147483647)},
      {kInteger, u"2147483648", std::nullopt},
      {kInteger, u"99999999999999999999", std::nullopt},
      {kInteger, u"", std::nullopt},
      {kInteger, u"-", std::nullopt},
      {kInteger, u"+-5", std::nullopt},
      {kInteger, u"5 ", std::nullopt},
      {kInteger, u"0x5", std::nullopt},
      {kGauge32, u"4294967295", Number(kGauge32, 4294967295)},
      {kGauge32, u"-1", std::nullopt},
      {kIpAddress, u"10.1.2.255", Bytes(kIpAddress, "\x0A\x01\x02\xFF")},
      {kIpAddress, u"10.1.2", std::nullopt},
      {kIpAddress, u"a name", std::nullopt},
      {kOctets, u"Größe", Bytes(kOctets, "Größe")},
      {kOctets, u"", Bytes(kOctets, "")},
      {kOpaque, u"x", Bytes(kOpaque, "x")},
      {kCounter32, u"5", std::nullopt},
      {kTimeTicks, u"5", std::nullopt},
      {kCounter64, u"5", std::nullopt},
      {kObjectId, u"1.3", std::nullopt},
      {kNull, u"", std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(c.value, snmp::ValueToSend(c.type, c.text)) << base::ToUtf8(c.text);
}

TEST(ValueCodec, PasswordsAndKeysAreSecret) {
  for (const char16_t* type : {u"Password", u"Hex", u"Hex32", u"PASSWORD"}) EXPECT_TRUE(snmp::IsSecret(type));
  for (const char16_t* type : {u"Octet String", u"Integer", u"None", u""}) EXPECT_FALSE(snmp::IsSecret(type));
}

}  // namespace
