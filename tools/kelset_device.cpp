#include "tools/kelset_device.h"

#include "base/utf8.h"
#include "platform/host/utf8_path.h"
#include "settings/given_value.h"

namespace tools {

void AddDeviceOptions(Command& command, DeviceOptions& options) {
  command.RequiredText("DEVICE", options.device, "the storage folder of a terminal");
  command.Text("--source", options.source,
               "the utility's command line: a HKEY_LOCAL_MACHINE path, or the path of an XML file in the storage");
}

int Complain(SetStreams& streams, const std::string& problem) {
  streams.errors << "kelset: " << problem << '\n';
  return kUnusable;
}

std::unique_ptr<authoring::Configuration> LoadDevice(const DeviceOptions& options, SetStreams& streams) {
  const std::filesystem::path folder = platform::host::PathOf(options.device);
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error)) {
    Complain(streams, options.device + ": there is no such folder");
    return nullptr;
  }
  auto loaded = authoring::Configuration::Load(folder, base::FromUtf8(options.source));
  if (!loaded.configuration) {
    Complain(streams, loaded.problem);
    return nullptr;
  }
  if (loaded.configuration->HasTree()) return std::move(loaded.configuration);
  for (const auto& broken : loaded.configuration->BrokenDocuments()) {
    Complain(streams, settings::ToText(broken.position) + ": " + base::ToUtf8(broken.reason));
  }
  return nullptr;
}

}  // namespace tools
