#include "simulator/instance_lock.h"

#include "simulator/columns.h"
#include "simulator/text_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace simulator {
namespace {

struct flock WholeFile() {
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  return lock;
}

}  // namespace

const int kBringForwardSignal = SIGUSR1;

InstanceLock::InstanceLock(const std::filesystem::path& root, const std::string& elsewhere)
    : file_(root / (".kelterm" + (elsewhere.empty() ? "" : "." + elsewhere) + ".lock")) {
  // A terminal that just ends removes the file: then the lock was on a file that nobody finds any more.
  while (descriptor_ < 0) {
    descriptor_ = open(file_.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0644);
    if (descriptor_ < 0) {
      const bool missing = errno == ENOENT || errno == ENOTDIR;
      problem_ = root.string() + (missing ? ": no such folder" : ": cannot be written");
      return;
    }
    struct flock lock = WholeFile();
    if (fcntl(descriptor_, F_SETLK, &lock) == 0) {
      if (IsStillTheFile()) {
        signal(kBringForwardSignal, SIG_IGN);
        if (ftruncate(descriptor_, 0) != 0) problem_ = file_.string() + ": cannot be written";
        return;
      }
    } else {
      lock = WholeFile();
      if (fcntl(descriptor_, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK) {
        other_ = lock.l_pid;
        return;
      }
    }
    close(descriptor_);
    descriptor_ = -1;
  }
}

InstanceLock::~InstanceLock() {
  if (descriptor_ < 0) return;
  if (other_ == 0) unlink(file_.c_str());
  close(descriptor_);
}

bool InstanceLock::IsStillTheFile() const {
  struct stat opened = {};
  struct stat named = {};
  return fstat(descriptor_, &opened) == 0 && stat(file_.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
         opened.st_dev == named.st_dev;
}

std::vector<WideString> InstanceLock::OtherTitles() const {
  if (other_ == 0) return {};
  const auto line = ReadTextFile(file_);
  return line && !line->empty() ? SplitColumns(*line).value_or(std::vector<WideString>{}) : std::vector<WideString>{};
}

void InstanceLock::BringOtherForward() const {
  if (other_ > 0) kill(other_, kBringForwardSignal);
}

void InstanceLock::Publish(const std::vector<WideString>& titles) {
  if (descriptor_ < 0 || other_ != 0 || titles == published_) return;
  published_ = titles;
  const std::string line = titles.empty() ? std::string() : JoinColumns(titles);
  // Failing only makes the next instance start as if this one had no window.
  if (ftruncate(descriptor_, 0) == 0 && pwrite(descriptor_, line.data(), line.size(), 0) < 0) published_.clear();
}

}  // namespace simulator
