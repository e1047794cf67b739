// What stands around a configuration on its terminal, read into memory: the device's values, the property server's
// tables and the registry. The storage it came from is only read.
#pragma once

#include "platform/host/environment.h"
#include "platform/host/registry_tree.h"
#include "simulator/device_store.h"
#include "simulator/property_tables.h"
#include "values/descriptor_map.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace authoring {

struct DeviceEntry {
  simulator::DeviceLine line;
  std::size_t number = 0;  // of the line in its file, from 1
};

// By OID.
using DeviceEntries = std::unordered_map<WideString, DeviceEntry, values::TextHash, std::equal_to<>>;

struct TerminalCopy {
  std::filesystem::path root;  // its files are read from here
  std::filesystem::path deviceFile;
  std::filesystem::path registryFile;
  bool hasDevice = false;  // there is a device.txt; without one nothing is known about the device
  bool hasTables = false;
  bool hasRegistry = false;

  std::shared_ptr<const platform::host::RegistryTree> registry;
  DeviceEntries device;                 // of two lines for one OID the last
  std::vector<DeviceEntry> superseded;  // the others
  simulator::PropertyTables tables;
};

// Empty, or one line that names the file that cannot be used. Files that are missing are empty ones. `registryFile`:
// empty for the storage's own.
std::string ReadTerminal(const std::filesystem::path& root, const std::filesystem::path& registryFile,
                         TerminalCopy& terminal);

// An environment with the files, registry and tables in it; the terminal must live longer. It has no device.
platform::host::Environment EnvironmentOf(const TerminalCopy& terminal);

}  // namespace authoring
