// A configuration's storage in a temporary folder of its own: what is played there reaches neither the storage it came
// from nor the author's machine.
#pragma once

#include "authoring/configuration.h"

#include <filesystem>
#include <string>

namespace authoring {

class StorageCopy {
 public:
  // Programs are there but do nothing. Problem() says why there is no copy.
  explicit StorageCopy(const Configuration& configuration);
  ~StorageCopy();
  StorageCopy(const StorageCopy&) = delete;
  StorageCopy& operator=(const StorageCopy&) = delete;

  const std::string& Problem() const { return problem_; }
  // The files as they are in the storage.
  const std::filesystem::path& Original() const { return original_; }
  // A folder to play in, as fresh as the original. Empty when the disk is full.
  std::filesystem::path Fresh() const;

 private:
  std::string CopyAll(const Configuration& configuration) const;

  std::filesystem::path folder_;
  std::filesystem::path original_;
  std::string problem_;
};

}  // namespace authoring
