// Calls of the system's functions that the debugged program makes, noticed by breakpoints at their first instruction
// and at the place that they return to.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace simulator {

// A stopped thread at the beginning of a call, or just after it.
class StoppedThread {
 public:
  StoppedThread(HANDLE process, HANDLE thread);

  std::uint64_t Argument(int index) const;  // 0 to 3; at the beginning
  std::uint64_t ReturnAddress() const;      // at the beginning
  std::uint64_t Result() const;             // after the call
  void GoOnAt(std::uint64_t address, bool singleStep);
  void ReturnAtOnce(std::uint64_t result);  // at the beginning

 private:
  HANDLE process_;
  HANDLE thread_;
  CONTEXT context_ = {};
};

class TracedCalls {
 public:
  // `onReturn` of a call gets the result.
  using OnReturn = std::function<void(HANDLE thread, std::uint64_t result)>;
  // Asked when a call begins; without an answer its end is not waited for.
  using OnCall = std::function<OnReturn(const StoppedThread& thread)>;

  TracedCalls(HANDLE process, std::uint64_t imageStart, std::uint64_t imageEnd);

  // False when the function is not where it is in this process. Only calls from the program's own image count.
  bool Trace(const wchar_t* library, const char* function, OnCall onCall);
  // Such calls return this at once: the function is not run.
  bool Answer(const wchar_t* library, const char* function, std::uint64_t result);

  // Each says whether the stop was one of these.
  bool HandleBreakpoint(HANDLE thread, std::uint64_t address);
  bool HandleSingleStep(HANDLE thread);

 private:
  struct Place {
    std::uint8_t original = 0;
    OnCall onCall;                          // at a function
    std::optional<std::uint64_t> answer{};  // at a function that is not run
    std::vector<OnReturn> onReturn;         // at a return address
  };
  bool InsertAtFunction(const wchar_t* library, const char* function, Place place);
  bool Insert(std::uint64_t address, Place& place);
  void WriteByte(std::uint64_t address, std::uint8_t byte) const;

  HANDLE process_;
  std::uint64_t imageStart_;
  std::uint64_t imageEnd_;
  std::map<std::uint64_t, Place> places_;
  std::map<HANDLE, std::uint64_t> stepping_;  // threads that go over a place
};

}  // namespace simulator
