#include "base/utf8.h"
#include "platform/host/environment.h"
#include "platform/host/root_path.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <optional>
#include <utility>

namespace platform::host {
namespace {

bool Exists(int folder, const std::string& name) {
  struct stat status = {};
  return fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// Of several names that differ only in case the first in byte order, so that the answer is always the same one.
std::optional<std::string> FindIgnoringCase(int folder, WideStringView name) {
  const int copy = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (copy < 0) return std::nullopt;
  const std::unique_ptr<DIR, CloseFolder> listing(fdopendir(copy));
  if (!listing) {
    close(copy);
    return std::nullopt;
  }
  std::optional<std::string> found;
  while (const dirent* entry = readdir(listing.get())) {
    const std::string candidate = entry->d_name;
    if (!base::EqualsIgnoringCase(base::FromUtf8(candidate), name)) continue;
    if (!found || candidate < *found) found = candidate;
  }
  return found;
}

std::optional<std::string> NameOnDisk(int folder, WideStringView name) {
  std::string exact = base::ToUtf8(name);
  if (Exists(folder, exact)) return exact;
  return FindIgnoringCase(folder, name);
}

}  // namespace

Place FindPlace(WideStringView path) {
  Place place;
  const auto& root = CurrentEnvironment().root;
  // A path that a zero would cut short names nothing.
  if (root.empty() || path.find(u'\0') != WideStringView::npos) return place;
  Descriptor folder(open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return place;
  place.fullName = root.native();
  std::vector<WideString> names = SplitPath(path);
  WideString last;
  if (!names.empty()) {
    last = std::move(names.back());
    names.pop_back();
  }
  for (const WideString& name : names) {
    const auto onDisk = NameOnDisk(folder.Number(), name);
    if (!onDisk) return {};
    folder = Descriptor(openat(folder.Number(), onDisk->c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder) return {};
    place.fullName += "/" + *onDisk;
  }
  if (!last.empty()) {
    const auto onDisk = NameOnDisk(folder.Number(), last);
    place.exists = onDisk.has_value();
    place.name = onDisk ? *onDisk : base::ToUtf8(last);
    place.fullName += "/" + place.name;
  }
  place.folder = std::move(folder);
  return place;
}

}  // namespace platform::host
