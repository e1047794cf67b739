// Notices that files of a storage change, whoever changes them.
#pragma once

#include <set>
#include <string>

namespace simulator {

class StorageWatch {
 public:
  virtual ~StorageWatch() = default;

  // The files that have changed since the last call and have come to rest: their names below the storage,
  // "Windows/ovu.xml". The empty name stands for any of them: more happened than was told.
  virtual std::set<std::string> TakeChanged() = 0;
};

// Whether the terminal is to start again when this file changes: it is read at its start. Those are the storage's own
// files and documents (.xml), `source` too whatever its name; not what the utility and its programs leave there.
bool IsReadAtStart(const std::string& file, const std::string& source);

}  // namespace simulator
