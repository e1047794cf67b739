// A simulated terminal's storage: a folder with its files, its registry and the values of its device.
#pragma once

#include "platform/host/registry_tree.h"
#include "simulator/device_store.h"
#include "simulator/property_tables.h"

#include <filesystem>
#include <memory>
#include <string>

namespace simulator {

struct Storage {
  std::filesystem::path root;
  std::shared_ptr<const platform::host::RegistryTree> registry;
  std::unique_ptr<DeviceStore> device;
  PropertyTables tables;
};

// The files that the utility works on, without a device. Empty, or one line that names what cannot be used.
std::string OpenFiles(const std::filesystem::path& root, Storage& storage);

// The same with the device. Empty, or one line that names what cannot be used; then `storage` is not to be used either.
// Files that are missing are empty ones.
std::string OpenStorage(const std::filesystem::path& root, Storage& storage);

}  // namespace simulator
