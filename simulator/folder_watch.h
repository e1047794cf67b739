// A storage's folder as the system tells of changes in it, by inotify, with all folders inside.
#pragma once

#include "simulator/storage_watch.h"
#include "simulator/wake_pipe.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <thread>

namespace simulator {

// When changes have come to rest: nothing has happened for a moment, or it has gone on for too long to wait for its
// end.
class Settling {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kQuiet{120};
  static constexpr std::chrono::milliseconds kLongest{2000};

  void Happened(Clock::time_point now);
  bool IsUnderWay() const { return isUnderWay_; }
  // How long there is to wait still; zero: they rest.
  std::chrono::milliseconds Left(Clock::time_point now) const;
  void Rested() { isUnderWay_ = false; }

 private:
  bool isUnderWay_ = false;
  Clock::time_point first_;
  Clock::time_point last_;
};

class FolderWatch final : public StorageWatch {
 public:
  // `whenAtRest` is called, on a thread of this object's, whenever there is something to take.
  FolderWatch(const std::filesystem::path& root, std::function<void()> whenAtRest);
  ~FolderWatch() override;
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  // Empty, or why the folder cannot be watched.
  const std::string& Problem() const { return problem_; }

  std::set<std::string> TakeChanged() override;

 private:
  void Follow();
  void ReadEvents();
  void Watch(const std::string& folder, bool isNew);
  void Note(const std::string& file) { moving_.insert(file); }

  const std::filesystem::path root_;
  const std::function<void()> whenAtRest_;
  std::string problem_;
  int inotify_ = -1;
  WakePipe stop_;
  std::map<int, std::string> folders_;  // by the number of their watch: their names below the root
  Settling settling_;
  std::set<std::string> moving_;  // changed, not at rest
  std::mutex mutex_;
  std::set<std::string> atRest_;  // under mutex_
  std::thread follower_;
};

}  // namespace simulator
