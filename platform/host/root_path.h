// Names of the terminal's files, found under its root folder.
//
// Paths are taken apart at "\" and "/"; ".." at the root stays there, as on a drive. Names match without case, an exact
// match first. Symbolic links are not followed, so that nothing outside the root can be reached.
#pragma once

#include "base/wide_string.h"

#include <string>
#include <vector>

namespace platform::host {

// An open file descriptor, closed with the object.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&& other) noexcept;

  explicit operator bool() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_ = -1;
};

struct Place {
  Descriptor folder;     // none: a folder on the way does not exist
  std::string name;      // in UTF-8, as it is on disk when the file exists; empty: the path names the root itself
  bool exists = false;   // something of that name, of whatever kind
  std::string fullName;  // for programs that are to be started
};

// Looks a path up under the root of the environment in force.
Place FindPlace(WideStringView path);

// The names of a path, without empty ones, "." and "..".
std::vector<WideString> SplitPath(WideStringView path);

}  // namespace platform::host
