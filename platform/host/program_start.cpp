#include "platform/host/program_start.h"

#include "base/utf8.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

extern char** environ;

namespace platform::host {
namespace {

// Nobody waits for the programs that are started: the system is told to forget each as it ends.
void LeaveChildrenToTheSystem() {
  struct sigaction action = {};
  action.sa_handler = SIG_DFL;
  action.sa_flags = SA_NOCLDWAIT;
  sigaction(SIGCHLD, &action, nullptr);
}

// Blanks separate arguments; quotes hold one together.
std::vector<std::string> SplitArguments(WideStringView arguments) {
  std::vector<std::string> list;
  WideString current;
  bool started = false;
  bool quoted = false;
  for (const char16_t unit : arguments) {
    if (unit == u'"') {
      quoted = !quoted;
      started = true;
    } else if (!quoted && (unit == u' ' || unit == u'\t')) {
      if (started) list.push_back(base::ToUtf8(current));
      current.clear();
      started = false;
    } else {
      current.push_back(unit);
      started = true;
    }
  }
  if (started) list.push_back(base::ToUtf8(current));
  return list;
}

}  // namespace

std::uint32_t WhyNoProgram(const Place& place) {
  struct stat status = {};
  if (fstatat(place.folder.Number(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return kFileNotFound;
  if (S_ISDIR(status.st_mode)) return kRefused;
  return S_ISREG(status.st_mode) ? 0 : kBadProgram;
}

std::uint32_t Spawn(const std::string& program, WideStringView arguments) {
  std::vector<std::string> texts = SplitArguments(arguments);
  texts.insert(texts.begin(), program);
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);

  // The program must not write into the screen, nor take keys from it, nor get the signals of its terminal.
  posix_spawn_file_actions_t files;
  posix_spawnattr_t attributes;
  if (posix_spawn_file_actions_init(&files) != 0) return kRefused;
  if (posix_spawnattr_init(&attributes) != 0) {
    posix_spawn_file_actions_destroy(&files);
    return kRefused;
  }
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    posix_spawn_file_actions_addopen(&files, number, "/dev/null", O_RDWR, 0);
  }
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  LeaveChildrenToTheSystem();
  pid_t child = -1;
  const int error = posix_spawn(&child, program.c_str(), &files, &attributes, pointers.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  if (error == ENOEXEC || error == EACCES) return kBadProgram;
  if (error != 0) return kFileNotFound;
  return 0;
}

}  // namespace platform::host
