// The terminal that a command is about.
#pragma once

#include "authoring/configuration.h"
#include "tools/kelset_program.h"

#include <memory>
#include <string>

namespace tools {

struct DeviceOptions {
  std::string device;  // a storage folder
  std::string source;  // the utility's command line
};

// DEVICE and --source.
void AddDeviceOptions(Command& command, DeviceOptions& options);

// Its configuration, with the values that the device has now. Null, after it was said on standard error why.
std::unique_ptr<authoring::Configuration> LoadDevice(const DeviceOptions& options, SetStreams& streams);

// Says it on standard error; kUnusable.
int Complain(SetStreams& streams, const std::string& problem);

}  // namespace tools
