// kelagent: a simulated terminal's device as an agent on the network.
#include "base/string_table.h"
#include "simulator/demonstration.h"
#include "simulator/disk_sync.h"
#include "simulator/ending_signals.h"
#include "simulator/instance_lock.h"
#include "snmp/agent.h"
#include "tools/command.h"
#include "tools/kelagent_record.h"
#include "version.h"

#include <cstdlib>
#include <iostream>

namespace tools {
namespace {

struct Options {
  std::string root;
  std::string listen = snmp::kUsualPlace;
  std::string credentials;
  RecordOptions record;
};

int Complain(const std::string& problem) {
  std::cerr << "kelagent: " << problem << '\n';
  return kUnusable;
}

// The demonstration terminal's folder, put in place; empty when `problem` says why not.
std::filesystem::path Demonstration(std::string& problem) {
  const auto root = simulator::DemonstrationRoot();
  problem = root.empty() ? "neither XDG_STATE_HOME nor HOME is set; name a storage by --root"
                         : simulator::ProvideDemonstration(simulator::DemonstrationOriginal(), root);
  return root;
}

int Serve(const std::filesystem::path& root, const snmp::AgentPlan& plan) {
  simulator::InstanceLock instance(root);
  if (!instance.Problem().empty()) return Complain(instance.Problem());
  if (instance.Other() != 0) {
    return Complain(root.string() + ": this terminal runs already, as process " + std::to_string(instance.Other()));
  }
  // Who starts the utility on this storage finds it running.
  instance.Publish({WideString(LoadText(TextId::kConfigurationUtility))});
  const auto opened = simulator::DeviceStore::Open(root / "device.txt");
  if (!opened.store) return Complain(opened.problem);
  opened.store->SyncWith(simulator::SyncToDisk);

  const simulator::EndingSignals signals;
  std::string problem;
  const auto agent = snmp::Agent::Open(*opened.store, plan, problem);
  if (!agent) return Complain(problem);
  for (const std::string& remark : agent->Remarks()) std::cerr << "kelagent: " << remark << '\n';
  std::cout << "kelagent: " << root.string() << " answers at " << ToText(agent->Where()) << std::endl;
  agent->Serve(signals.Descriptor());
  return kFine;
}

int Run(Options& options) {
  if (!options.record.device.empty() || !options.record.output.empty()) {
    options.record.credentials = options.credentials;
    return RecordDevice(options.record);
  }
  const auto variable = [](const char* name) -> const char* { return std::getenv(name); };
  snmp::AgentPlan plan;
  std::string problem = PlanAgent("--listen", options.listen, options.credentials, variable, plan);
  if (!problem.empty()) return Complain(problem);
  const std::filesystem::path root =
      options.root.empty() ? Demonstration(problem) : std::filesystem::path(options.root);
  if (!problem.empty()) return Complain(problem);
  plan.engineFile = snmp::EngineFileOf(root, simulator::StateFolder());
  plan.sync = simulator::SyncToDisk;
  return Serve(root, plan);
}

void Describe(Command command, Options& options) {
  command.Text("--root", options.root,
               "the terminal's storage; default: the demonstration terminal, copied on first use to "
               "$XDG_STATE_HOME/kelterm/terminal");
  command.Text("--listen", options.listen, "ADDRESS:PORT to answer at; default 127.0.0.1:1161");
  command.Text("--credentials", options.credentials,
               "a file that only its owner may read, with \"community = WORD\" (may read), \"write-community = WORD\" "
               "(may set) and users of version 3, as kelagent(1) says");
  RecordOptions& record = options.record;
  command.Text("--record", record.device,
               "snmp://[USER@]HOST[:PORT]: read that device into a file for a simulated terminal, and end; the "
               "credentials are those to ask with, and what they lack is asked for");
  command.Text("-o,--output", record.output,
               "the file to write, or a folder for a device.txt; only its owner may read it");
  command.Text("--config", record.config,
               "record the settings that a configuration names: a storage folder, an XML file or a registry file");
  command.Text("--walk", record.walk, "record all below an OID, too");
  command.Flag("--secrets", record.secrets, "record passwords and keys (Password, Hex, Hex32, lines of stars) as well");
  command.Flag("--truth-values", record.truthValues, "a Bool of the device is 1 or 2 (TruthValue), not 1 or 0");
  command.Flag("--force", record.force, "replace the file if it is there already");
  for (const char* serving : {"--root", "--listen"}) command.Exclude(serving, "--record");
  for (const char* own : {"--output", "--config", "--walk", "--secrets", "--truth-values", "--force"}) {
    command.Need(own, "--record");
  }
  command.Do([&options] { return Run(options); });
}

}  // namespace
}  // namespace tools

int main(int count, char** arguments) {
  tools::Options options;
  const tools::Program program{
      "kelagent",
      "A simulated terminal that answers SNMP (versions 2c and 3) with the settings of its device.txt.",
      "kelagent of KelLocalCfg Version " KEL_VERSION,
      "Environment: KEL_SNMP_COMMUNITY and KEL_SNMP_WRITE_COMMUNITY count in place of the file's words, and of one "
      "user, KEL_SNMP_USER, KEL_SNMP_AUTH_PROTOCOL, KEL_SNMP_AUTH_PASSWORD, KEL_SNMP_PRIV_PROTOCOL, "
      "KEL_SNMP_PRIV_PASSWORD, KEL_SNMP_LEVEL and KEL_SNMP_WRITE.\n"
      "It runs until Ctrl-C, and says on standard output where it answers.\n"
      "--record lists on standard error what could not be read.\n"
      "Exit status: 0 it was ended, or all is recorded, 1 recorded, but some of it could not be read, 2 unusable "
      "arguments, credentials, storage, address, device or file: nothing is recorded.\n"
      "Example: KEL_SNMP_COMMUNITY=look kelagent --root examples/small\n"
      "Example: kelagent --record snmp://admin@10.0.0.5 --config my-terminal -o twin/device.txt",
      {},
      [&options](tools::Command command) { tools::Describe(command, options); }};
  return tools::RunCommandLine(program, {arguments + 1, arguments + count}, std::cout, std::cerr);
}
