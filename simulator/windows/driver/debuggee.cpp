#include "simulator/windows/driver/debuggee.h"

#include "platform/win32/owned_handle.h"
#include "simulator/effects.h"
#include "simulator/windows/driver/line_file.h"
#include "simulator/windows/driver/traced_calls.h"

#include <winternl.h>

#include <atomic>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

namespace simulator {
namespace {

using platform::win32::FromApi;
using platform::win32::OwnedHandle;
using platform::win32::ToApi;

// The texts that a program's command line begins with and goes on with: "PROGRAM" ARGUMENTS.
struct StartedProgram {
  WideString program;
  WideString arguments;
};

// The program's name may hold quotes of its own: it is what the name of the file to start ends in.
StartedProgram Split(WideStringView commandLine, WideStringView fileName) {
  for (std::size_t length = commandLine.size(); length > 1; --length) {
    if (commandLine[length - 1] != u'"') continue;
    const WideStringView program = commandLine.substr(1, length - 2);
    if (!fileName.ends_with(program)) continue;
    WideStringView arguments = commandLine.substr(length);
    if (arguments.starts_with(u' ')) arguments.remove_prefix(1);
    return {WideString(program), WideString(arguments)};
  }
  return {WideString(commandLine), {}};
}

// A zero-ended text of another process.
WideString ReadText(HANDLE process, std::uint64_t address) {
  WideString text;
  char16_t unit = 0;
  while (ReadProcessMemory(process, reinterpret_cast<const void*>(address), &unit, sizeof unit, nullptr) && unit != 0) {
    text.push_back(unit);
    address += sizeof unit;
  }
  return text;
}

// The last part of the name that an object has in the system's tree of names.
WideString NameOfObject(HANDLE process, HANDLE object) {
  HANDLE copy = nullptr;
  if (!DuplicateHandle(process, object, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS)) return {};
  const OwnedHandle owned(copy);
  constexpr auto kObjectNameInformation = static_cast<OBJECT_INFORMATION_CLASS>(1);
  alignas(UNICODE_STRING) char buffer[2048] = {};
  if (NtQueryObject(copy, kObjectNameInformation, buffer, sizeof buffer, nullptr) < 0) return {};
  const auto& name = *reinterpret_cast<const UNICODE_STRING*>(buffer);
  const WideStringView path(FromApi(name.Buffer), name.Length / sizeof(wchar_t));
  return WideString(path.substr(path.rfind(u'\\') + 1));
}

// The size that the header of an executable in another process' memory gives.
std::uint64_t SizeOfImage(HANDLE process, std::uint64_t base) {
  IMAGE_DOS_HEADER dos = {};
  IMAGE_NT_HEADERS headers = {};
  ReadProcessMemory(process, reinterpret_cast<const void*>(base), &dos, sizeof dos, nullptr);
  const auto headersAt = base + static_cast<std::uint64_t>(dos.e_lfanew);
  ReadProcessMemory(process, reinterpret_cast<const void*>(headersAt), &headers, sizeof headers, nullptr);
  return headers.OptionalHeader.SizeOfImage;
}

// Where the system keeps a thread's last error, from the beginning of the thread's block.
constexpr std::uint64_t kLastErrorInThreadBlock = 0x68;

}  // namespace

struct Debuggee::State {
  explicit State(DebuggeeSpec given) : spec(std::move(given)), deviceLog(spec.deviceLog) {}

  void Run(std::promise<void> started);
  bool Start();
  // Returns how the stopped thread goes on.
  DWORD Handle(const DEBUG_EVENT& event);
  DWORD HandleException(const DEBUG_EVENT& event);
  void AddDebugLine(const OUTPUT_DEBUG_STRING_INFO& info);
  bool TraceCalls();
  void Add(std::string effect);
  void AddWorkers(int difference);
  void CollectDeviceLines();  // with the mutex held
  DWORD LastErrorOf(HANDLE thread) const;

  struct Thread {
    DWORD id = 0;
    std::uint64_t block = 0;
    bool isWorker = false;
  };
  HANDLE HandleOf(DWORD threadId) const;

  const DebuggeeSpec spec;
  OwnedHandle process;
  OwnedHandle mainThread;
  DWORD processId = 0;
  DWORD mainThreadId = 0;
  std::uint64_t imageStart = 0;
  std::uint64_t imageEnd = 0;
  std::map<HANDLE, Thread> threads;  // of the debug loop alone
  std::unique_ptr<TracedCalls> calls;
  bool sawFirstBreakpoint = false;

  std::mutex mutex;  // guards what follows
  LineFile deviceLog;
  std::vector<std::string> effects;
  std::vector<WideString> debugLines;
  std::string failure;
  std::optional<DWORD> exitStatus;
  int workers = 0;  // from when the program asked for them

  std::thread loop;  // the last member: it uses all the others
};

Debuggee::Debuggee(DebuggeeSpec spec) : state_(std::make_unique<State>(std::move(spec))) {
  std::promise<void> started;
  const auto running = started.get_future();
  state_->loop = std::thread([this, promise = std::move(started)]() mutable { state_->Run(std::move(promise)); });
  running.wait();
}

Debuggee::~Debuggee() {
  if (state_->process) TerminateProcess(state_->process.Get(), 0);
  state_->loop.join();
}

// Only the thread that started a process is told what happens in it.
void Debuggee::State::Run(std::promise<void> started) {
  const bool isStarted = Start();
  started.set_value();
  if (!isStarted) return;
  for (;;) {
    DEBUG_EVENT event = {};
    if (!WaitForDebugEvent(&event, INFINITE)) return;
    const DWORD how = Handle(event);
    const bool ended = event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT;
    ContinueDebugEvent(event.dwProcessId, event.dwThreadId, how);
    if (!ended) continue;
    // Windows are gone when the process is, not when it says that it goes.
    WaitForSingleObject(process.Get(), INFINITE);
    const std::lock_guard lock(mutex);
    exitStatus = event.u.ExitProcess.dwExitCode;
    return;
  }
}

bool Debuggee::State::Start() {
  WideString commandLine = u"\"" + WideString(FromApi(spec.program.c_str())) + u"\"";
  if (!spec.commandLine.empty()) commandLine += u" " + spec.commandLine;
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION information = {};
  if (!CreateProcessW(spec.program.c_str(), ToApi(commandLine), nullptr, nullptr, FALSE, DEBUG_ONLY_THIS_PROCESS,
                      nullptr, nullptr, &startup, &information)) {
    const std::lock_guard lock(mutex);
    failure = "the program cannot be started, error " + std::to_string(GetLastError());
    exitStatus = 0;
    return false;
  }
  process = OwnedHandle(information.hProcess);
  mainThread = OwnedHandle(information.hThread);
  processId = information.dwProcessId;
  mainThreadId = information.dwThreadId;
  return true;
}

DWORD Debuggee::State::Handle(const DEBUG_EVENT& event) {
  switch (event.dwDebugEventCode) {
    case CREATE_PROCESS_DEBUG_EVENT: {
      const auto& info = event.u.CreateProcessInfo;
      imageStart = reinterpret_cast<std::uint64_t>(info.lpBaseOfImage);
      imageEnd = imageStart + SizeOfImage(process.Get(), imageStart);
      threads[info.hThread] = {event.dwThreadId, reinterpret_cast<std::uint64_t>(info.lpThreadLocalBase), false};
      if (info.hFile != nullptr) CloseHandle(info.hFile);
      break;
    }
    case CREATE_THREAD_DEBUG_EVENT: {
      const auto& info = event.u.CreateThread;
      const auto start = reinterpret_cast<std::uint64_t>(info.lpStartAddress);
      const bool isWorker = start >= imageStart && start < imageEnd;
      threads[info.hThread] = {event.dwThreadId, reinterpret_cast<std::uint64_t>(info.lpThreadLocalBase), isWorker};
      break;
    }
    case EXIT_THREAD_DEBUG_EVENT: {
      const HANDLE thread = HandleOf(event.dwThreadId);
      if (threads[thread].isWorker) AddWorkers(-1);
      threads.erase(thread);
      break;
    }
    case LOAD_DLL_DEBUG_EVENT:
      if (event.u.LoadDll.hFile != nullptr) CloseHandle(event.u.LoadDll.hFile);
      break;
    case OUTPUT_DEBUG_STRING_EVENT: AddDebugLine(event.u.DebugString); break;
    case EXCEPTION_DEBUG_EVENT: return HandleException(event);
    default: break;
  }
  return DBG_CONTINUE;
}

DWORD Debuggee::State::HandleException(const DEBUG_EVENT& event) {
  const EXCEPTION_RECORD& record = event.u.Exception.ExceptionRecord;
  const auto address = reinterpret_cast<std::uint64_t>(record.ExceptionAddress);
  const HANDLE thread = HandleOf(event.dwThreadId);
  if (record.ExceptionCode == EXCEPTION_BREAKPOINT) {
    if (calls && calls->HandleBreakpoint(thread, address)) return DBG_CONTINUE;
    if (sawFirstBreakpoint) return DBG_EXCEPTION_NOT_HANDLED;
    // The loader stops once for the debugger, with all libraries in place.
    sawFirstBreakpoint = true;
    if (!TraceCalls()) {
      const std::lock_guard lock(mutex);
      failure = "the program's calls cannot be traced";
    }
    return DBG_CONTINUE;
  }
  if (record.ExceptionCode == EXCEPTION_SINGLE_STEP && calls && calls->HandleSingleStep(thread)) return DBG_CONTINUE;
  return DBG_EXCEPTION_NOT_HANDLED;
}

bool Debuggee::State::TraceCalls() {
  calls = std::make_unique<TracedCalls>(process.Get(), imageStart, imageEnd);
  const auto onCreateProcess = [this](const StoppedThread& call) -> TracedCalls::OnReturn {
    StartedProgram started =
        Split(ReadText(process.Get(), call.Argument(1)), ReadText(process.Get(), call.Argument(0)));
    return [this, started = std::move(started)](HANDLE thread, std::uint64_t result) {
      const DWORD error = static_cast<BOOL>(result) != FALSE ? 0 : LastErrorOf(thread);
      Add(StartLine(started.program, started.arguments, error));
    };
  };
  const auto onPulse = [this](const StoppedThread& call) -> TracedCalls::OnReturn {
    Add(PulseLine(NameOfObject(process.Get(), reinterpret_cast<HANDLE>(call.Argument(0)))));
    return nullptr;
  };
  // A thread tells of itself only when it runs, which on a busy machine is long after the program went on without it.
  const auto onCreateThread = [this](const StoppedThread&) -> TracedCalls::OnReturn {
    AddWorkers(1);
    return [this](HANDLE, std::uint64_t thread) { AddWorkers(thread == 0 ? -1 : 0); };
  };
  // The machine goes on: the system would ask every window whether it may end, that of the program's next start too.
  return calls->Trace(L"kernel32", "CreateProcessW", onCreateProcess) &&
         calls->Trace(L"kernel32", "PulseEvent", onPulse) &&
         calls->Trace(L"kernel32", "CreateThread", onCreateThread) && calls->Answer(L"user32", "ExitWindowsEx", TRUE);
}

HANDLE Debuggee::State::HandleOf(DWORD threadId) const {
  for (const auto& [handle, thread] : threads) {
    if (thread.id == threadId) return handle;
  }
  return nullptr;
}

DWORD Debuggee::State::LastErrorOf(HANDLE thread) const {
  DWORD error = 0;
  const std::uint64_t place = threads.at(thread).block + kLastErrorInThreadBlock;
  ReadProcessMemory(process.Get(), reinterpret_cast<const void*>(place), &error, sizeof error, nullptr);
  return error;
}

void Debuggee::State::AddDebugLine(const OUTPUT_DEBUG_STRING_INFO& info) {
  std::string bytes(info.nDebugStringLength, '\0');
  ReadProcessMemory(process.Get(), info.lpDebugStringData, bytes.data(), bytes.size(), nullptr);
  bytes.resize(bytes.find('\0') == std::string::npos ? bytes.size() : bytes.find('\0'));
  const auto size = static_cast<int>(bytes.size());
  WideString line(bytes.size(), u'\0');
  const int units = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, ToApi(line), size);
  line.resize(static_cast<std::size_t>(units));
  const std::lock_guard lock(mutex);
  debugLines.push_back(std::move(line));
}

void Debuggee::State::Add(std::string effect) {
  const std::lock_guard lock(mutex);
  CollectDeviceLines();
  effects.push_back(std::move(effect));
}

void Debuggee::State::AddWorkers(int difference) {
  const std::lock_guard lock(mutex);
  workers += difference;
}

void Debuggee::State::CollectDeviceLines() {
  for (std::string& line : deviceLog.NewLines()) effects.push_back(std::move(line));
}

std::string Debuggee::Failure() const {
  const std::lock_guard lock(state_->mutex);
  return state_->failure;
}

DWORD Debuggee::ProcessId() const { return state_->processId; }
DWORD Debuggee::MainThreadId() const { return state_->mainThreadId; }

bool Debuggee::IsRunning() const { return !ExitStatus(); }

std::optional<DWORD> Debuggee::ExitStatus() const {
  const std::lock_guard lock(state_->mutex);
  return state_->exitStatus;
}

bool Debuggee::WaitsForMessages() const {
  // Dialogs look for messages first and only wait, by this call, when there are none.
  static const FARPROC wait = GetProcAddress(GetModuleHandleW(L"win32u"), "NtUserGetMessage");
  constexpr std::uint64_t kLengthOfCall = 32;
  if (wait == nullptr || SuspendThread(state_->mainThread.Get()) == static_cast<DWORD>(-1)) return false;
  CONTEXT context = {};
  context.ContextFlags = CONTEXT_CONTROL;
  const bool known = GetThreadContext(state_->mainThread.Get(), &context) != 0;
  ResumeThread(state_->mainThread.Get());
  return known && context.Rip - reinterpret_cast<std::uint64_t>(wait) < kLengthOfCall;
}

int Debuggee::WorkerThreads() const {
  const std::lock_guard lock(state_->mutex);
  return state_->workers;
}

std::vector<std::string> Debuggee::TakeEffects() {
  const std::lock_guard lock(state_->mutex);
  state_->CollectDeviceLines();
  return std::exchange(state_->effects, {});
}

std::vector<WideString> Debuggee::TakeDebugLines() {
  const std::lock_guard lock(state_->mutex);
  return std::exchange(state_->debugLines, {});
}

}  // namespace simulator
