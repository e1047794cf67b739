// The calls that leave the program, counted, and made to fail.
#pragma once

#include "platform/host/environment.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tests {

// How a call to the device fails; everything else just fails.
enum class Failure { kCode, kNoText, kException };

class FailingCalls {
 public:
  // Says whether a call fails, by its number from 1 on.
  using Decide = std::function<bool(std::size_t number)>;

  explicit FailingCalls(Decide decide, Failure failure = Failure::kCode)
      : decide_(std::move(decide)), failure_(failure) {}

  bool windowsToo = false;  // else the making of a window is not counted and never fails

  // From here on the calls of the program that runs in this environment are counted.
  void Install(platform::host::Environment& environment);

  // "connect", "get OID", "set OID VALUE", "table NAME KEY", and with a number from 1 on "open", "read", "create",
  // "write", "replace", "start" and "window".
  const std::vector<std::string>& Calls() const { return calls_; }
  // What the Sets that succeeded have left, by OID.
  const std::map<std::string, std::string>& Stored() const { return stored_; }

 private:
  class Device;
  bool Fails(std::string call);

  Decide decide_;
  Failure failure_;
  std::vector<std::string> calls_;
  std::map<platform::host::Use, int> uses_;
  std::map<std::string, std::string> stored_;
};

}  // namespace tests
