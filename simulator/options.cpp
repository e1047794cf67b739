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

std::string SetReset(Options& options, const std::string&) {
  options.reset = true;
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
  int hasArgument;
  std::string (*set)(Options& options, const std::string& argument);
} kOptions[] = {
    {"root", required_argument, SetRoot},       {"screen", required_argument, SetScreen},
    {"display", required_argument, SetDisplay}, {"script", required_argument, SetScript},
    {"log", required_argument, SetLog},         {"reset", no_argument, SetReset},
    {"version", no_argument, SetVersion},       {"help", no_argument, SetHelp},
};
constexpr int kOptionCount = static_cast<int>(std::size(kOptions));

std::string UnusableOption(char code, const std::string& argument) {
  if (code == ':') return argument + " needs an argument; see kelterm --help";
  return "there is no option " + argument + "; see kelterm --help";
}

}  // namespace

const char* const kUsage =
    "kelterm [options] [SOURCE...]\n"
    "  SOURCE               the utility's command line: nothing, a HKEY_LOCAL_MACHINE path, or the path of an XML "
    "file\n"
    "  --root DIR           the terminal's storage; default: the demonstration terminal, copied on first use to\n"
    "                       $XDG_STATE_HOME/kelterm/terminal\n"
    "  --screen WxH         default 240x320; 160x160 is the small layout\n"
    "  --display text|none  default text\n"
    "  --script FILE        play a UI script (\"-\" is standard input); implies --display none\n"
    "  --log FILE           debug output; default: nowhere\n"
    "  --reset              put the demonstration terminal back to its first state, then start\n"
    "  --version            the program's name and version\n";

std::optional<Options> ParseOptions(int count, char* const* arguments, std::string& problem) {
  struct option known[kOptionCount + 1] = {};
  for (int i = 0; i < kOptionCount; ++i) known[i] = {kOptions[i].name, kOptions[i].hasArgument, nullptr, i};
  Options options;
  optind = 0;  // from the first argument again, however often this is called
  for (int code = 0; problem.empty();) {
    code = getopt_long(count, arguments, ":", known, nullptr);
    if (code == -1) break;
    const bool isKnown = code >= 0 && code < kOptionCount;
    problem = isKnown ? kOptions[code].set(options, optarg == nullptr ? "" : optarg)
                      : UnusableOption(static_cast<char>(code), arguments[optind - 1]);
  }
  if (problem.empty() && options.reset && !options.root.empty()) {
    problem = "--reset is for the demonstration terminal and cannot go with --root";
  }
  if (!problem.empty()) return std::nullopt;
  for (int i = optind; i < count; ++i) {
    if (i > optind) options.commandLine += u" ";
    options.commandLine += base::FromUtf8(arguments[i]);
  }
  return options;
}

}  // namespace simulator
