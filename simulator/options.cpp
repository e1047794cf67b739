#include "simulator/options.h"

#include "base/utf8.h"

#include <getopt.h>

#include <charconv>
#include <string_view>
#include <system_error>

namespace simulator {
namespace {

constexpr int kMinScreenPx = 100;
constexpr int kMaxScreenPx = 2000;

bool ParseSize(std::string_view text, int& size) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
  return error == std::errc() && end == text.data() + text.size() && size >= kMinScreenPx && size <= kMaxScreenPx;
}

// Each takes the option's argument and answers what is wrong with it.
std::string SetScreen(Options& options, const std::string& text) {
  const std::size_t by = text.find('x');
  if (by != std::string::npos && ParseSize(text.substr(0, by), options.screenWidthPx) &&
      ParseSize(text.substr(by + 1), options.screenHeightPx)) {
    return {};
  }
  return "--screen takes WIDTHxHEIGHT in pixels, each from 100 to 2000";
}

std::string SetDisplay(Options& options, const std::string& text) {
  if (text != "text" && text != "none") return "--display is text or none";
  options.display = text == "text" ? Options::DisplayKind::kText : Options::DisplayKind::kNone;
  return {};
}

std::string SetRoot(Options& options, const std::string& text) {
  options.root = text;
  return text.empty() ? "--root takes a folder" : "";
}

std::string SetScript(Options& options, const std::string& text) {
  options.script = text;
  return text.empty() ? "--script takes a file" : "";
}

std::string SetLog(Options& options, const std::string& text) {
  options.log = text;
  return text.empty() ? "--log takes a file" : "";
}

std::string SetAgent(Options& options, const std::string& text) {
  options.agent = text;
  return {};
}

std::string SetCredentials(Options& options, const std::string& text) {
  options.credentials = text;
  return text.empty() ? "--credentials takes a file" : "";
}

std::string SetDevice(Options& options, const std::string& text) {
  options.device = text;
  return text.empty() ? "--device takes snmp://[USER@]HOST[:PORT]" : "";
}

std::string SetRestartOid(Options& options, const std::string& text) {
  options.restartOid = text;
  return text.empty() ? "--restart-oid takes an OID" : "";
}

std::string SetTruthValues(Options& options, const std::string&) {
  options.truthValues = true;
  return {};
}

std::string SetReset(Options& options, const std::string&) {
  options.reset = true;
  return {};
}

std::string SetWatch(Options& options, const std::string&) {
  options.watch = true;
  return {};
}

std::string SetVersion(Options& options, const std::string&) {
  options.version = true;
  return {};
}

std::string SetHelp(Options& options, const std::string&) {
  options.help = true;
  return {};
}

const struct {
  const char* name;
  char letter;  // its short form; 0: none
  int hasArgument;
  std::string (*set)(Options& options, const std::string& argument);
} kOptions[] = {
    {"root", 0, required_argument, SetRoot},
    {"screen", 0, required_argument, SetScreen},
    {"display", 0, required_argument, SetDisplay},
    {"script", 0, required_argument, SetScript},
    {"log", 0, required_argument, SetLog},
    {"reset", 0, no_argument, SetReset},
    {"watch", 0, no_argument, SetWatch},
    {"agent", 0, optional_argument, SetAgent},
    {"device", 0, required_argument, SetDevice},
    {"credentials", 0, required_argument, SetCredentials},
    {"restart-oid", 0, required_argument, SetRestartOid},
    {"truth-values", 0, no_argument, SetTruthValues},
    {"version", 0, no_argument, SetVersion},
    {"help", 'h', no_argument, SetHelp},
};
constexpr int kOptionCount = static_cast<int>(std::size(kOptions));

// Codes of getopt_long: the option's place, or its letter.
int PlaceOf(int code) {
  for (int i = 0; i < kOptionCount; ++i) {
    if (code == i || (kOptions[i].letter != 0 && code == kOptions[i].letter)) return i;
  }
  return -1;
}

// What getopt_long stumbled over: a letter, or the argument that it was last at.
std::string UnusableOption(int code, const char* lastArgument) {
  constexpr int kFirstLetter = ' ';
  const bool isLetter = code == '?' && optopt > kFirstLetter;
  const std::string argument = isLetter ? std::string("-") + static_cast<char>(optopt) : lastArgument;
  if (code == ':') return argument + " needs an argument; see kelterm --help";
  return "there is no option " + argument + "; see kelterm --help";
}

}  // namespace

std::optional<Options> ParseOptions(int count, char* const* arguments, std::string& problem) {
  struct option known[kOptionCount + 1] = {};
  for (int i = 0; i < kOptionCount; ++i) known[i] = {kOptions[i].name, kOptions[i].hasArgument, nullptr, i};
  Options options;
  optind = 0;  // from the first argument again, however often this is called
  while (problem.empty()) {
    const int code = getopt_long(count, arguments, ":h", known, nullptr);
    if (code == -1) break;
    const int place = PlaceOf(code);
    problem = place < 0 ? UnusableOption(code, arguments[optind - 1])
                        : kOptions[place].set(options, optarg == nullptr ? "" : optarg);
  }
  if (problem.empty() && options.reset && !options.root.empty()) {
    problem = "--reset is for the demonstration terminal and cannot go with --root";
  }
  if (problem.empty() && options.watch && !options.HasTextDisplay()) {
    problem = "--watch is for people: it cannot go with --script or --display none";
  }
  if (problem.empty() && options.watch && options.agent) {
    problem = "--agent cannot go with --watch: each start would take the device away from those who ask";
  }
  if (problem.empty() && options.agent && !options.device.empty()) {
    problem = "--agent answers for the storage's device, and cannot go with --device";
  }
  if (problem.empty() && !options.credentials.empty() && !options.agent && options.device.empty()) {
    problem = "--credentials goes with --agent or --device";
  }
  if (problem.empty() && options.device.empty() && (!options.restartOid.empty() || options.truthValues)) {
    problem = "--restart-oid and --truth-values go with --device";
  }
  if (!problem.empty()) return std::nullopt;
  for (int i = optind; i < count; ++i) {
    if (i > optind) options.commandLine += u" ";
    options.commandLine += base::FromUtf8(arguments[i]);
  }
  return options;
}

}  // namespace simulator
