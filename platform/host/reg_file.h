// Reader of registry files, "Windows Registry Editor Version 5.00" and "REGEDIT4".
#pragma once

#include "platform/host/registry_tree.h"

#include <memory>
#include <string>
#include <string_view>

namespace platform::host {

struct RegFile {
  std::shared_ptr<const RegistryTree> tree;  // null when a line is broken
  std::size_t line = 0;                      // the first broken line, from 1, and what is wrong with it
  std::string problem;
};

// `bytes` are UTF-8, or UTF-16 with a byte order mark. Of "REGEDIT4" files the texts in hex data are UTF-8 as well.
// Keys and values that begin with a deletion are removed again. Empty input is an empty registry.
RegFile ReadRegFile(std::string_view bytes);

}  // namespace platform::host
