// kelagent: a simulated terminal's device as an agent on the network.
#include "base/string_table.h"
#include "base/utf8.h"
#include "simulator/demonstration.h"
#include "simulator/disk_sync.h"
#include "simulator/ending_signals.h"
#include "simulator/instance_lock.h"
#include "snmp/responder.h"
#include "tools/command.h"

#include <cstdlib>
#include <iostream>
#include <optional>

namespace tools {
namespace {

struct Options {
  std::string root;
  std::string listen = "127.0.0.1:1161";
  std::string credentials;
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

std::string ReadCredentials(const Options& options, snmp::Credentials& credentials) {
  const auto variable = [](const char* name) -> const char* { return std::getenv(name); };
  std::string problem = snmp::ReadCredentials(options.credentials, variable, credentials);
  if (problem.empty() && credentials.IsEmpty()) {
    problem = "nobody may ask yet: set KEL_SNMP_COMMUNITY to a word of yours, or name a file by --credentials";
  }
  return problem;
}

void TellUnserved(const std::vector<WideString>& oids) {
  for (const WideString& oid : oids) {
    std::cerr << "kelagent: device.txt: " << base::ToUtf8(oid) << " is no OID that SNMP can name: it is not served\n";
  }
}

int Serve(const std::filesystem::path& root, const snmp::Endpoint& endpoint, snmp::Credentials credentials) {
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
  const snmp::DeviceMib mib(*opened.store);
  TellUnserved(mib.Unserved());

  const simulator::EndingSignals signals;
  snmp::RequestHandler handler(*opened.store, mib);
  std::string problem;
  const auto responder = snmp::OpenResponder(endpoint, std::move(credentials), handler, problem);
  if (!responder) return Complain(problem);
  std::cout << "kelagent: " << root.string() << " answers at " << ToText(responder->Where()) << std::endl;
  responder->Serve(signals.Descriptor());
  return kFine;
}

int Run(const Options& options) {
  const auto endpoint = snmp::ParseEndpoint(options.listen);
  if (!endpoint) return Complain("--listen takes ADDRESS:PORT; an IPv6 address stands in brackets");
  snmp::Credentials credentials;
  std::string problem = ReadCredentials(options, credentials);
  if (!problem.empty()) return Complain(problem);
  const std::filesystem::path root =
      options.root.empty() ? Demonstration(problem) : std::filesystem::path(options.root);
  return problem.empty() ? Serve(root, *endpoint, std::move(credentials)) : Complain(problem);
}

void Describe(Command command, Options& options) {
  command.Text("--root", options.root,
               "the terminal's storage; default: the demonstration terminal, copied on first use to "
               "$XDG_STATE_HOME/kelterm/terminal");
  command.Text("--listen", options.listen, "ADDRESS:PORT to answer at; default 127.0.0.1:1161");
  command.Text("--credentials", options.credentials,
               "a file that only its owner may read, with lines such as \"community = WORD\" (may read) and "
               "\"write-community = WORD\" (may set)");
  command.Do([&options] { return Run(options); });
}

}  // namespace
}  // namespace tools

int main(int count, char** arguments) {
  tools::Options options;
  const tools::Program program{
      "kelagent",
      "A simulated terminal that answers SNMP (version 2c) with the settings of its device.txt.",
      "kelagent of KelLocalCfg Version 1.0",
      "Environment: KEL_SNMP_COMMUNITY and KEL_SNMP_WRITE_COMMUNITY count in place of the file's words.\n"
      "It runs until Ctrl-C, and says on standard output where it answers.\n"
      "Exit status: 0 it was ended, 2 unusable arguments, credentials, storage or address.\n"
      "Example: KEL_SNMP_COMMUNITY=look kelagent --root examples/small",
      {},
      [&options](tools::Command command) { tools::Describe(command, options); }};
  return tools::RunCommandLine(program, {arguments + 1, arguments + count}, std::cout, std::cerr);
}
