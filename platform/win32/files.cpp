#include "platform/files.h"

#include "platform/win32/windows_api.h"

#include <cstdio>

namespace platform {

namespace {

struct Close {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

File Open(const WideString& path, const wchar_t* mode) { return File(_wfopen(win32::ToApi(path), mode)); }

// Nothing for a file that cannot be measured, or is longer than the run-time library counts.
std::optional<std::size_t> SizeOf(std::FILE* file) {
  if (std::fseek(file, 0, SEEK_END) != 0) return std::nullopt;
  const long size = std::ftell(file);
  if (size < 0 || std::fseek(file, 0, SEEK_SET) != 0) return std::nullopt;
  return static_cast<std::size_t>(size);
}

// Puts one file in the place of another in one step.
bool Replace(const WideString& path, const WideString& by) {
#ifdef UNDER_CE
  return DeleteAndRenameFile(win32::ToApi(path), win32::ToApi(by)) || MoveFileW(win32::ToApi(by), win32::ToApi(path));
#else
  return MoveFileExW(win32::ToApi(by), win32::ToApi(path), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#endif
}

}  // namespace

bool ReadWholeFile(WideStringView path, const std::function<char*(std::size_t size)>& place) {
  const File file = Open(WideString(path), L"rb");
  if (!file) return false;
  const std::optional<std::size_t> size = SizeOf(file.get());
  if (!size) return false;
  char* const bytes = place(*size);
  return bytes != nullptr && std::fread(bytes, 1, *size, file.get()) == *size;
}

struct OutputFile::State {
  WideString path;
  WideString freshPath;
  File file;
  bool failed = false;
};

OutputFile::OutputFile(WideStringView path) : state_(std::make_unique<State>()) {
  state_->path = path;
  state_->freshPath = state_->path + u".new";
  state_->file = Open(state_->freshPath, L"wb");
}

OutputFile::~OutputFile() {
  if (!state_->file) return;
  state_->file.reset();
  DeleteFileW(win32::ToApi(state_->freshPath));
}

bool OutputFile::IsOpen() const { return state_->file != nullptr; }

bool OutputFile::Write(std::string_view bytes) {
  if (!IsOpen()) return false;
  if (std::fwrite(bytes.data(), 1, bytes.size(), state_->file.get()) != bytes.size()) state_->failed = true;
  return !state_->failed;
}

bool OutputFile::Commit() {
  if (!IsOpen()) return false;
  const bool written = std::fclose(state_->file.release()) == 0 && !state_->failed;
  if (written && Replace(state_->path, state_->freshPath)) return true;
  DeleteFileW(win32::ToApi(state_->freshPath));
  return false;
}

}  // namespace platform
