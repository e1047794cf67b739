#include "snmp/recording.h"

#include "tests/snmp/scripted_session.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace std::chrono_literals;
using snmp::Oid;
using snmp::Request;
using snmp::Response;
using snmp::Sought;
using snmp::Value;
using snmp::ValueType;
using snmp::Variable;
using Later = ScriptedSession::Later;
using Texts = std::vector<std::string>;

Value Number(std::int64_t number, ValueType type = ValueType::kInteger) { return {type, number, {}}; }
Value Text(std::string text, ValueType type = ValueType::kOctets) { return {type, 0, std::move(text)}; }

class RecordingTest : public testing::Test {
 protected:
  RecordingTest() {
    session.device = [this](const Request& request) { return std::vector<Later>{{1ms, Answer(request)}}; };
  }

  Response Answer(const Request& request) const {
    Response response;
    for (const Variable& asked : request.variables) {
      const bool isWalk = request.command == snmp::Command::kGetBulk;
      const auto found = isWalk ? values.upper_bound(asked.oid) : values.find(asked.oid);
      const auto nothing = isWalk ? ValueType::kEndOfMibView : ValueType::kNoSuchInstance;
      response.variables.push_back(found == values.end() ? Variable{asked.oid, {nothing, 0, {}}}
                                                         : Variable{found->first, found->second});
    }
    return response;
  }

  Texts Lines(const std::vector<Sought>& sought) {
    recording = Record(inquiry, sought, options);
    Texts lines;
    for (const simulator::DeviceLine& line : recording.lines) lines.push_back(FormatDeviceLine(line));
    return lines;
  }

  std::map<Oid, Value> values;
  snmp::RecordingOptions options;
  snmp::Recording recording;
  ScriptedSession session;
  snmp::Inquiry inquiry{session};
};

TEST_F(RecordingTest, HasTheValuesInTheOrderAndWithTheTypesThatAreSought) {
  values = {{{1, 3, 1}, Number(-5)},
            {{1, 3, 2}, Text("a\tb")},
            {*snmp::OidOf(u"cfg|x"), Text(std::string("\x0A\0\0\1", 4), ValueType::kIpAddress)}};
  EXPECT_EQ((Texts{"cfg|x\tIP Address\t10.0.0.1", "1.3.2\tReaderCmd\ta\\tb", "1.3.1\tInteger\t-5"}),
            Lines({{u"cfg|x", u"IP Address"}, {u"1.3.2", u"ReaderCmd"}, {u"1.3.1", u"Integer"}}));
  EXPECT_TRUE(recording.missing.empty());
  EXPECT_TRUE(recording.remarks.empty());
  EXPECT_FALSE(recording.isBroken);
}

TEST_F(RecordingTest, SaysWhatIsOtherwiseThanTheConfigurationHasIt) {
  values = {{{1, 3, 1}, Text("5")},
            {{1, 3, 2}, Number(5, ValueType::kGauge32)},
            {{1, 3, 3}, Text("\xFF")},
            {{1, 3, 4}, Number(1)}};
  EXPECT_EQ(
      (Texts{"1.3.1\tInteger\t5", "1.3.2\tOctet String\t5", "1.3.3\tOctet String\t\xEF\xBF\xBD", "1.3.4\tInteger\t1"}),
      Lines({{u"1.3.1", u"Integer"}, {u"1.3.2", u"Octet String"}, {u"1.3.3", u"Octet String"}, {u"1.3.4", u""}}));
  EXPECT_EQ((Texts{"1.3.1: the type is Integer in the configuration, and OCTET STRING on the device",
                   "1.3.2: the type is Octet String in the configuration, and Gauge32 on the device",
                   "1.3.3: the value has octets that are no UTF-8; U+FFFD stands for them"}),
            recording.remarks);
  EXPECT_TRUE(recording.missing.empty());
}

TEST_F(RecordingTest, ListsWhatCannotBeRead) {
  values[{1, 3, 5}] = Number(5);
  session.device = [this](const Request& request) {
    for (std::size_t i = 0; i < request.variables.size(); ++i) {
      const auto last = request.variables[i].oid.back();
      const auto status = last == 1   ? snmp::ErrorStatus::kGenErr
                          : last == 2 ? snmp::ErrorStatus::kNoAccess
                                      : snmp::ErrorStatus::kNoError;
      if (status != snmp::ErrorStatus::kNoError) return std::vector<Later>{{1ms, {status, i + 1, {}}}};
      if (last == 3 && request.variables.size() == 1) return std::vector<Later>{};
      if (last == 3) return std::vector<Later>{{1ms, {snmp::ErrorStatus::kTooBig, 0, {}}}};
    }
    return std::vector<Later>{{1ms, Answer(request)}};
  };
  EXPECT_EQ(Texts{"1.3.5\tInteger\t5"}, Lines({{u"1.3.1", u"Integer"},
                                               {u"1.3.2", u"Integer"},
                                               {u"1.3.3", u"Integer"},
                                               {u"1.3.4", u"Integer"},
                                               {u"1.3.5", u"Integer"},
                                               {u"9.9", u"Integer"},
                                               {u"1.3.7", u"Integer", false, false},
                                               {u"9.8", u"Integer", false, false}}));
  EXPECT_EQ((Texts{"9.9: is no OID that SNMP can name", "1.3.1: the device cannot read it",
                   "1.3.2: the device refuses it", "1.3.3: the device does not answer", "1.3.4: the device has none"}),
            recording.missing);
  EXPECT_FALSE(recording.isBroken);
}

TEST_F(RecordingTest, DoesNotAskForSecretsUnlessItIsTold) {
  values = {{{1, 3, 1}, Text("word")}, {{1, 3, 2}, Text("key")}, {{1, 3, 3}, Text("stars")}, {{1, 3, 4}, Text("open")}};
  const std::vector<Sought> sought = {{u"1.3.1", u"Password"}, {u"1.3.2", u"Hex32"}, {u"1.3.3", u"Octet String", true}};
  options.root = Oid{1, 3};
  EXPECT_EQ(Texts{"1.3.4\tOctet String\topen"}, Lines(sought));
  ASSERT_EQ(3u, recording.leftOut.size());
  EXPECT_EQ("1.3.2\tHex32\t", FormatDeviceLine(recording.leftOut[1]));
  for (const Request& request : session.sent) EXPECT_EQ(snmp::Command::kGetBulk, request.command);
  options.secrets = true;
  EXPECT_EQ(
      (Texts{"1.3.1\tPassword\tword", "1.3.2\tHex32\tkey", "1.3.3\tOctet String\tstars", "1.3.4\tOctet String\topen"}),
      Lines(sought));
  EXPECT_TRUE(recording.leftOut.empty());
}

TEST_F(RecordingTest, HasAllBelowARootByTheTypesOfTheDevice) {
  values = {{{1, 3, 1}, Number(1)},
            {{1, 3, 2}, Number(4'000'000'000, ValueType::kCounter32)},
            {{1, 3, 3}, Number(3, ValueType::kTimeTicks)},
            {{1, 3, 4}, Text("1.3.6", ValueType::kObjectId)},
            {{1, 3, 5}, Number(-1, ValueType::kCounter64)},
            {{1, 3, 6}, Text("", ValueType::kNoSuchInstance)},
            {*snmp::OidOf(u"a|b"), Text("name")},
            {{1, 4}, Number(4)}};
  options.root = Oid{1, 3};
  EXPECT_EQ((Texts{"1.3.3\tGauge\t3", "1.3.1\tInteger\t1", "1.3.2\tCounter\t4000000000",
                   "1.3.4\tOctet String\t1.3.6\treadonly", "1.3.5\tOctet String\t18446744073709551615\treadonly",
                   "a|b\tOctet String\tname"}),
            Lines({{u"1.3.3", u"Gauge"}}));
  EXPECT_EQ(2u, recording.remarks.size());
}

TEST_F(RecordingTest, SaysWhereAWalkCameToAnEnd) {
  options.root = Oid{1, 3};
  session.device = [](const Request&) {
    return std::vector<Later>{{1ms, {snmp::ErrorStatus::kNoError, 0, {{{1, 3, 2}, Number(2)}}}}};
  };
  EXPECT_EQ(Texts{"1.3.2\tInteger\t2"}, Lines({}));
  EXPECT_EQ(Texts{"1.3.2: the device says that nothing or a smaller OID is next: the walk ends here"},
            recording.missing);
}

TEST_F(RecordingTest, IsBrokenWhenTheDeviceIsGone) {
  session.device = [](const Request&) { return std::vector<Later>{}; };
  Lines({{u"1.3.1", u"Integer"}});
  EXPECT_TRUE(recording.isBroken);
  session.Pass(6s);
  options.root = Oid{1, 3};
  Lines({});
  EXPECT_TRUE(recording.isBroken);
}

TEST_F(RecordingTest, TakesTruthValuesForFlags) {
  values = {{{1, 3, 1}, Number(2)}, {{1, 3, 2}, Number(1)}, {{1, 3, 3}, Number(2)}};
  options.truthValues = true;
  EXPECT_EQ((Texts{"1.3.1\tBool\t0", "1.3.2\tBool\t1", "1.3.3\tInteger\t2"}),
            Lines({{u"1.3.1", u"Bool"}, {u"1.3.2", u"Bool"}, {u"1.3.3", u"Integer"}}));
}

}  // namespace
