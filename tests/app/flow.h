// A flow: something that a user does on a small terminal of its own, and what may fail on the way.
#pragma once

#include "tests/app/failing_calls.h"

#include <map>
#include <string>
#include <vector>

namespace tests {

// What a failing call must and must not show.
struct Consequence {
  std::string call;         // beginning of the call, as in FailingCalls::Calls()
  std::string box;          // "Caption: text"; empty: no box is owed to this failure
  std::string withoutNote;  // a popup note that would be a lie then
};

struct Flow {
  std::string name;
  std::string menu = {};                // the configuration: what the root GROUP holds
  std::string device = {};              // device.txt
  std::string keys = {};                // a UI script; boxes are answered by Enter without it
  std::vector<std::string> calls = {};  // beginnings of calls that are made, in this order, when nothing fails
  std::vector<std::string> boxes = {};  // those shown when nothing fails
  std::vector<std::string> notes = {};
  std::vector<Consequence> consequences = {};  // before the common ones
  std::vector<std::string> mayAlsoShow = {};   // boxes that a failure can bring about further on
  std::string commandLine = {};
  std::map<std::string, std::string> files = {};  // further ones of the storage
};

struct Outcome {
  std::vector<std::string> calls;
  std::vector<std::string> boxes;
  std::vector<std::string> notes;
  std::vector<std::string> callsUnderTheWaitCursor;
  std::vector<std::string> boxesUnderTheWaitCursor;
  bool stuck = false;
  std::string storageProblem;                   // of the storage as it was left
  std::map<std::string, std::string> device;    // the values that it holds
  std::map<std::string, std::string> expected;  // the values that it must hold: the old ones and what was set
  std::map<std::string, std::string> files;     // all others
};

// Runs it; `failing` is the number of the call that fails, 0 for none.
Outcome Play(const Flow& flow, std::size_t failing = 0, Failure failure = Failure::kCode);

// The consequence of a failing call.
Consequence ConsequenceOf(const Flow& flow, const std::string& call);

const std::vector<Flow>& AllFlows();

}  // namespace tests
