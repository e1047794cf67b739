// kelset export: the settings of a terminal as a file to edit.
#include "platform/host/utf8_path.h"
#include "settings/export.h"
#include "simulator/text_file.h"
#include "tools/kelset_device.h"

#include <sstream>

namespace tools {
namespace {

struct ExportOptions {
  DeviceOptions device;
  std::string output;
};

int Run(const ExportOptions& options, SetStreams& streams) {
  const auto configuration = LoadDevice(options.device, streams);
  if (!configuration) return kUnusable;
  std::ostringstream text;
  {
    authoring::Trial trial(*configuration);
    settings::WriteSettings(trial, text);
  }
  if (options.output.empty()) {
    streams.out << text.str();
    return kFine;
  }
  if (simulator::ReplaceTextFile(platform::host::PathOf(options.output), text.str())) return kFine;
  return Complain(streams, options.output + ": cannot be written");
}

}  // namespace

void DescribeExport(Command command, SetStreams& streams) {
  const auto options = std::make_shared<ExportOptions>();
  command.Remarks(
      "Secrets are never exported: they stand in comments.\n"
      "Exit status: 0 done, 2 unusable arguments or files.\n"
      "Example: kelset export examples/small -o small.yaml");
  AddDeviceOptions(command, options->device);
  command.Text("-o,--output", options->output, "the file to write; default: standard output");
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
