// The manual of a configuration: one page for the people at the terminal.
#pragma once

#include "authoring/configuration.h"

#include <functional>
#include <string>

namespace authoring {

struct ManualTerms {
  std::string title;  // empty: the main menu's
  bool pictures = true;
  std::size_t mostKeys = 60'000;  // that may be pressed for the pictures
  std::function<void(std::size_t done, std::size_t all)> progress;
};

struct Manual {
  std::string problem;  // why there is none; empty: there is
  std::string html;     // self-contained: no scripts, nothing to load
};

// The storage is only read; the pictures are taken in a copy of it.
Manual MakeManual(const Configuration& configuration, const ManualTerms& terms);

}  // namespace authoring
