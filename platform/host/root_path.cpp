#include "platform/host/root_path.h"

#include <unistd.h>

#include <utility>

namespace platform::host {

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

std::vector<WideString> SplitPath(WideStringView path) {
  std::vector<WideString> names;
  while (!path.empty()) {
    const std::size_t end = path.find_first_of(u"\\/");
    const WideStringView name = path.substr(0, end);
    path = end == WideStringView::npos ? WideStringView{} : path.substr(end + 1);
    if (name == u"..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != u".") {
      names.emplace_back(name);
    }
  }
  return names;
}

}  // namespace platform::host
