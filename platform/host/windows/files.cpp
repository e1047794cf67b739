#include "platform/files.h"

#include "platform/host/environment.h"
#include "platform/host/root_path.h"
#include "platform/host/utf8_path.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <algorithm>
#include <system_error>
#include <utility>

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kMaxFileSize = 0xFFFFFFFF;  // what the terminal's own file system can hold
constexpr std::size_t kMostAtOnce = 1u << 30;      // what one call of the C library takes
constexpr int kMayWrite = 2;

struct InputFile {
  host::Descriptor descriptor;
  std::size_t size = 0;
};

// An open regular file with its size, or nothing.
std::optional<InputFile> OpenInputFile(WideStringView path) {
  const host::Place place = host::FindPlace(path);
  if (!place.exists || host::IsRefused(host::Use::kOpenFile)) return std::nullopt;
  host::Descriptor descriptor(_wopen(host::PathOf(place.fullName).c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT));
  struct _stat64 status = {};
  if (!descriptor || _fstat64(descriptor.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  if (status.st_size > kMaxFileSize) return std::nullopt;
  return InputFile{std::move(descriptor), static_cast<std::size_t>(status.st_size)};
}

// False when the file is shorter than it was.
bool ReadAll(const InputFile& input, char* to) {
  if (host::IsRefused(host::Use::kReadFile)) return false;
  for (std::size_t length = 0; length < input.size;) {
    const auto wanted = static_cast<unsigned>(std::min(input.size - length, kMostAtOnce));
    const int got = _read(input.descriptor.Number(), to + length, wanted);
    if (got <= 0) return false;
    length += static_cast<std::size_t>(got);
  }
  return true;
}

// Windows would make something else of it than a file of that name.
bool IsNoName(std::string_view name) {
  const auto isForbidden = [](char character) {
    return static_cast<unsigned char>(character) < ' ' ||
           std::string_view("\"*:<>?|").find(character) != std::string_view::npos;
  };
  return name.empty() || name.back() == '.' || name.back() == ' ' || std::any_of(name.begin(), name.end(), isForbidden);
}

}  // namespace

bool ReadWholeFile(WideStringView path, const std::function<char*(std::size_t size)>& place) {
  const std::optional<InputFile> input = OpenInputFile(path);
  if (!input) return false;
  char* const to = place(input->size);
  return to != nullptr && ReadAll(*input, to);
}

// The bytes go to a file beside the wanted one, which takes its name when all of them are on disk.
struct OutputFile::State {
  fs::path file;
  fs::path temporary;
  host::Descriptor descriptor;
  bool failed = false;

  bool Open(WideStringView path);
  bool Write(std::string_view bytes);
};

bool OutputFile::State::Open(WideStringView path) {
  const host::Place place = host::FindPlace(path);
  if (!place.folder || IsNoName(place.name) || host::IsRefused(host::Use::kCreateFile)) return false;
  file = host::PathOf(place.fullName);
  std::error_code error;
  if (place.exists && (!fs::is_regular_file(file, error) || _waccess(file.c_str(), kMayWrite) != 0)) return false;
  temporary = file.parent_path() / host::PathOf("." + place.name + ".new");
  // What an earlier run left behind when it was killed.
  fs::remove(temporary, error);
  descriptor = host::Descriptor(
      _wopen(temporary.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE));
  return static_cast<bool>(descriptor);
}

bool OutputFile::State::Write(std::string_view bytes) {
  failed = failed || host::IsRefused(host::Use::kWriteFile);
  while (!bytes.empty() && !failed) {
    const auto wanted = static_cast<unsigned>(std::min(bytes.size(), kMostAtOnce));
    const int written = _write(descriptor.Number(), bytes.data(), wanted);
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

// An open file can be neither removed nor renamed here.
OutputFile::~OutputFile() {
  if (!state_) return;
  state_->descriptor = {};
  std::error_code error;
  fs::remove(state_->temporary, error);
}

bool OutputFile::IsOpen() const { return state_ != nullptr; }

bool OutputFile::Write(std::string_view bytes) { return state_ && state_->Write(bytes); }

bool OutputFile::Commit() {
  if (!state_ || state_->failed || host::IsRefused(host::Use::kReplaceFile)) return false;
  if (_commit(state_->descriptor.Number()) != 0) return false;
  state_->descriptor = {};
  std::error_code error;
  fs::rename(state_->temporary, state_->file, error);
  if (error) return false;
  state_.reset();
  return true;
}

}  // namespace platform
