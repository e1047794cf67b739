#include "simulator/windows/driver/program_driver.h"

#include "simulator/effects.h"
#include "simulator/windows/driver/keypad.h"
#include "simulator/windows/driver/window_reader.h"

#include <chrono>
#include <filesystem>
#include <iterator>
#include <utility>

namespace simulator {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::seconds(120);
constexpr auto kActivationPatience = std::chrono::seconds(5);
constexpr DWORD kPollMs = 1;
// One painting may have been under way when it was asked for.
constexpr int kPaintingsToSee = 2;

// Painting comes after everything else that a thread of windows has to do.
void AskToPaint(HWND window) {
  if (window != nullptr) RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_INTERNALPAINT);
}

bool IsPainted(HWND window) { return !GetUpdateRect(window, nullptr, FALSE); }

template <typename T>
void Append(std::vector<T>& list, std::vector<T> more) {
  list.insert(list.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace

ProgramDriver::ProgramDriver(DebuggeeSpec spec) : spec_(std::move(spec)) { Start(); }

void ProgramDriver::Start() {
  std::error_code error;
  std::filesystem::remove(spec_.deviceLog, error);
  program_ = std::make_unique<Debuggee>(spec_);
  endNoted_ = false;
}

// What the program left behind is kept when it has ended.
void ProgramDriver::NoteEnd() {
  if (std::exchange(endNoted_, true)) return;
  Append(effects_, program_->TakeEffects());
  Append(debugLines_, program_->TakeDebugLines());
  const DWORD status = program_->ExitStatus().value_or(0);
  const bool restarts = status == ERROR_SUCCESS_REBOOT_INITIATED;
  effects_.push_back(restarts ? WarmResetLine() : ExitLine(static_cast<int>(status)));
  if (restarts) Start();
}

HWND ProgramDriver::ActiveWindow() const { return ThreadState(program_->MainThreadId()).hwndActive; }

bool ProgramDriver::WaitUntilIdle() {
  const auto start = Clock::now();
  auto paintable = start;
  int paintings = 0;
  HWND asked = nullptr;
  while (paintings < kPaintingsToSee) {
    if (!program_->IsRunning()) {
      NoteEnd();
      if (endNoted_) return true;
      paintings = 0;
    }
    failure_ = program_->Failure();
    tookTooLong_ = Clock::now() - start > kPatience;
    if (tookTooLong_) failure_ = "the program does not wait for input";
    if (!failure_.empty()) return false;

    HWND window = ActiveWindow();
    const auto windows = VisibleWindowsOf(program_->ProcessId());
    if (windows.empty()) paintable = Clock::now();
    // A window is active a little after it is seen, or never when another program is in front.
    const bool inBackground = window == nullptr && Clock::now() - paintable > kActivationPatience;
    if (inBackground && !windows.empty()) window = windows.front();
    const bool works = window == nullptr || !IsWindowVisible(window) || program_->WorkerThreads() > 0;
    if (works || window != asked) {
      asked = works ? nullptr : window;
      paintings = 0;
      AskToPaint(asked);
    } else if (IsPainted(window) && program_->WaitsForMessages()) {
      ++paintings;
      AskToPaint(window);
    }
    Sleep(kPollMs);
  }
  return true;
}

void ProgramDriver::Press(const Key& key) {
  const GUITHREADINFO state = ThreadState(program_->MainThreadId());
  const HWND window = state.hwndFocus != nullptr ? state.hwndFocus : state.hwndActive;
  if (!key.shift) return PressKey(window, key);
  const HeldShift shift(program_->MainThreadId());
  PressKey(window, key);
  WaitUntilIdle();
}

void ProgramDriver::Type(const Key& key) {
  const GUITHREADINFO state = ThreadState(program_->MainThreadId());
  TypeCharacter(state.hwndFocus != nullptr ? state.hwndFocus : state.hwndActive, key.character);
}

// Posted, since a click may run a dialog of its own before it is done.
bool ProgramDriver::Click(int controlId) {
  const HWND button = GetDlgItem(ActiveWindow(), controlId);
  if (button == nullptr || !IsWindowVisible(button) || !IsWindowEnabled(button)) return false;
  PostMessageW(button, BM_CLICK, 0, 0);
  return true;
}

bool ProgramDriver::HasSettled() { return !program_->IsRunning() || program_->WorkerThreads() == 0; }

ScreenPicture ProgramDriver::Screen() {
  return IsRunning() ? TakeScreenPicture(program_->ProcessId(), program_->MainThreadId()) : ScreenPicture{};
}

std::vector<std::string> ProgramDriver::TakeEffects() {
  Append(effects_, program_->TakeEffects());
  return std::exchange(effects_, {});
}

std::vector<WideString> ProgramDriver::TakeDebugLines() {
  Append(debugLines_, program_->TakeDebugLines());
  return std::exchange(debugLines_, {});
}

}  // namespace simulator
