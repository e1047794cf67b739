#include "tools/kelagent_record.h"

#include "authoring/named_settings.h"
#include "base/utf8.h"
#include "simulator/disk_sync.h"
#include "simulator/network_device.h"
#include "snmp/recording.h"
#include "snmp/value_codec.h"
#include "tools/command.h"
#include "values/device_access.h"

#include <filesystem>
#include <iostream>
#include <iterator>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace tools {
namespace {

namespace fs = std::filesystem;

void Say(const std::string& line) { std::cerr << "kelagent: " << line << '\n'; }

// --- before anything is asked ---

std::string WhyNotInto(const fs::path& file, bool mayReplace) {
  std::error_code error;
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  if (!fs::is_directory(folder, error)) return folder.string() + ": there is no such folder";
  if (!fs::exists(fs::symlink_status(file, error))) return {};
  if (!fs::is_regular_file(file, error)) return file.string() + ": is no file that can be written";
  return mayReplace ? "" : file.string() + ": is there already; --force replaces it";
}

// Null with an empty `problem`: none is named.
std::unique_ptr<authoring::Configuration> LoadNamed(const std::string& path, std::string& problem) {
  if (path.empty()) return nullptr;
  auto loaded = authoring::Configuration::Load(path);
  problem = std::move(loaded.problem);
  if (loaded.configuration && !loaded.configuration->HasTree()) {
    const authoring::BrokenDocument& broken = loaded.configuration->BrokenDocuments().front();
    problem = broken.position.file + ":" + std::to_string(broken.position.line) + ": " + base::ToUtf8(broken.reason);
  }
  return std::move(loaded.configuration);
}

// The file to write, and what else is not the device's to know.
struct Prepared {
  fs::path file;
  std::unique_ptr<authoring::Configuration> configuration;
  snmp::RecordingOptions recording;
};

std::string Prepare(const RecordOptions& options, Prepared& prepared) {
  if (options.output.empty()) return "--record takes a file by --output";
  if (options.config.empty() && options.walk.empty()) return "--record takes a configuration by --config, or --walk";
  prepared.recording.secrets = options.secrets;
  prepared.recording.truthValues = options.truthValues;
  if (!options.walk.empty()) {
    // Tools print a dot in front.
    const bool hasDot = options.walk.front() == '.';
    prepared.recording.root = snmp::OidOf(base::FromUtf8(options.walk.substr(hasDot ? 1 : 0)));
    if (!prepared.recording.root) return "--walk takes an OID";
  }
  std::error_code error;
  prepared.file = options.output;
  if (fs::is_directory(prepared.file, error)) prepared.file /= "device.txt";
  std::string problem = WhyNotInto(prepared.file, options.force);
  if (problem.empty()) prepared.configuration = LoadNamed(options.config, problem);
  return problem;
}

// --- the device ---

// Which wireless profile the device has in use; empty: none, as far as it says.
WideString ActiveProfileOf(snmp::Inquiry& inquiry) {
  const auto oid = snmp::OidOf(values::ActiveProfile().oid);
  const snmp::Reading reading = inquiry.Get({{*oid}}).front();
  return (reading.code == platform::kOk ? snmp::ReceivedText(reading.value) : std::nullopt).value_or(u"");
}

std::vector<snmp::Sought> SoughtFrom(snmp::Inquiry& inquiry, const authoring::Configuration& configuration) {
  std::vector<snmp::Sought> sought;
  for (authoring::NamedSetting& named : authoring::NamedSettings(configuration, ActiveProfileOf(inquiry))) {
    sought.push_back({std::move(named.oid), std::move(named.type), named.isSecret, named.isExpected});
  }
  return sought;
}

// --- the file ---

std::string TextOf(const snmp::Recording& recording, const std::string& place) {
  std::string text = "# The settings of " + place + ", recorded by kelagent: OID, type, value; tabs between them.\n";
  if (!recording.leftOut.empty())
    text += "# Secrets that were left out, without the # in front and with a value of yours:\n";
  for (const simulator::DeviceLine& line : recording.leftOut) text += "#" + FormatDeviceLine(line) + "\n";
  for (const simulator::DeviceLine& line : recording.lines) text += FormatDeviceLine(line) + "\n";
  return text;
}

// Empty, or why there is no such file.
std::string Write(const fs::path& file, const std::string& text, bool mayReplace) {
  const std::string problem = WhyNotInto(file, mayReplace);
  if (!problem.empty()) return problem;
  const auto rights = simulator::FileRights::kOwners;
  return simulator::ReplaceTextFile(file, text, simulator::SyncToDisk, rights) ? ""
                                                                               : file.string() + ": cannot be written";
}

int Conclude(const snmp::Recording& recording, const fs::path& file) {
  for (const std::string& remark : recording.remarks) Say(remark);
  if (!recording.leftOut.empty()) {
    Say(std::to_string(recording.leftOut.size()) + " secrets were left out; --secrets records them");
  }
  for (const std::string& missing : recording.missing) Say(missing);
  std::cout << "kelagent: " << file.string() << " has " << recording.lines.size() << " values of the device";
  if (!recording.missing.empty()) std::cout << "; " << recording.missing.size() << " could not be read";
  std::cout << '\n';
  return recording.missing.empty() ? kFine : kFound;
}

}  // namespace

int RecordDevice(const RecordOptions& options) {
  Prepared prepared;
  std::string problem = Prepare(options, prepared);
  std::unique_ptr<simulator::NetworkDevice> device;
  if (problem.empty()) {
    simulator::Options asks;
    asks.device = options.device;
    asks.credentials = options.credentials;
    device = simulator::NetworkDevice::Connect(asks, problem);
  }
  snmp::Recording recording;
  if (problem.empty()) {
    std::vector<snmp::Sought> sought;
    if (prepared.configuration) sought = SoughtFrom(device->Inquiry(), *prepared.configuration);
    recording = Record(device->Inquiry(), sought, prepared.recording);
    if (recording.isBroken) problem = "no answer from " + device->Name() + " any more: nothing was recorded";
  }
  if (problem.empty()) problem = Write(prepared.file, TextOf(recording, device->Place()), options.force);
  if (problem.empty()) return Conclude(recording, prepared.file);
  Say(problem);
  return kUnusable;
}

}  // namespace tools
