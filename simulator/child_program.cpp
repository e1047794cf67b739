#include "simulator/child_program.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

extern "C" {
#include <sys/pidfd.h>  // which leaves this to its readers
}

extern char** environ;

namespace simulator {

ChildProgram::ChildProgram(std::vector<std::string> command, std::function<void()> whenDone) {
  if (!Start(command)) {
    printed_ = command.front() + ": cannot be started";
    done_ = true;
    if (whenDone) whenDone();
    return;
  }
  follower_ = std::thread([this, whenDone = std::move(whenDone)] {
    std::array<char, 4096> bytes = {};
    for (;;) {
      const ssize_t length = read(output_, bytes.data(), bytes.size());
      if (length < 0 && errno == EINTR) continue;
      if (length <= 0) break;
      printed_.append(bytes.data(), static_cast<std::size_t>(length));
    }
    done_ = true;
    if (whenDone) whenDone();
  });
}

ChildProgram::~ChildProgram() {
  if (!follower_.joinable()) return;
  if (!done_ && process_ >= 0) pidfd_send_signal(process_, SIGKILL, nullptr, 0);
  follower_.join();
  // Fails where the system is told to forget programs as they end.
  waitpid(number_, nullptr, 0);
  close(output_);
  if (process_ >= 0) close(process_);
}

bool ChildProgram::Start(const std::vector<std::string>& command) {
  std::array<int, 2> ends = {-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return false;
  output_ = ends[0];
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
  std::vector<std::string> words = command;
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const bool started = posix_spawn(&number_, pointers.front(), &actions, nullptr, pointers.data(), environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  if (started) {
    process_ = pidfd_open(number_, 0);
  } else {
    close(output_);
  }
  return started;
}

std::filesystem::path ProgramBeside(const std::string& name, const std::string& built) {
  std::error_code error;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  if (error) return {};
  for (const auto& candidate : {folder / name, folder.parent_path() / built / name}) {
    if (access(candidate.c_str(), X_OK) == 0 && std::filesystem::is_regular_file(candidate, error)) return candidate;
  }
  return {};
}

}  // namespace simulator
