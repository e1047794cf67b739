#include "authoring/terminal_copy.h"

#include "platform/host/reg_file.h"
#include "simulator/columns.h"
#include "simulator/simulated_device.h"
#include "simulator/text_file.h"

#include <optional>
#include <system_error>
#include <utility>

namespace authoring {
namespace {

namespace fs = std::filesystem;

bool Exists(const fs::path& file) {
  std::error_code error;
  return fs::exists(file, error) || error;
}

std::string ReadDevice(TerminalCopy& terminal) {
  const auto bytes = simulator::ReadTextFile(terminal.deviceFile);
  if (!bytes) return terminal.deviceFile.string() + ": cannot be read";
  std::string problem;
  simulator::ForEachLine(*bytes, [&](std::size_t number, std::string_view text) {
    if (simulator::IsComment(text)) return true;
    auto line = simulator::ParseDeviceLine(text, problem);
    if (!line) {
      problem = terminal.deviceFile.string() + ":" + std::to_string(number) + ": " + problem;
      return false;
    }
    DeviceEntry& entry = terminal.device[line->oid];
    if (entry.number != 0) terminal.superseded.push_back(std::move(entry));
    entry = {std::move(*line), number};
    return true;
  });
  return problem;
}

std::string ReadRegistry(TerminalCopy& terminal) {
  const auto bytes = simulator::ReadTextFile(terminal.registryFile);
  if (!bytes) return terminal.registryFile.string() + ": cannot be read";
  auto read = platform::host::ReadRegFile(*bytes);
  if (!read.tree) return terminal.registryFile.string() + ":" + std::to_string(read.line) + ": " + read.problem;
  terminal.registry = std::move(read.tree);
  return {};
}

}  // namespace

std::string ReadTerminal(const fs::path& root, const fs::path& registryFile, TerminalCopy& terminal) {
  terminal.root = root;
  terminal.deviceFile = root / "device.txt";
  terminal.registryFile = registryFile.empty() ? root / "registry.reg" : registryFile;
  const fs::path tables = root / "tables.txt";
  terminal.hasDevice = Exists(terminal.deviceFile);
  terminal.hasTables = Exists(tables);
  terminal.hasRegistry = Exists(terminal.registryFile);

  std::string problem;
  if (terminal.hasRegistry) problem = ReadRegistry(terminal);
  if (problem.empty() && terminal.hasDevice) problem = ReadDevice(terminal);
  if (problem.empty() && terminal.hasTables) problem = terminal.tables.Read(tables);
  return problem;
}

platform::host::Environment EnvironmentOf(const TerminalCopy& terminal) {
  platform::host::Environment environment;
  environment.root = terminal.root;
  environment.registry = terminal.registry;
  environment.tableValue = [&terminal](const WideString& server, const WideString& table, const WideString& key) {
    simulator::LineLog nobody(false);
    return simulator::AnswerTableValue(terminal.tables, nobody, server, table, key);
  };
  return environment;
}

}  // namespace authoring
