#include "snmp/snmp_device.h"

#include "base/utf8.h"
#include "tests/printing.h"
#include "tests/snmp/scripted_session.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace std::chrono_literals;
using enum snmp::ValueType;
using platform::ResultCode;
using platform::Setting;
using snmp::ErrorStatus;
using snmp::Request;
using snmp::Response;
using snmp::Value;
using snmp::ValueType;
using snmp::Variable;

Value Number(ValueType type, std::int64_t number) { return {type, number, {}}; }
Value Octets(std::string bytes) { return {kOctets, 0, std::move(bytes)}; }

class SnmpDeviceTest : public testing::Test {
 protected:
  SnmpDeviceTest() {
    session.device = [this](const Request& request) {
      return std::vector<ScriptedSession::Later>{{10ms, Answer(request)}};
    };
  }

  // A device that takes whatever it is told.
  Response Answer(const Request& request) {
    Response response;
    for (const Variable& variable : request.variables) {
      if (request.command == snmp::Command::kSet) values[variable.oid] = variable.value;
      const auto found = values.find(variable.oid);
      response.variables.push_back({variable.oid, found == values.end() ? Number(kNoSuchObject, 0) : found->second});
    }
    return response;
  }

  Value& At(WideStringView oid) { return values[snmp::OidOf(oid).value()]; }

  // The text, or the failing code.
  std::string Get(const WideString& oid, const WideString& type = u"Octet String") {
    std::optional<WideString> text = u"before";
    const ResultCode code = device->Get(oid, type, text);
    EXPECT_EQ(code >= 0, text.has_value());
    char hex[11] = {};
    std::snprintf(hex, sizeof hex, "0x%08X", static_cast<unsigned>(code));
    return text ? base::ToUtf8(*text) : hex;
  }

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) {
    return device->Set(oid, type, value);
  }

  // What was sent last.
  const Value& Sent() const { return session.sent.back().variables.back().value; }

  void Meet(snmp::DeviceHabits habits) { device = MakeSnmpDevice(inquiry, std::move(habits)); }

  std::map<snmp::Oid, Value> values;
  ScriptedSession session;
  snmp::Inquiry inquiry{session};
  std::unique_ptr<platform::ISnmpConfig> device = MakeSnmpDevice(inquiry, {});
};

TEST_F(SnmpDeviceTest, ReadsWhatTheDeviceHasWhateverTypeWasExpected) {
  At(u"1.3.1") = Number(kInteger, -7);
  At(u"1.3.2") = Octets("Größe");
  At(u"cfg|a|b") = Octets("On");
  EXPECT_EQ("-7", Get(u"1.3.1", u"IP Address"));
  EXPECT_EQ("Größe", Get(u"1.3.2", u"Integer"));
  EXPECT_EQ("On", Get(u"cfg|a|b"));
  EXPECT_EQ("0x80004005", Get(u"1.3.9"));
  std::optional<WideString> text;
  EXPECT_EQ(platform::kOk, device->GetSpecial(u"1.3.1", u"Integer", text));
  EXPECT_EQ(u"-7", text);
}

TEST_F(SnmpDeviceTest, AsksNothingForANameThatNoMessageCanHold) {
  for (const char16_t* oid : {u"", u"sysName", u"6.1", u"_Pseudo"}) {
    EXPECT_EQ("0x80004005", Get(oid));
    EXPECT_EQ(platform::kFailed, Set(oid, u"Integer", u"1"));
  }
  EXPECT_EQ(0u, session.sent.size());
}

TEST_F(SnmpDeviceTest, SetsByTheTypeLastSeenElseByItsName) {
  EXPECT_EQ(platform::kOk, Set(u"1.3.1", u"Integer", u"05"));
  EXPECT_EQ(Number(kInteger, 5), Sent());
  At(u"1.3.1") = Number(kGauge32, 1);
  Get(u"1.3.1");
  EXPECT_EQ(platform::kOk, Set(u"1.3.1", u"Integer", u"6"));
  EXPECT_EQ(Number(kGauge32, 6), Sent());
  At(u"1.3.1") = Octets("");
  Get(u"1.3.1");
  EXPECT_EQ(platform::kOk, device->SetSpecial(u"1.3.1", u"Integer", u"six"));
  EXPECT_EQ(Octets("six"), Sent());
  // An answer that is no value says nothing about a type.
  values.clear();
  Get(u"1.3.1");
  EXPECT_EQ(platform::kOk, Set(u"1.3.1", u"Integer", u"seven"));
}

TEST_F(SnmpDeviceTest, SendsNothingThatIsNoValueOfItsType) {
  At(u"1.3.5") = {kObjectId, 0, "1.3.6"};
  Get(u"1.3.5");
  const auto sent = session.sent.size();
  EXPECT_EQ(snmp::kInvalidArgument, Set(u"1.3.1", u"Integer", u"five"));
  EXPECT_EQ(snmp::kInvalidArgument, Set(u"1.3.1", u"Bool", u""));
  EXPECT_EQ(snmp::kInvalidArgument, Set(u"1.3.2", u"IP Address", u"1.2.3"));
  EXPECT_EQ(snmp::kInvalidArgument, Set(u"1.3.3", u"Octet String", WideString(60001, u'x')));
  EXPECT_EQ(platform::kAccessDenied, Set(u"1.3.4", u"Counter", u"1"));
  EXPECT_EQ(platform::kAccessDenied, Set(u"1.3.4", u"Time Ticks", u"1"));
  EXPECT_EQ(platform::kAccessDenied, Set(u"1.3.5", u"Octet String", u"1"));
  EXPECT_EQ(sent, session.sent.size());
}

TEST_F(SnmpDeviceTest, NeverWritesBackWhatItCouldNotRead) {
  At(u"1.3.1") = Octets("a\xFFz");
  EXPECT_EQ("a\uFFFDz", Get(u"1.3.1"));
  EXPECT_EQ(snmp::kInvalidArgument, Set(u"1.3.1", u"Octet String", u"a\uFFFDz"));
  EXPECT_EQ(snmp::kInvalidArgument, Set(u"1.3.1", u"Octet String", u"a\uFFFDzy"));
  EXPECT_EQ(1u, session.sent.size());
  EXPECT_EQ(platform::kOk, Set(u"1.3.1", u"Octet String", u"az"));
  Get(u"1.3.1");
  EXPECT_EQ(platform::kOk, Set(u"1.3.1", u"Octet String", u"\uFFFD"));
}

TEST_F(SnmpDeviceTest, OfADeviceWithTruthValuesTwoIsFalse) {
  Meet({.truthValues = true});
  At(u"1.3.1") = Number(kInteger, 2);
  At(u"1.3.2") = Number(kInteger, 1);
  EXPECT_EQ("0", Get(u"1.3.1", u"Bool"));
  EXPECT_EQ("1", Get(u"1.3.2", u"bool"));
  EXPECT_EQ("2", Get(u"1.3.1", u"Integer"));
  EXPECT_EQ(platform::kOk, Set(u"1.3.2", u"Bool", u"0"));
  EXPECT_EQ(Number(kInteger, 2), Sent());
  EXPECT_EQ(platform::kOk, Set(u"1.3.2", u"Bool", u"1"));
  EXPECT_EQ(Number(kInteger, 1), Sent());
  EXPECT_EQ(platform::kOk, Set(u"1.3.2", u"Integer", u"0"));
  EXPECT_EQ(Number(kInteger, 0), Sent());
}

TEST_F(SnmpDeviceTest, NamesWithBarsStandWhereTheDeviceHasThem) {
  Meet({.namesRoot = {1, 3, 9}});
  values[{1, 3, 9, 3, 'a', '|', 'b'}] = Octets("here");
  EXPECT_EQ("here", Get(u"a|b"));
}

TEST_F(SnmpDeviceTest, WhatActsIsNotSetTwice) {
  Meet({.acts = [](WideStringView oid, WideStringView) { return oid == u"1.3.1"; }});
  session.device = [this](const Request& request) {
    if (request.command == snmp::Command::kSet) return std::vector<ScriptedSession::Later>{};
    return std::vector<ScriptedSession::Later>{{10ms, Answer(request)}};
  };
  const auto sets = [this] {
    return std::count_if(session.sent.begin(), session.sent.end(),
                         [](const Request& request) { return request.command == snmp::Command::kSet; });
  };
  EXPECT_EQ(snmp::kTimedOut, Set(u"1.3.1", u"Integer", u"1"));
  EXPECT_EQ(1, sets());
  EXPECT_EQ(snmp::kTimedOut, Set(u"1.3.2", u"Integer", u"1"));
  EXPECT_EQ(3, sets());
}

// --- reading ahead ---

class ReadAheadTest : public SnmpDeviceTest {
 protected:
  ReadAheadTest() {
    At(u"1.3.1") = Number(kInteger, 1);
    At(u"1.3.2") = Number(kInteger, 2);
  }

  void ReadAhead(std::vector<Setting> settings) {
    device->ReadAhead([&settings] { return settings; });
  }
};

TEST_F(ReadAheadTest, OneRequestServesEachGetThatWasNamed) {
  ReadAhead({{u"1.3.1", u"Integer"},
             {u"1.3.2", u"Integer"},
             {u"1.3.1", u"Integer"},
             {u"1.3.3", u"Integer"},
             {u"no oid", u"Integer"}});
  EXPECT_EQ(1u, session.sent.size());
  EXPECT_EQ(3u, session.sent[0].variables.size());
  EXPECT_EQ("1", Get(u"1.3.1"));
  EXPECT_EQ("1", Get(u"1.3.1"));
  EXPECT_EQ("2", Get(u"1.3.2"));
  EXPECT_EQ("0x80004005", Get(u"1.3.3"));
  EXPECT_EQ(1u, session.sent.size());
  At(u"1.3.1") = Number(kInteger, 11);
  EXPECT_EQ("11", Get(u"1.3.1"));
  EXPECT_EQ(2u, session.sent.size());
}

TEST_F(ReadAheadTest, ASetMakesAllThatWasReadOld) {
  ReadAhead({{u"1.3.1", u"Integer"}, {u"1.3.2", u"Integer"}});
  Set(u"1.3.2", u"Integer", u"5");
  At(u"1.3.1") = Number(kInteger, 11);
  EXPECT_EQ("11", Get(u"1.3.1"));
  EXPECT_EQ("5", Get(u"1.3.2"));
}

TEST_F(ReadAheadTest, WhatWasNotAskedForIsForgottenInTheEnd) {
  ReadAhead({{u"1.3.1", u"Integer"}});
  device->ReadAhead({});
  At(u"1.3.1") = Number(kInteger, 11);
  EXPECT_EQ("11", Get(u"1.3.1"));
  ReadAhead({{u"1.3.1", u"Integer"}});
  ReadAhead({{u"1.3.2", u"Integer"}});
  At(u"1.3.1") = Number(kInteger, 12);
  EXPECT_EQ("12", Get(u"1.3.1"));
}

TEST_F(ReadAheadTest, TheTypeThatWasReadAheadCountsForASet) {
  At(u"1.3.1") = Number(kGauge32, 1);
  ReadAhead({{u"1.3.1", u"Integer"}});
  Set(u"1.3.1", u"Integer", u"5");
  EXPECT_EQ(Number(kGauge32, 5), Sent());
}

TEST_F(SnmpDeviceTest, OfACommandThatMayHaveBeenDoneSomebodyIsTold) {
  std::vector<WideString> told;
  Meet({.acts = [](WideStringView oid, WideStringView) { return oid != u"1.3.2"; },
        .inDoubt = [&told](WideStringView oid) { told.emplace_back(oid); }});
  At(u"1.3.1") = At(u"1.3.2") = Number(kInteger, 5);
  session.device = [this](const Request& request) {
    const Response response = Answer(request);
    const bool isLost = request.command == snmp::Command::kSet;
    return isLost ? std::vector<ScriptedSession::Later>{} : std::vector<ScriptedSession::Later>{{10ms, response}};
  };
  EXPECT_EQ(platform::kTimedOut, Set(u"1.3.1", u"Integer", u"5"));
  EXPECT_EQ(platform::kOk, Set(u"1.3.1", u"Integer", u"6"));
  EXPECT_EQ(platform::kOk, Set(u"1.3.2", u"Integer", u"5"));
  EXPECT_EQ(std::vector<WideString>{u"1.3.1"}, told);
}

TEST_F(ReadAheadTest, WhatItDidNotBringIsAskedForAlone) {
  session.device = [this](const Request& request) {
    if (request.variables.size() > 1) return std::vector<ScriptedSession::Later>{};
    return std::vector<ScriptedSession::Later>{{10ms, Answer(request)}};
  };
  ReadAhead({{u"1.3.1", u"Integer"}, {u"1.3.2", u"Integer"}});
  EXPECT_EQ("0x800705B4", Get(u"1.3.1"));  // the device is left alone for a while
  session.Pass(5s);
  EXPECT_EQ("1", Get(u"1.3.1"));
}

}  // namespace
