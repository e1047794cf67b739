// Each flow with nothing failing, and then with each of its calls failing once.
#include "tests/app/flow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>

namespace tests {

void PrintTo(const Flow& flow, std::ostream* out) { *out << flow.name; }

namespace {

class FlowTest : public ::testing::TestWithParam<Flow> {};

bool Has(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

// The storage is whole: it can be read, its values are the old ones or what the device took, and no file was left
// behind half done.
void ExpectWholeStorage(const Outcome& outcome) {
  EXPECT_EQ("", outcome.storageProblem);
  EXPECT_EQ(outcome.expected, outcome.device);
  for (const auto& [name, bytes] : outcome.files) EXPECT_FALSE(name.ends_with(".new")) << name;
}

TEST_P(FlowTest, DoesWhatTheUserWantsWhenNothingFails) {
  const Flow& flow = GetParam();
  const Outcome outcome = Play(flow);
  EXPECT_FALSE(outcome.stuck);
  EXPECT_EQ(flow.boxes, outcome.boxes);
  EXPECT_EQ(std::vector<std::string>(), outcome.boxesUnderTheWaitCursor);
  EXPECT_EQ(flow.notes, outcome.notes);
  auto call = outcome.calls.begin();
  for (const std::string& wanted : flow.calls) {
    call = std::find_if(call, outcome.calls.end(), [&](const std::string& made) { return made.starts_with(wanted); });
    EXPECT_NE(outcome.calls.end(), call) << wanted << " was not called, but\n"
                                         << ::testing::PrintToString(outcome.calls);
    if (call == outcome.calls.end()) break;
    ++call;
  }
  ExpectWholeStorage(outcome);
}

// What the calls before the failing one are is the same each time, so its number tells which one it is.
TEST_P(FlowTest, SaysSoWhenOneOfItsCallsFails) {
  const Flow& flow = GetParam();
  const Outcome clean = Play(flow);
  for (std::size_t failing = 1; failing <= clean.calls.size(); ++failing) {
    SCOPED_TRACE(std::to_string(failing) + ": " + clean.calls[failing - 1]);
    const Outcome outcome = Play(flow, failing);
    ASSERT_LE(failing, outcome.calls.size());
    const Consequence consequence = ConsequenceOf(flow, outcome.calls[failing - 1]);
    EXPECT_FALSE(outcome.stuck);
    if (!consequence.box.empty()) {
      EXPECT_TRUE(Has(outcome.boxes, consequence.box)) << ::testing::PrintToString(outcome.boxes);
    }
    if (!consequence.withoutNote.empty()) {
      EXPECT_FALSE(Has(outcome.notes, consequence.withoutNote));
    }
    for (const std::string& box : outcome.boxes) {
      EXPECT_TRUE(box == consequence.box || Has(clean.boxes, box) || Has(flow.mayAlsoShow, box)) << box;
    }
    EXPECT_EQ(std::vector<std::string>(), outcome.boxesUnderTheWaitCursor);
    ExpectWholeStorage(outcome);
  }
}

TEST_P(FlowTest, StaysWholeWhenTheDeviceAnswersNothingOrThrows) {
  const Flow& flow = GetParam();
  const Outcome clean = Play(flow);
  for (std::size_t failing = 1; failing <= clean.calls.size(); ++failing) {
    const std::string& call = clean.calls[failing - 1];
    if (!call.starts_with("get ") && !call.starts_with("set ")) continue;
    for (const Failure failure : {Failure::kNoText, Failure::kException}) {
      SCOPED_TRACE(std::to_string(failing) + ": " + call);
      const Outcome outcome = Play(flow, failing, failure);
      EXPECT_FALSE(outcome.stuck);
      ExpectWholeStorage(outcome);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Flows, FlowTest, ::testing::ValuesIn(AllFlows()),
                         [](const auto& parameter) { return parameter.param.name; });

TEST(FlowList, HoldsAtLeastTwentyFlowsOfDifferentNames) {
  std::set<std::string> names;
  for (const Flow& flow : AllFlows()) names.insert(flow.name);
  EXPECT_EQ(AllFlows().size(), names.size());
  EXPECT_LE(20U, names.size());
}

const Flow& FlowNamed(std::string_view name) {
  return *std::find_if(AllFlows().begin(), AllFlows().end(), [name](const Flow& flow) { return flow.name == name; });
}

TEST(WaitCursor, IsShownWhileTheDeviceIsGivenWhatItIsToStore) {
  const struct {
    const char* flow;
    const char* call;
  } cases[] = {{"EditAnInteger", "set 3.1 42"},
               {"RestoreDefaults", "table COMMANDS Options"},
               {"RestoreDefaults", "set 1.1 9"},
               {"ImportCertificates", "set 6.1 True"}};
  for (const auto& c : cases) {
    EXPECT_TRUE(Has(Play(FlowNamed(c.flow)).callsUnderTheWaitCursor, c.call)) << c.flow << ": " << c.call;
  }
}

// What a program that has restarted its device still asks on its way to its end is not heard: the calls after the Set
// are those of the next start.
TEST(WarmBoot, EndsTheTalkWithTheDeviceAtOnce) {
  const auto found =
      std::find_if(AllFlows().begin(), AllFlows().end(), [](const Flow& flow) { return flow.name == "WarmBoot"; });
  ASSERT_NE(AllFlows().end(), found);
  const Outcome outcome = Play(*found);
  const auto set = std::find(outcome.calls.begin(), outcome.calls.end(), "set 7.1 2");
  ASSERT_NE(outcome.calls.end(), set);
  EXPECT_EQ("open 2", *(set + 1));
}

// The old file stays until the new one is complete.
TEST(StoringSettings, LeavesTheOldFileOrACompleteOne) {
  const auto found =
      std::find_if(AllFlows().begin(), AllFlows().end(), [](const Flow& flow) { return flow.name == "StoreSettings"; });
  ASSERT_NE(AllFlows().end(), found);
  const Outcome clean = Play(*found);
  const std::string complete = clean.files.at("CfgSettings.txt");
  const std::string old = found->files.at("CfgSettings.txt");
  ASSERT_NE(old, complete);
  for (std::size_t failing = 1; failing <= clean.calls.size(); ++failing) {
    const std::string& call = clean.calls[failing - 1];
    SCOPED_TRACE(call);
    const Outcome outcome = Play(*found, failing);
    const bool fileFailed = call.starts_with("create") || call.starts_with("write") || call.starts_with("replace");
    if (fileFailed) {
      EXPECT_EQ(old, outcome.files.at("CfgSettings.txt"));
    } else if (call.starts_with("open") || call.starts_with("read")) {
      EXPECT_EQ(old, outcome.files.at("CfgSettings.txt"));  // there is no configuration
    } else if (!call.starts_with("get ")) {
      EXPECT_EQ(complete, outcome.files.at("CfgSettings.txt"));
    } else {
      // A value that cannot be read is left out of its record, which stays.
      EXPECT_LE(complete.size() - 16, outcome.files.at("CfgSettings.txt").size());
    }
  }
}

}  // namespace
}  // namespace tests
