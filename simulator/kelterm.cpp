// kelterm: the utility inside a simulated terminal.
#include "app/entry.h"
#include "app/kel_config_app.h"
#include "base/utf8.h"
#include "simulator/authors_display.h"
#include "simulator/demonstration.h"
#include "simulator/disk_sync.h"
#include "simulator/folder_watch.h"
#include "simulator/instance_lock.h"
#include "simulator/network_device.h"
#include "simulator/options.h"
#include "simulator/script.h"
#include "simulator/script_display.h"
#include "simulator/storage.h"
#include "simulator/terminal.h"
#include "simulator/text_display.h"
#include "simulator/text_file.h"
#include "simulator/usage.h"
#include "snmp/agent.h"
#include "version.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <utility>

namespace simulator {
namespace {

enum Status { kRan = 0, kScriptFailed = 1, kUnusable = 2 };

int Complain(Status status, const std::string& problem) {
  std::cerr << "kelterm: " << problem << "\n";
  return status;
}

// The demonstration terminal's folder, put in place; empty when `problem` says why not.
std::filesystem::path Demonstration(bool reset, std::string& problem) {
  const auto root = DemonstrationRoot();
  if (root.empty()) {
    problem = "neither XDG_STATE_HOME nor HOME is set; name a storage by --root";
    return {};
  }
  problem = ProvideDemonstration(DemonstrationOriginal(), root);
  if (!problem.empty() || !reset) return root;
  const InstanceLock lock(root);
  problem = lock.Other() != 0 ? "the demonstration terminal is running; leave it before --reset" : lock.Problem();
  if (problem.empty()) problem = ResetDemonstration(DemonstrationOriginal(), root);
  return root;
}

// Scripts may come through a pipe as well.
std::optional<std::string> ReadScript(const std::string& name) {
  const auto readAll = [](std::istream& input) {
    return std::string(std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>());
  };
  if (name.empty()) return std::string();
  if (name == "-") return readAll(std::cin);
  std::ifstream file(name, std::ios::binary);
  if (!file || std::filesystem::is_directory(name)) return std::nullopt;
  return readAll(file);
}

// What is to be said when the display no longer has the screen.
struct Outcome {
  app::RunReport report;
  std::string remark;
};

// What only people at a text display have.
class ForPeople {
 public:
  ForPeople(const Options& options, const std::filesystem::path& root, DeviceScreen screen, Storage& storage,
            const app::CKelConfigApp* const& running)
      : text_(
            std::move(screen), [&running] { return running != nullptr && running->Inserts(); }, panel_) {
    const auto wake = [this] { text_.Wake(); };
    const std::string source = base::ToUtf8(options.commandLine);
    if (const auto kelconf = ProgramBeside("kelconf", "tools"); !kelconf.empty()) {
      advisor_.emplace(kelconf, root, source, wake);
    }
    if (options.watch && advisor_) watch_.emplace(root, wake);
    if (options.watch && !advisor_) problem_ = "--watch needs kelconf beside this program";
    if (watch_) problem_ = watch_->Problem();
    authors_.emplace(AuthorsDisplay::Parts{
        text_, panel_, advisor_ ? &*advisor_ : nullptr, watch_ ? &*watch_ : nullptr, [&running] { return running; },
        [&storage] { return !storage.device || !storage.device->IsAsInFile(); }, source});
  }

  std::string Start() { return problem_.empty() ? text_.Start() : problem_; }
  AuthorsDisplay& Display() { return *authors_; }
  void Tell(WideString title, const std::string& text) { panel_.Open(std::move(title), text + "\n"); }

 private:
  TextPanel panel_;
  TextDisplay text_;
  std::optional<KelconfAdvisor> advisor_;
  std::optional<FolderWatch> watch_;
  std::optional<AuthorsDisplay> authors_;
  std::string problem_;
};

// Empty, or why nobody on the network can be answered.
std::string PlanAgent(const Options& options, std::optional<snmp::AgentPlan>& plan) {
  if (!options.agent) return {};
  const auto variable = [](const char* name) -> const char* { return std::getenv(name); };
  const std::string place = options.agent->empty() ? snmp::kUsualPlace : *options.agent;
  return snmp::PlanAgent("--agent", place, options.credentials, variable, plan.emplace());
}

// The same. From then on the network and the person at the terminal have the same values.
std::string ServeNetwork(DeviceStore& store, const std::filesystem::path& root, snmp::AgentPlan plan,
                         std::optional<snmp::AgentThread>& serving) {
  store.SyncWith(SyncToDisk);
  plan.engineFile = snmp::EngineFileOf(root, StateFolder());
  plan.sync = SyncToDisk;
  std::string problem;
  auto agent = snmp::Agent::Open(store, plan, problem);
  if (!agent) return problem;
  for (const std::string& remark : agent->Remarks()) std::cerr << "kelterm: " << remark << '\n';
  std::cerr << "kelterm: " << root.string() << " answers at " << ToText(agent->Where()) << std::endl;
  serving.emplace(std::move(agent));
  return {};
}

int Run(const Options& options, Outcome& outcome) {
  std::string problem;
  const auto scriptText = ReadScript(options.script);
  if (!scriptText) return Complain(kUnusable, options.script + ": cannot be read");
  const std::string scriptName = options.script == "-" ? "standard input" : options.script;
  Script script = ParseScript(*scriptText);
  if (script.brokenLine != 0) {
    return Complain(kUnusable, scriptName + ":" + std::to_string(script.brokenLine) + ": " + script.problem);
  }

  std::optional<snmp::AgentPlan> plan;
  problem = PlanAgent(options, plan);
  if (!problem.empty()) return Complain(kUnusable, problem);

  std::unique_ptr<NetworkDevice> network;
  if (!options.device.empty()) network = NetworkDevice::Connect(options, problem);
  if (!problem.empty()) return Complain(kUnusable, problem);

  const auto root = options.root.empty() ? Demonstration(options.reset, problem) : options.root;
  if (!problem.empty()) return Complain(kUnusable, problem);

  InstanceLock instance(root, network ? network->Place() : "");
  if (!instance.Problem().empty()) return Complain(kUnusable, instance.Problem());
  const app::CKelConfigApp* running = nullptr;
  Storage storage;
  LineLog effects(!options.HasTextDisplay());
  DebugLog debug(!options.HasTextDisplay());
  ScriptDisplay player(std::move(script), scriptName, effects, debug,
                       [](const std::string& printed) { std::cout << printed << std::flush; });
  std::optional<ForPeople> people;
  DeviceScreen screen{options.screenWidthPx, options.screenHeightPx};
  if (network) screen.name = base::FromUtf8(network->Name());
  if (options.HasTextDisplay()) people.emplace(options, root, std::move(screen), storage, running);
  platform::host::Display& display = people ? static_cast<platform::host::Display&>(people->Display()) : player;
  const auto wait = [&display](int milliseconds) { display.Pause(std::chrono::milliseconds(milliseconds)); };
  const auto open = [&] {
    Storage fresh;
    std::string refused = network ? OpenFiles(root, fresh) : OpenStorage(root, fresh);
    if (refused.empty()) storage = std::move(fresh);
    if (refused.empty() && instance.Other() != 0 && storage.device) storage.device->ShareFile();
    return refused;
  };

  if (!options.watch) problem = open();
  if (!problem.empty()) return Complain(kUnusable, problem);
  if (!options.log.empty() && !debug.WriteTo(options.log)) {
    return Complain(kUnusable, options.log + ": cannot be written");
  }
  std::optional<snmp::AgentThread> serving;
  if (plan && instance.Other() == 0) problem = ServeNetwork(*storage.device, root, *plan, serving);
  if (people && problem.empty()) problem = people->Start();
  if (!problem.empty()) return Complain(kUnusable, problem);

  const auto watcher = [&running](const app::CKelConfigApp* application) { running = application; };
  const auto utility = [&outcome, &watcher](WideStringView commandLine) {
    outcome.report = app::RunUtility(commandLine, watcher);
    return 0;
  };
  Terminal::Parts parts{storage, instance, effects, debug, display};
  parts.deviceWait = wait;
  // The person is told where the screen is, else in the end. Whoever only starts the utility again means no boot.
  const auto restart = [&] {
    if (people && people->Display().IsStartingAgain()) return;
    std::string told = network->Restart();
    if (people) people->Tell(u"Warm boot", told);
    if (!people) outcome.remark = std::move(told);
  };
  if (network) {
    network->TellDoubts([&](const std::string& told) {
      if (people) people->Tell(u"Not known", told);
      if (!people) outcome.remark = told;
    });
  }
  if (network) parts.elsewhere = {[&network] { return network->Device(); }, network->Address(), restart};
  // What cannot be opened now changes once more, and stays as it was until then.
  if (options.watch) parts.beforeStartingAgain = open;
  Terminal terminal(std::move(parts), options.screenWidthPx, options.screenHeightPx, utility);
  for (bool again = false; !options.watch || people->Display().AwaitUsable(again); again = true) {
    if (options.watch && !open().empty()) continue;
    terminal.Run(options.commandLine);
    if (!options.watch || outcome.report.isLoaded || terminal.GaveWay()) break;
  }
  if (terminal.GaveWay()) {
    outcome.remark = "this terminal already runs, as process " + std::to_string(instance.Other()) + "; it was rung";
  }
  player.PlayRest();
  return player.Player().Failure().empty() ? kRan : Complain(kScriptFailed, player.Player().Failure());
}

// Says why a configuration was not taken, or the terminal not started.
int Conclude(int status, const Outcome& outcome) {
  if (!outcome.remark.empty()) Complain(kRan, outcome.remark);
  for (const config::SourceRefusal& refusal : outcome.report.refusals) {
    Complain(kUnusable, base::ToUtf8(refusal.Line()));
  }
  return status == kRan && !outcome.report.isLoaded ? kUnusable : status;
}

int Main(int count, char** arguments) {
  std::setlocale(LC_ALL, "");
  std::string problem;
  const auto options = ParseOptions(count, arguments, problem);
  if (!options) return Complain(kUnusable, problem);
  if (options->version) {
    std::puts("KelLocalCfg Version " KEL_VERSION);
    return kRan;
  }
  if (options->help) {
    std::fputs(kUsage, stdout);
    return kRan;
  }
  Outcome outcome;
  const int status = Run(*options, outcome);
  return Conclude(status, outcome);
}

}  // namespace
}  // namespace simulator

int main(int count, char** arguments) { return simulator::Main(count, arguments); }
