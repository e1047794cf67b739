#include "tools/console.h"

#include <cstdlib>
#include <utility>

namespace tools {
namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::chrono::milliseconds kStep{200};

}  // namespace

bool RefusesColours() {
  const char* noColour = std::getenv("NO_COLOR");
  return noColour != nullptr && *noColour != '\0';
}

std::string Coloured(const std::string& text, const char* sgr, bool colours) {
  return colours ? "\x1b[" + std::string(sgr) + "m" + text + "\x1b[0m" : text;
}

Progress::Progress(std::ostream& errors, std::string what, bool watched)
    : errors_(errors), what_(std::move(what)), watched_(watched), next_(Clock::now() + kPatience) {}

Progress::~Progress() {
  if (shown_) errors_ << "\r\x1b[K" << std::flush;
}

void Progress::Tell(std::size_t done, std::size_t all) {
  if (!watched_ || Clock::now() < next_) return;
  next_ = Clock::now() + kStep;
  shown_ = true;
  errors_ << "\r\x1b[K" << what_ << ' ' << done << " of " << all << std::flush;
}

}  // namespace tools
