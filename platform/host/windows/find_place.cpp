// On a PC: the folder's own list is asked for a name, since opening by name would also find devices, streams, short
// names and what follows no rule of the terminal's.
#include "base/utf8.h"
#include "platform/host/environment.h"
#include "platform/host/root_path.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace platform::host {
namespace {

namespace fs = std::filesystem;

struct CloseSearch {
  void operator()(HANDLE search) const { FindClose(search); }
};

// A link or a folder that stands for another; what is kept on the network until it is read is neither.
bool LeadsElsewhere(const WIN32_FIND_DATAW& entry) {
  const bool isReparsed = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return isReparsed && (entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK || entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

// The exact name, or of several that differ only in case the first in byte order.
std::optional<WIN32_FIND_DATAW> FindIn(const fs::path& folder, WideStringView name) {
  WIN32_FIND_DATAW entry{};
  const HANDLE first = FindFirstFileW((folder / L"*").c_str(), &entry);
  if (first == INVALID_HANDLE_VALUE) return std::nullopt;
  const std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseSearch> search(first);
  std::optional<WIN32_FIND_DATAW> found;
  std::string foundName;
  do {
    const WideString candidate = WideString(reinterpret_cast<const char16_t*>(entry.cFileName));
    if (candidate == name) return entry;
    if (!base::EqualsIgnoringCase(candidate, name)) continue;
    std::string candidateName = base::ToUtf8(candidate);
    if (found && candidateName >= foundName) continue;
    found = entry;
    foundName = std::move(candidateName);
  } while (FindNextFileW(search.get(), &entry));
  return found;
}

Descriptor OpenFolder(const fs::path& folder) {
  const HANDLE handle =
      CreateFileW(folder.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return {};
  const DWORD attributes = GetFileAttributesW(folder.c_str());
  const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  Descriptor descriptor(isFolder ? _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_RDONLY) : -1);
  if (!descriptor) CloseHandle(handle);
  return descriptor;
}

}  // namespace

Place FindPlace(WideStringView path) {
  const fs::path& root = CurrentEnvironment().root;
  // A path that a zero would cut short names nothing.
  if (root.empty() || path.find(u'\0') != WideStringView::npos) return {};
  fs::path folder = root;
  std::vector<WideString> names = SplitPath(path);
  WideString last;
  if (!names.empty()) {
    last = std::move(names.back());
    names.pop_back();
  }
  for (const WideString& name : names) {
    const auto entry = FindIn(folder, name);
    if (!entry || LeadsElsewhere(*entry)) return {};
    folder /= entry->cFileName;
  }
  Place place;
  place.folder = OpenFolder(folder);
  if (!place.folder) return {};
  fs::path file = folder;
  if (!last.empty()) {
    const auto entry = FindIn(folder, last);
    if (entry && LeadsElsewhere(*entry)) return {};  // opening it would follow it
    place.exists = entry.has_value();
    const fs::path name = entry ? fs::path(entry->cFileName) : fs::path(last);
    place.name = name.string();
    file /= name;
  }
  place.fullName = file.string();
  return place;
}

}  // namespace platform::host
