#include "simulator/folder_watch.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <system_error>
#include <utility>

namespace simulator {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

// Written in place, or put there by renaming as careful editors do, or gone.
constexpr std::uint32_t kChanges =
    IN_MODIFY | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ONLYDIR;

std::string Below(const std::string& folder, const std::string& name) {
  return folder.empty() ? name : folder + "/" + name;
}

}  // namespace

void Settling::Happened(Clock::time_point now) {
  if (!isUnderWay_) first_ = now;
  isUnderWay_ = true;
  last_ = now;
}

milliseconds Settling::Left(Clock::time_point now) const {
  const auto end = std::min(last_ + kQuiet, first_ + kLongest);
  return std::max(milliseconds(0), std::chrono::ceil<milliseconds>(end - now));
}

FolderWatch::FolderWatch(const fs::path& root, std::function<void()> whenAtRest)
    : root_(root), whenAtRest_(std::move(whenAtRest)), inotify_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  Watch("", false);
  if (problem_.empty() && !stop_.IsOpen()) problem_ = root.string() + ": cannot be watched";
  if (!problem_.empty()) return;
  follower_ = std::thread([this] { Follow(); });
}

FolderWatch::~FolderWatch() {
  stop_.Fill();
  if (follower_.joinable()) follower_.join();
  if (inotify_ >= 0) close(inotify_);
}

std::set<std::string> FolderWatch::TakeChanged() {
  const std::lock_guard lock(mutex_);
  return std::exchange(atRest_, {});
}

void FolderWatch::Follow() {
  for (;;) {
    const int patience = settling_.IsUnderWay() ? static_cast<int>(settling_.Left(Settling::Clock::now()).count()) : -1;
    std::array<pollfd, 2> waits = {pollfd{inotify_, POLLIN, 0}, pollfd{stop_.ReadEnd(), POLLIN, 0}};
    const int ready = poll(waits.data(), waits.size(), patience);
    if ((ready < 0 && errno != EINTR) || waits[1].revents != 0) return;
    if (ready > 0) ReadEvents();
    if (!settling_.IsUnderWay() || settling_.Left(Settling::Clock::now()).count() > 0) continue;
    settling_.Rested();
    {
      const std::lock_guard lock(mutex_);
      atRest_.merge(moving_);
    }
    moving_.clear();
    whenAtRest_();
  }
}

void FolderWatch::ReadEvents() {
  alignas(inotify_event) std::array<char, 16 * 1024> bytes = {};
  for (ssize_t length = 0; (length = read(inotify_, bytes.data(), bytes.size())) > 0;) {
    for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
      inotify_event event = {};
      std::memcpy(&event, bytes.data() + at, sizeof event);
      const std::string name = event.len == 0 ? "" : bytes.data() + at + sizeof event;
      at += sizeof event + event.len;
      const auto folder = folders_.find(event.wd);
      if ((event.mask & IN_Q_OVERFLOW) != 0) {
        Note("");
      } else if ((event.mask & IN_IGNORED) != 0) {
        folders_.erase(event.wd);
        continue;
      } else if (folder == folders_.end()) {
        continue;
      } else if ((event.mask & IN_ISDIR) == 0) {
        Note(Below(folder->second, name));
      } else if ((event.mask & (IN_CREATE | IN_MOVED_TO)) != 0) {
        Watch(Below(folder->second, name), true);
      } else {
        Note("");  // whatever was in that folder
      }
      settling_.Happened(Settling::Clock::now());
    }
  }
}

// What lies in a new folder already came before its watch.
void FolderWatch::Watch(const std::string& folder, bool isNew) {
  const int watch = inotify_add_watch(inotify_, (root_ / folder).c_str(), kChanges);
  if (watch < 0) {
    // A new folder may be gone again, or not be for us; the system may watch only so many.
    if (!isNew) problem_ = (root_ / folder).string() + ": cannot be watched: " + std::system_category().message(errno);
    return;
  }
  folders_[watch] = folder;
  std::error_code error;
  for (fs::directory_iterator at(root_ / folder, error), end; !error && at != end; at.increment(error)) {
    const std::string name = Below(folder, at->path().filename().string());
    if (at->is_directory(error) && !at->is_symlink(error)) {
      Watch(name, isNew);
    } else if (isNew) {
      Note(name);
    }
  }
}

}  // namespace simulator
