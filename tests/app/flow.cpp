#include "tests/app/flow.h"

#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "simulator/columns.h"
#include "simulator/storage.h"
#include "simulator/text_file.h"
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include <algorithm>

namespace tests {
namespace {

constexpr const char* kDefaultFile = "Windows/ovu.xml";
constexpr const char* kFlashWriter = "Windows/KelWrite2Flash.exe";  // runs when the program is left after a change

const Consequence kCommonConsequences[] = {
    {"open 1", "Error: Error getting configuration data. Warm boot and try again.", ""},
    {"read 1", "Error: Error getting configuration data. Warm boot and try again.", ""},
    {"connect", "Error: Cannot get SNMP Interface", ""},
    {"set ", "Error: An error occurred.  Change was not saved.", ""},
    {"start ", "Error: Unable to execute command KelWrite2Flash.exe", ""},
    {"", "", ""},
};

std::string Document(const std::string& menu) {
  return "<GROUP name=\"CONFIGAPP\"><DisplayName>Main Menu</DisplayName>" + menu + "</GROUP>";
}

void PutStorage(const Flow& flow, const TemporaryRoot& root) {
  root.Write(kDefaultFile, Document(flow.menu));
  root.Write("device.txt", flow.device);
  root.Write(kFlashWriter, "#!/bin/sh\n");
  std::filesystem::permissions(root.Path() / kFlashWriter, std::filesystem::perms::owner_all);
  for (const auto& [name, bytes] : flow.files) root.Write(name, bytes);
}

std::map<std::string, std::string> ReadDevice(const TemporaryRoot& root) {
  std::map<std::string, std::string> values;
  simulator::ForEachLine(root.Read("device.txt"), [&](std::size_t, std::string_view text) {
    std::string problem;
    const auto line = simulator::IsComment(text) ? std::nullopt : simulator::ParseDeviceLine(text, problem);
    if (line) values[base::ToUtf8(line->oid)] = base::ToUtf8(line->value);
    return true;
  });
  return values;
}

void ReadStorage(const TemporaryRoot& root, Outcome& outcome) {
  simulator::Storage storage;
  outcome.storageProblem = simulator::OpenStorage(root.Path(), storage);
  outcome.device = ReadDevice(root);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root.Path())) {
    const std::string name = std::filesystem::relative(entry.path(), root.Path()).string();
    if (entry.is_regular_file() && name != "device.txt") outcome.files[name] = root.Read(name);
  }
}

void RunOn(const TemporaryRoot& root, const Flow& flow, FailingCalls& calls, Outcome& outcome) {
  Keypad keypad;
  keypad.beforeEachKey = [&outcome] {
    if (WhatIsInFront() != Front::kBox || !platform::host::IsWaitCursorShown()) return;
    outcome.boxesUnderTheWaitCursor.push_back(BoxText(platform::ActiveWindow()));
  };
  EXPECT_EQ(0U, PressKeysOf(flow.keys, keypad)) << flow.keys;
  EXPECT_EQ("", RunUtilityOn({root.Path(), flow.commandLine}, keypad, calls));
  outcome.boxes = keypad.Boxes();
  outcome.notes = keypad.Notes();
  outcome.stuck = keypad.IsStuck();
}

}  // namespace

Outcome Play(const Flow& flow, std::size_t failing, Failure failure) {
  const TemporaryRoot root;
  PutStorage(flow, root);
  Outcome outcome;
  outcome.expected = ReadDevice(root);
  std::vector<std::size_t> waits;
  const auto decide = [&](std::size_t number) {
    if (platform::host::IsWaitCursorShown()) waits.push_back(number);
    return number == failing;
  };
  FailingCalls calls(decide, failure);
  RunOn(root, flow, calls, outcome);
  for (const std::size_t number : waits) outcome.callsUnderTheWaitCursor.push_back(calls.Calls()[number - 1]);
  for (const auto& [oid, value] : calls.Stored()) outcome.expected[oid] = value;
  outcome.calls = calls.Calls();
  ReadStorage(root, outcome);
  return outcome;
}

Consequence ConsequenceOf(const Flow& flow, const std::string& call) {
  const auto fits = [&call](const Consequence& row) { return call.starts_with(row.call); };
  const auto own = std::find_if(flow.consequences.begin(), flow.consequences.end(), fits);
  if (own != flow.consequences.end()) return *own;
  return *std::find_if(std::begin(kCommonConsequences), std::end(kCommonConsequences), fits);
}

}  // namespace tests
