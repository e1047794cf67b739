#include "platform/files.h"

#include "platform/host/environment.h"
#include "platform/host/root_path.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace platform {
namespace {

constexpr std::int64_t kMaxFileSize = 0xFFFFFFFF;  // what the terminal's own file system can hold

// An open regular file with its size, or nothing.
struct Input {
  host::Descriptor file;
  std::size_t size = 0;
};

std::optional<Input> OpenInput(WideStringView path) {
  const host::Place place = host::FindPlace(path);
  if (!place.exists || host::IsRefused(host::Use::kOpenFile)) return std::nullopt;
  // Without blocking: a pipe is no file, and must not hold the program up before that is known.
  host::Descriptor file(
      openat(place.folder.Number(), place.name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status = {};
  if (!file || fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  if (status.st_size > kMaxFileSize) return std::nullopt;
  return Input{std::move(file), static_cast<std::size_t>(status.st_size)};
}

// False when the file is shorter than it was.
bool ReadExactly(const Input& input, char* to) {
  if (host::IsRefused(host::Use::kReadFile)) return false;
  std::size_t length = 0;
  while (length < input.size) {
    const ssize_t got = read(input.file.Number(), to + length, input.size - length);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    length += static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace

bool ReadWholeFile(WideStringView path, const std::function<char*(std::size_t size)>& place) {
  const std::optional<Input> input = OpenInput(path);
  if (!input) return false;
  char* const to = place(input->size);
  return to != nullptr && ReadExactly(*input, to);
}

// The bytes go to a file beside the wanted one, which takes its name when all of them are on disk.
struct OutputFile::State {
  host::Place place;
  std::string temporaryName;
  host::Descriptor file;
  bool failed = false;

  bool Open(WideStringView path);
  bool Write(std::string_view bytes);
};

bool OutputFile::State::Open(WideStringView path) {
  place = host::FindPlace(path);
  if (!place.folder || place.name.empty() || host::IsRefused(host::Use::kCreateFile)) return false;
  // What the program stores may be secret. A file that is replaced keeps the rights that it was given.
  mode_t mode = 0600;
  if (place.exists) {
    struct stat status = {};
    if (fstatat(place.folder.Number(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return false;
    if (!S_ISREG(status.st_mode) || faccessat(place.folder.Number(), place.name.c_str(), W_OK, 0) != 0) return false;
    mode = status.st_mode & 07777;
  }
  temporaryName = "." + place.name + ".new";
  // What an earlier run left behind when it was killed.
  unlinkat(place.folder.Number(), temporaryName.c_str(), 0);
  file = host::Descriptor(
      openat(place.folder.Number(), temporaryName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
  return static_cast<bool>(file);
}

bool OutputFile::State::Write(std::string_view bytes) {
  failed = failed || host::IsRefused(host::Use::kWriteFile);
  while (!bytes.empty() && !failed) {
    const ssize_t written = write(file.Number(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) {
      failed = true;
    } else {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  return !failed;
}

OutputFile::OutputFile(WideStringView path) : state_(std::make_unique<State>()) {
  if (!state_->Open(path)) state_.reset();
}

OutputFile::~OutputFile() {
  if (state_) unlinkat(state_->place.folder.Number(), state_->temporaryName.c_str(), 0);
}

bool OutputFile::IsOpen() const { return state_ != nullptr; }

bool OutputFile::Write(std::string_view bytes) { return state_ && state_->Write(bytes); }

bool OutputFile::Commit() {
  if (!state_ || state_->failed || host::IsRefused(host::Use::kReplaceFile)) return false;
  if (fsync(state_->file.Number()) != 0) return false;
  const int folder = state_->place.folder.Number();
  if (renameat(folder, state_->temporaryName.c_str(), folder, state_->place.name.c_str()) != 0) return false;
  state_.reset();
  return true;
}

}  // namespace platform
