#include "snmp/net_snmp_library.h"

#include <mutex>
#include <string>

namespace snmp {
namespace {

constexpr const char* kProgram = "kelterm";

std::mutex holdersMutex;
int holders = 0;

// As a line of the library's own configuration, which it need not read from a file.
void Remember(std::string line) { netsnmp_config_remember(line.data()); }

// It counts the boot itself, and from 1 again for an engine that it did not have the last time.
void RememberSelf(const Engine& self) {
  const std::string id = "0x" + HexOf(self.id);
  Remember("exactEngineID " + id);
  Remember("oldEngineID " + id);
  Remember("engineBoots " + std::to_string(self.boots - 1));
}

void Prepare(const Engine* self) {
  // Numbers need none of the standard modules' files.
  netsnmp_set_mib_directory("");
  netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, NETSNMP_DS_LIB_DONT_READ_CONFIGS, 1);
  netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, NETSNMP_DS_LIB_DONT_PERSIST_STATE, 1);
  // It would make a folder for certificates, which nothing here has.
  netsnmp_ds_set_string(NETSNMP_DS_LIBRARY_ID, NETSNMP_DS_LIB_PERSISTENT_DIR, "/dev/null");
  netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
  if (self != nullptr) RememberSelf(*self);
  init_snmp(kProgram);
}

}  // namespace

NetSnmpLibrary::NetSnmpLibrary(const Engine* self) {
  const std::lock_guard lock(holdersMutex);
  if (holders++ == 0) Prepare(self);
}

NetSnmpLibrary::~NetSnmpLibrary() {
  const std::lock_guard lock(holdersMutex);
  if (--holders == 0) snmp_shutdown(kProgram);
}

}  // namespace snmp
