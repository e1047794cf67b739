// Lets a script drive the utility's own process on Windows.
#pragma once

#include "simulator/script_player.h"
#include "simulator/windows/driver/debuggee.h"

namespace simulator {

class ProgramDriver final : public ScriptDriver {
 public:
  explicit ProgramDriver(DebuggeeSpec spec);

  // Returns when the program waits for input, or has ended. A program that restarted the machine is started again.
  // False when it does neither within some minutes; then Failure() says so.
  bool WaitUntilIdle();
  const std::string& Failure() const { return failure_; }
  bool TookTooLong() const { return tookTooLong_; }

  // ScriptDriver
  bool IsRunning() override { return program_->IsRunning(); }
  void Press(const Key& key) override;
  void Type(const Key& key) override;
  bool Click(int controlId) override;
  bool HasSettled() override;
  ScreenPicture Screen() override;
  std::vector<std::string> TakeEffects() override;
  std::vector<WideString> TakeDebugLines() override;

 private:
  void Start();
  void NoteEnd();
  HWND ActiveWindow() const;

  const DebuggeeSpec spec_;
  std::unique_ptr<Debuggee> program_;
  std::string failure_;
  bool tookTooLong_ = false;
  bool endNoted_ = false;
  std::vector<std::string> effects_;  // of programs that have ended
  std::vector<WideString> debugLines_;
};

}  // namespace simulator
