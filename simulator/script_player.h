// Plays a UI script, one step at a time, against whatever runs the program.
#pragma once

#include "simulator/dump.h"
#include "simulator/script.h"

#include <functional>
#include <string>
#include <vector>

namespace simulator {

// The program, as a script sees it. All calls come while it is idle.
class ScriptDriver {
 public:
  virtual ~ScriptDriver() = default;
  virtual bool IsRunning() = 0;  // false once it has ended
  virtual void Press(const Key& key) = 0;
  virtual void Type(const Key& key) = 0;  // a character of a text
  // Clicks the button; false when the active window shows no button of that id that can be clicked.
  virtual bool Click(int controlId) = 0;
  // Whether no thread of the program works any more; false: ask again when the program has gone on.
  virtual bool HasSettled() = 0;
  virtual ScreenPicture Screen() = 0;
  virtual std::vector<std::string> TakeEffects() = 0;
  virtual std::vector<WideString> TakeDebugLines() = 0;
};

class ScriptPlayer {
 public:
  using Print = std::function<void(const std::string& text)>;

  // `name` stands before messages: "tour.script:12: ...".
  ScriptPlayer(Script script, std::string name, ScriptDriver& driver, Print print);

  enum class Step {
    kRan,       // the next step may follow at once
    kInput,     // the program was given something: it must be idle again before the next step
    kWaits,     // nothing done: the program has not settled
    kFinished,  // no step is left, or one failed
  };
  Step Next();

  // Empty, or why the script failed.
  const std::string& Failure() const { return failure_; }

 private:
  Step Run(const Command& command);
  Step NextKey(const Command& command);
  Step Printed(std::string text);
  Step Fail(const Command& command, const std::string& why);

  const Script script_;
  const std::string name_;
  ScriptDriver& driver_;
  const Print print_;
  std::size_t command_ = 0;  // the next one
  std::size_t key_ = 0;      // the next one of a command that has several
  std::string printed_;      // by the last command that prints
  std::string failure_;
};

}  // namespace simulator
