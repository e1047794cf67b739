// kelagent --record: a device on the network becomes the device file of a simulated one.
#pragma once

#include <string>

namespace tools {

struct RecordOptions {
  std::string device;  // snmp://[USER@]HOST[:PORT]
  std::string credentials;
  std::string config;  // a storage folder, an XML file or a registry file; empty: none
  std::string output;  // a file, or a folder that is to have a device.txt
  std::string walk;    // an OID, all below which is recorded; empty: none
  bool secrets = false;
  bool truthValues = false;
  bool force = false;  // the file may be there already
};

// Does it all, and says on standard error what is not in order. The exit status.
int RecordDevice(const RecordOptions& options);

}  // namespace tools
