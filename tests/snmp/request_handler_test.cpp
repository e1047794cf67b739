#include "snmp/request_handler.h"

#include "base/utf8.h"
#include "tests/platform/temporary_root.h"
#include "tests/printing.h"

#include <iterator>
#include <map>
#include <random>

namespace {

using snmp::Command;
using snmp::ErrorStatus;
using snmp::Oid;
using snmp::Request;
using snmp::Response;
using snmp::Rights;
using snmp::Value;
using snmp::ValueType;
using snmp::Variable;

constexpr Rights kReader;
constexpr Rights kWriter{.write = true, .secrets = false};
constexpr Rights kTrusted{.write = true, .secrets = true};

// 1.3.20 stands before 1.3.3 in the file and as text.
constexpr const char* kDevice =
    "1.3.20\tInteger\t20\n"
    "1.3.3\tInteger\t3\n"
    "1.3.3.1\tOctet String\tthree\n"
    "1.3.4\tInteger\t4\treadonly\n"
    "1.3.5\tInteger\t5\tget=0x80004005\n"
    "1.3.6\tInteger\t6\tset=0x80070002\n"
    "1.3.7\tInteger\t7\tset=0x80070005\n"
    "1.3.8\tInteger\t8\tnull\n"
    "1.3.9\tInteger\t9\tget=0x00000001,set=0x00000001\n"
    "1.3.10\tInteger\t10\tdelay=300\n"
    "1.3.11\tInteger\t11\tdelay=59900\n"
    "1.3.12\tPassword\tsecret\n"
    "1.3.13\tTime Ticks\t13\n"
    "1.3.14\tInteger\t14\tset=0x80070057\n"
    "a|b\tOctet String\tname\n"
    "sysName\tOctet String\tnot served\n";

class Agent {
 public:
  explicit Agent(const std::string& device = kDevice) {
    root_.Write("device.txt", device);
    store_ = simulator::DeviceStore::Open(root_.Path() / "device.txt").store;
    mib_.emplace(*store_);
    handler_.emplace(*store_, *mib_);
  }

  const snmp::DeviceMib& Mib() const { return *mib_; }
  std::string File() const { return root_.Read("device.txt"); }
  void LoseFile() const { std::filesystem::remove(root_.Path() / "device.txt"); }

  Response Handle(const Request& request, Rights rights) { return handler_->Answer(request, rights); }
  Response Ask(Command command, const std::vector<const char16_t*>& oids, Rights rights = kReader) {
    return Handle({command, 0, 0, Asked(oids)}, rights);
  }
  Response Bulk(std::int64_t nonRepeaters, std::int64_t maxRepetitions, const std::vector<const char16_t*>& oids,
                Rights rights = kReader) {
    return Handle({Command::kGetBulk, nonRepeaters, maxRepetitions, Asked(oids)}, rights);
  }
  Response Set(const std::vector<std::pair<const char16_t*, Value>>& changes, Rights rights = kWriter) {
    return Handle(Changes(changes), rights);
  }
  std::int64_t DelayMs(const Request& request, Rights rights = kWriter) {
    return handler_->DelayOf(request, rights).count();
  }
  WideString ValueOf(const WideString& oid) {
    std::optional<WideString> value;
    store_->Get(oid, value);
    return value.value_or(u"null");
  }

  static std::vector<Variable> Asked(const std::vector<const char16_t*>& oids) {
    std::vector<Variable> variables;
    for (const char16_t* oid : oids) variables.push_back({snmp::OidOf(oid).value(), {}});
    return variables;
  }
  static Request Changes(const std::vector<std::pair<const char16_t*, Value>>& changes) {
    Request request{Command::kSet, 0, 0, {}};
    for (const auto& [oid, value] : changes) request.variables.push_back({snmp::OidOf(oid).value(), value});
    return request;
  }

 private:
  tests::TemporaryRoot root_;
  std::unique_ptr<simulator::DeviceStore> store_;
  std::optional<snmp::DeviceMib> mib_;
  std::optional<snmp::RequestHandler> handler_;
};

Value Integer(std::int64_t number) { return {ValueType::kInteger, number, {}}; }
Value Text(std::string bytes) { return {ValueType::kOctets, 0, std::move(bytes)}; }

// "OID=VALUE" of each variable, or "error STATUS at INDEX".
std::string Said(const Response& response) {
  static const std::map<ValueType, std::string> kKinds = {{ValueType::kNoSuchObject, "no object"},
                                                          {ValueType::kNoSuchInstance, "no instance"},
                                                          {ValueType::kEndOfMibView, "end"}};
  if (response.status != ErrorStatus::kNoError) {
    EXPECT_TRUE(response.variables.empty());
    return "error " + std::to_string(static_cast<int>(response.status)) + " at " + std::to_string(response.index);
  }
  std::string said;
  for (const Variable& variable : response.variables) {
    if (!said.empty()) said += " ";
    for (const std::uint32_t number : variable.oid) said += std::to_string(number) + ".";
    said.back() = '=';
    const auto kind = kKinds.find(variable.value.type);
    const bool isNumber = variable.value.type == ValueType::kInteger || variable.value.type == ValueType::kTimeTicks;
    said += kind != kKinds.end() ? kind->second
            : isNumber           ? std::to_string(variable.value.number)
                                 : variable.value.bytes;
  }
  return said;
}

TEST(RequestHandler, AGetAnswersEachVariable) {
  Agent agent;
  EXPECT_EQ("1.3.3=3 1.3.3.1=three 1.3.3=3", Said(agent.Ask(Command::kGet, {u"1.3.3", u"1.3.3.1", u"1.3.3"})));
  EXPECT_EQ("1.3.6.1.4.1.4242.20.1.3.97.124.98=name", Said(agent.Ask(Command::kGet, {u"a|b"})));
  EXPECT_EQ("1.3.2=no object 1.3=no object 1.3.8=no instance 1.3.9=9",
            Said(agent.Ask(Command::kGet, {u"1.3.2", u"1.3", u"1.3.8", u"1.3.9"})));
  EXPECT_EQ("", Said(agent.Ask(Command::kGet, {})));
}

TEST(RequestHandler, AGetThatTheDeviceRefusesFailsTheWholeAtItsIndex) {
  Agent agent;
  EXPECT_EQ("error 5 at 1", Said(agent.Ask(Command::kGet, {u"1.3.5", u"1.3.3"})));
  EXPECT_EQ("error 5 at 3", Said(agent.Ask(Command::kGet, {u"1.3.3", u"1.3.2", u"1.3.5", u"1.3.5"})));
}

TEST(RequestHandler, ANextGoesInNumericOrderAndStopsAtNothingThatHasNoValue) {
  Agent agent;
  EXPECT_EQ("1.3.3=3 1.3.3.1=three 1.3.4=4", Said(agent.Ask(Command::kGetNext, {u"1.3", u"1.3.3", u"1.3.3.99"})));
  EXPECT_EQ("1.3.6=6 1.3.7=7 1.3.9=9", Said(agent.Ask(Command::kGetNext, {u"1.3.4", u"1.3.6.2", u"1.3.7"})));
  EXPECT_EQ("1.3.6.1.4.1.4242.20.1.3.97.124.98=name", Said(agent.Ask(Command::kGetNext, {u"1.3.6"})));
  EXPECT_EQ("1.3.20=end 2.1=end 1.3.3=3", Said(agent.Ask(Command::kGetNext, {u"1.3.20", u"2.1", u"0.0"})));
}

TEST(RequestHandler, ABulkIsOneNextForSomeAndMoreForTheOthers) {
  Agent agent;
  EXPECT_EQ("1.3.3=3 1.3.14=14 1.3.10=10 1.3.20=20 1.3.11=11 1.3.20=end 1.3.13=13",
            Said(agent.Bulk(1, 3, {u"1.3", u"1.3.13", u"1.3.9"})));
}

TEST(RequestHandler, ABulkEndsWithTheFirstRowInWhichAllHaveEnded) {
  Agent agent;
  EXPECT_EQ("1.3.20=20 1.3.20=end", Said(agent.Bulk(0, 1'000'000'000'000, {u"1.3.14"})));
  EXPECT_EQ("2.1=end", Said(agent.Bulk(0, 10, {u"2.1"})));
}

TEST(RequestHandler, ABulksNumbersMayBeAnything) {
  Agent agent;
  const struct {
    std::int64_t nonRepeaters, maxRepetitions;
    const char* said;
  } cases[] = {
      {-5, 1, "1.3.3=3 1.3.4=4"}, {1, 0, "1.3.3=3"},          {1, -1, "1.3.3=3"},
      {2, 9, "1.3.3=3 1.3.4=4"},  {99, 9, "1.3.3=3 1.3.4=4"}, {0, 0, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.said, Said(agent.Bulk(c.nonRepeaters, c.maxRepetitions, {u"1.3", u"1.3.3.1"}))) << c.nonRepeaters;
  }
  EXPECT_EQ("", Said(agent.Bulk(0, 5, {})));
}

// A device of `count` texts of `length` characters.
std::string LongTexts(int count, std::size_t length) {
  std::string device;
  for (int i = 1; i <= count; ++i) {
    device += "1.3." + std::to_string(i) + "\tOctet String\t" + std::string(length, 'x') + "\n";
  }
  return device;
}

TEST(RequestHandler, ABulkFillsOneDatagramThatANetworkCarriesInOnePiece) {
  Agent agent(LongTexts(200, 100));
  const Response response = agent.Bulk(0, 200, {u"1.3"});
  std::size_t bytes = 0;
  for (const Variable& variable : response.variables) bytes += SizeInMessage(variable);
  EXPECT_GT(bytes, 1'200u);
  EXPECT_LE(bytes, 1'400u);
  // What is longer than that goes alone.
  Agent longer(LongTexts(3, 5'000));
  EXPECT_EQ(1u, longer.Bulk(0, 3, {u"1.3"}).variables.size());
  EXPECT_EQ(1u, longer.Bulk(3, 0, {u"1.3", u"1.3.1", u"1.3.2"}).variables.size());
}

TEST(RequestHandler, WhatNoDatagramHoldsIsTooBig) {
  Agent agent(LongTexts(3, 30'000));
  EXPECT_EQ(2u, agent.Ask(Command::kGet, {u"1.3.1", u"1.3.2"}).variables.size());
  EXPECT_EQ("error 1 at 0", Said(agent.Ask(Command::kGet, {u"1.3.1", u"1.3.2", u"1.3.3"})));
  EXPECT_EQ("error 1 at 0", Said(agent.Ask(Command::kGetNext, {u"1.3", u"1.3.1", u"1.3.2"})));
  Agent one(LongTexts(1, 70'000));
  EXPECT_EQ("error 1 at 0", Said(one.Bulk(0, 1, {u"1.3"})));
}

TEST(RequestHandler, ASetIsInTheFileWhenItIsAnswered) {
  Agent agent;
  EXPECT_EQ(Response{}, agent.Set({{u"1.3.3", Integer(33)}}));
  EXPECT_TRUE(agent.File().ends_with("\n1.3.3\tInteger\t33\n")) << agent.File();
  EXPECT_EQ("1.3.3=33", Said(agent.Ask(Command::kGet, {u"1.3.3"})));
  EXPECT_EQ(Response{}, agent.Set({{u"1.3.3.1", Text("drei")}, {u"a|b", Text("Name")}, {u"1.3.9", Integer(99)}}));
  EXPECT_TRUE(
      agent.File().ends_with("\n1.3.3.1\tOctet String\tdrei\na|b\tOctet String\tName\n"
                             "1.3.9\tInteger\t99\tget=0x00000001,set=0x00000001\n"))
      << agent.File();
  EXPECT_EQ("1.3.3.1=drei 1.3.9=99", Said(agent.Ask(Command::kGet, {u"1.3.3.1", u"1.3.9"})));
  EXPECT_EQ(Response{}, agent.Set({{u"1.3.8", Integer(88)}}));
  EXPECT_EQ("1.3.8=no instance", Said(agent.Ask(Command::kGet, {u"1.3.8"})));
  EXPECT_EQ(Response{}, agent.Set({}));
}

TEST(RequestHandler, OfTwoChangesOfOneSettingTheLastCounts) {
  Agent agent;
  EXPECT_EQ(Response{}, agent.Set({{u"1.3.3", Integer(1)}, {u"1.3.3", Integer(2)}}));
  EXPECT_EQ(u"2", agent.ValueOf(u"1.3.3"));
}

TEST(RequestHandler, ASetThatFailsAnywhereSaysWhereAndChangesNothing) {
  const struct {
    const char16_t* oid;
    Value value;
    Rights rights;
    int status;
  } cases[] = {
      {u"1.3.3", Integer(1), kReader, 6},       // a reader's word
      {u"1.3.12", Text("x"), kWriter, 6},       // a secret, where all may listen
      {u"1.3.99", Integer(1), kWriter, 11},     // not there
      {u"1.3.4", Integer(1), kWriter, 17},      // readonly
      {u"1.3.13", Integer(1), kWriter, 17},     // counted by the device itself
      {u"1.3.3", Text("1"), kWriter, 7},        // not its type
      {u"1.3.3.1", Text("\xFF"), kWriter, 10},  // no text
      {u"1.3.6", Integer(1), kWriter, 14},      // set=0x80070002
      {u"1.3.7", Integer(1), kWriter, 6},       // set=0x80070005
      {u"1.3.14", Integer(1), kWriter, 10},     // set=0x80070057
  };
  for (const auto& c : cases) {
    Agent agent;
    const std::string before = agent.File();
    const std::string error = "error " + std::to_string(c.status) + " at ";
    EXPECT_EQ(error + "1", Said(agent.Set({{c.oid, c.value}}, c.rights))) << base::ToUtf8(c.oid);
    if (!c.rights.write) continue;
    EXPECT_EQ(error + "2", Said(agent.Set({{u"1.3.3", Integer(1)}, {c.oid, c.value}}))) << base::ToUtf8(c.oid);
    EXPECT_EQ(error + "1", Said(agent.Set({{c.oid, c.value}, {u"1.3.3", Integer(1)}}))) << base::ToUtf8(c.oid);
    EXPECT_EQ(before, agent.File());
    EXPECT_EQ("1.3.3=3", Said(agent.Ask(Command::kGet, {u"1.3.3"})));
  }
}

TEST(RequestHandler, WhatIsWrongWithAVariableIsSaidBeforeWhatTheDeviceRefuses) {
  Agent agent;
  EXPECT_EQ("error 11 at 2", Said(agent.Set({{u"1.3.6", Integer(1)}, {u"1.3.99", Integer(1)}})));
}

TEST(RequestHandler, ADiskThatTakesNothingFailsTheCommit) {
  Agent agent;
  agent.LoseFile();
  EXPECT_EQ("error 14 at 1", Said(agent.Set({{u"1.3.3", Integer(1)}})));
  EXPECT_EQ("error 14 at 1", Said(agent.Set({{u"1.3.3", Integer(1)}, {u"1.3.20", Integer(1)}})));
  EXPECT_EQ("1.3.3=3 1.3.20=20", Said(agent.Ask(Command::kGet, {u"1.3.3", u"1.3.20"})));
}

TEST(RequestHandler, SecretsAreOnlyForThoseWhoMaySeeThem) {
  Agent agent;
  EXPECT_EQ("1.3.12=no instance", Said(agent.Ask(Command::kGet, {u"1.3.12"}, kWriter)));
  EXPECT_EQ("1.3.13=13", Said(agent.Ask(Command::kGetNext, {u"1.3.11"}, kWriter)));
  EXPECT_EQ("1.3.12=secret", Said(agent.Ask(Command::kGet, {u"1.3.12"}, kTrusted)));
  EXPECT_EQ("1.3.12=secret 1.3.13=13", Said(agent.Bulk(0, 2, {u"1.3.11"}, kTrusted)));
  EXPECT_EQ(Response{}, agent.Set({{u"1.3.12", Text("new")}}, kTrusted));
  EXPECT_EQ("1.3.12=new", Said(agent.Ask(Command::kGet, {u"1.3.12"}, kTrusted)));
}

TEST(RequestHandler, ADelayIsThatOfAllThatTheDeviceIsAskedFor) {
  Agent agent;
  const auto read = [](Command command, const std::vector<const char16_t*>& oids) {
    return Request{command, 0, 3, Agent::Asked(oids)};
  };
  EXPECT_EQ(0, agent.DelayMs(read(Command::kGet, {u"1.3.3", u"1.3.99"})));
  EXPECT_EQ(600, agent.DelayMs(read(Command::kGet, {u"1.3.10", u"1.3.3", u"1.3.10"})));
  EXPECT_EQ(300, agent.DelayMs(read(Command::kGetNext, {u"1.3.9"})));
  EXPECT_EQ(59'900, agent.DelayMs(read(Command::kGetBulk, {u"1.3.10"})));
  EXPECT_EQ(60'000, agent.DelayMs(read(Command::kGetBulk, {u"1.3.9"})));  // there is an end to it
  EXPECT_EQ(300, agent.DelayMs(Agent::Changes({{u"1.3.3", Integer(1)}, {u"1.3.10", Integer(1)}})));
  EXPECT_EQ(0, agent.DelayMs(Agent::Changes({{u"1.3.99", Integer(1)}})));
  EXPECT_EQ(u"3", agent.ValueOf(u"1.3.3"));
}

TEST(RequestHandler, NamesThatNoMessageHoldsAreLeftOut) {
  Agent agent;
  EXPECT_EQ(std::vector<WideString>{u"sysName"}, agent.Mib().Unserved());
}

TEST(RequestHandler, WalksOfAnyStepSeeTheSame) {
  std::string device;
  for (int i = 0; i < 300; ++i) {
    device +=
        "1.3." + std::to_string(i * 7919 % 300) + "." + std::to_string(i) + "\tInteger\t" + std::to_string(i) + "\n";
  }
  Agent agent(device);
  const auto walk = [&agent](std::int64_t step) {
    std::vector<Variable> all;
    for (Oid at = {1, 3};;) {
      const Request request{step == 0 ? Command::kGetNext : Command::kGetBulk, 0, step, {{at, {}}}};
      for (Variable& variable : agent.Handle(request, kReader).variables) {
        if (variable.value.type == ValueType::kEndOfMibView) return all;
        EXPECT_LT(at, variable.oid);
        at = variable.oid;
        all.push_back(std::move(variable));
      }
    }
  };
  const auto byNext = walk(0);
  EXPECT_EQ(300u, byNext.size());
  for (const std::int64_t step : {1, 10, 50, 1000}) EXPECT_EQ(byNext, walk(step)) << step;
}

TEST(RequestHandler, WhateverWasAskedBeforeTheAnswerIsTheSame) {
  Agent used;
  std::mt19937 chance(11);
  const char16_t* const oids[] = {u"1.3",    u"1.3.3",  u"1.3.4",  u"1.3.9", u"1.3.11",
                                  u"1.3.12", u"1.3.13", u"1.3.99", u"a|b"};
  for (int i = 0; i < 300; ++i) {
    const auto* const oid = oids[chance() % std::size(oids)];
    const Command command = chance() % 2 == 0 ? Command::kGet : Command::kGetNext;
    const Rights rights = chance() % 2 == 0 ? kReader : kTrusted;
    Agent fresh;
    const Request request{command, 0, 0, Agent::Asked({oid, oid, oids[chance() % std::size(oids)]})};
    EXPECT_EQ(fresh.Handle(request, rights), used.Handle(request, rights)) << i;
  }
}

}  // namespace
