#include "simulator/windows/driver/traced_calls.h"

#include <cstring>
#include <utility>

namespace simulator {
namespace {

constexpr std::uint8_t kBreakpoint = 0xCC;
constexpr DWORD kTrapFlag = 0x100;

bool Read(HANDLE process, std::uint64_t address, void* out, std::size_t size) {
  return ReadProcessMemory(process, reinterpret_cast<const void*>(address), out, size, nullptr) != 0;
}

}  // namespace

StoppedThread::StoppedThread(HANDLE process, HANDLE thread) : process_(process), thread_(thread) {
  context_.ContextFlags = CONTEXT_CONTROL | CONTEXT_INTEGER;
  GetThreadContext(thread_, &context_);
}

std::uint64_t StoppedThread::Argument(int index) const {
  const std::uint64_t registers[] = {context_.Rcx, context_.Rdx, context_.R8, context_.R9};
  return registers[index];
}

std::uint64_t StoppedThread::ReturnAddress() const {
  std::uint64_t address = 0;
  Read(process_, context_.Rsp, &address, sizeof address);
  return address;
}

std::uint64_t StoppedThread::Result() const { return context_.Rax; }

void StoppedThread::GoOnAt(std::uint64_t address, bool singleStep) {
  context_.Rip = address;
  if (singleStep) context_.EFlags |= kTrapFlag;
  SetThreadContext(thread_, &context_);
}

void StoppedThread::ReturnAtOnce(std::uint64_t result) {
  context_.Rip = ReturnAddress();
  context_.Rsp += sizeof(std::uint64_t);
  context_.Rax = result;
  SetThreadContext(thread_, &context_);
}

TracedCalls::TracedCalls(HANDLE process, std::uint64_t imageStart, std::uint64_t imageEnd)
    : process_(process), imageStart_(imageStart), imageEnd_(imageEnd) {}

void TracedCalls::WriteByte(std::uint64_t address, std::uint8_t byte) const {
  WriteProcessMemory(process_, reinterpret_cast<void*>(address), &byte, sizeof byte, nullptr);
  FlushInstructionCache(process_, reinterpret_cast<const void*>(address), sizeof byte);
}

bool TracedCalls::Insert(std::uint64_t address, Place& place) {
  if (!Read(process_, address, &place.original, sizeof place.original)) return false;
  WriteByte(address, kBreakpoint);
  return true;
}

bool TracedCalls::Trace(const wchar_t* library, const char* function, OnCall onCall) {
  Place place;
  place.onCall = std::move(onCall);
  return InsertAtFunction(library, function, std::move(place));
}

bool TracedCalls::Answer(const wchar_t* library, const char* function, std::uint64_t result) {
  Place place;
  place.answer = result;
  return InsertAtFunction(library, function, std::move(place));
}

bool TracedCalls::InsertAtFunction(const wchar_t* library, const char* function, Place place) {
  const FARPROC here = GetProcAddress(GetModuleHandleW(library), function);
  if (here == nullptr) return false;
  const auto address = reinterpret_cast<std::uint64_t>(here);
  // The system's libraries are loaded at the same place in every process.
  char theirs[16] = {};
  if (!Read(process_, address, theirs, sizeof theirs)) return false;
  if (std::memcmp(theirs, reinterpret_cast<const void*>(address), sizeof theirs) != 0) return false;
  if (!Insert(address, place)) return false;
  places_[address] = std::move(place);
  return true;
}

bool TracedCalls::HandleBreakpoint(HANDLE thread, std::uint64_t address) {
  const auto found = places_.find(address);
  if (found == places_.end()) return false;
  StoppedThread stopped(process_, thread);
  Place& place = found->second;
  if (!place.onCall && !place.answer) {
    const OnReturn onReturn = std::move(place.onReturn.back());
    place.onReturn.pop_back();
    WriteByte(address, place.original);
    stopped.GoOnAt(address, false);
    if (place.onReturn.empty()) {
      places_.erase(found);
    } else {
      WriteByte(address, kBreakpoint);
    }
    onReturn(thread, stopped.Result());
    return true;
  }
  const std::uint64_t back = stopped.ReturnAddress();
  if (back >= imageStart_ && back < imageEnd_) {
    if (place.answer) {
      stopped.ReturnAtOnce(*place.answer);
      return true;
    }
    if (OnReturn onReturn = place.onCall(stopped)) {
      Place& end = places_[back];
      if (!end.onReturn.empty() || Insert(back, end)) end.onReturn.push_back(std::move(onReturn));
    }
  }
  WriteByte(address, place.original);
  stepping_[thread] = address;
  stopped.GoOnAt(address, true);
  return true;
}

bool TracedCalls::HandleSingleStep(HANDLE thread) {
  const auto found = stepping_.find(thread);
  if (found == stepping_.end()) return false;
  WriteByte(found->second, kBreakpoint);
  stepping_.erase(found);
  return true;
}

}  // namespace simulator
