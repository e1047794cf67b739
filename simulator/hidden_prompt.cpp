#include "simulator/hidden_prompt.h"

#include <fcntl.h>
#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

namespace simulator {
namespace {

// The terminal without its echo. Signals that would leave it so wait until it has it back.
class Silenced {
 public:
  explicit Silenced(int terminal) : terminal_(terminal) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP}) sigaddset(&signals, number);
    sigprocmask(SIG_BLOCK, &signals, &before_);
    if (tcgetattr(terminal_, &usual_) != 0) return;
    termios silent = usual_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
    isSilent_ = tcsetattr(terminal_, TCSAFLUSH, &silent) == 0;
  }
  ~Silenced() {
    if (isSilent_) tcsetattr(terminal_, TCSAFLUSH, &usual_);
    sigprocmask(SIG_SETMASK, &before_, nullptr);
  }
  Silenced(const Silenced&) = delete;
  Silenced& operator=(const Silenced&) = delete;

  bool IsSilent() const { return isSilent_; }
  char EndKey() const { return static_cast<char>(usual_.c_cc[VINTR]); }

 private:
  const int terminal_;
  termios usual_ = {};
  sigset_t before_;
  bool isSilent_ = false;
};

void Say(int terminal, const std::string& text) {
  [[maybe_unused]] const auto written = write(terminal, text.data(), text.size());
}

// Nothing when the terminal is closed, or the person has had enough.
std::optional<std::string> ReadLine(int terminal, char endKey) {
  std::string line;
  for (char c = 0;;) {
    const ssize_t count = read(terminal, &c, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0 || c == endKey) return std::nullopt;
    if (c == '\n') return line;
    line.push_back(c);
  }
}

}  // namespace

std::optional<std::string> AskHidden(const std::string& question) {
  const int terminal = open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (terminal < 0) return std::nullopt;
  std::optional<std::string> answer;
  {
    const Silenced silenced(terminal);
    if (silenced.IsSilent()) {
      Say(terminal, question);
      answer = ReadLine(terminal, silenced.EndKey());
      Say(terminal, "\n");
    }
  }
  close(terminal);
  return answer;
}

}  // namespace simulator
