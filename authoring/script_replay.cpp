#include "authoring/script_replay.h"

#include "simulator/script_display.h"
#include "simulator/storage.h"
#include "simulator/terminal.h"

#include <fstream>
#include <sstream>

namespace authoring {
namespace {

constexpr std::string_view kDeviceComment = "# device: ";

void GiveDevice(const std::filesystem::path& root, const std::string& script) {
  std::string lines;
  std::istringstream text(script);
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with(kDeviceComment)) lines += "\n" + line.substr(kDeviceComment.size()) + "\n";
  }
  if (!lines.empty()) std::ofstream(root / "device.txt", std::ios::binary | std::ios::app) << lines;
}

}  // namespace

Replay PlayScript(const PlayTerms& terms, const std::string& script, const std::string& name) {
  Replay replay;
  simulator::Script parsed = simulator::ParseScript(script);
  if (parsed.brokenLine != 0) {
    replay.problem = name + ":" + std::to_string(parsed.brokenLine) + ": " + parsed.problem;
    return replay;
  }
  GiveDevice(terms.root, script);
  simulator::Storage storage;
  replay.problem = simulator::OpenStorage(terms.root, storage);
  if (!replay.problem.empty()) return replay;
  simulator::NoOtherTerminals nobody;
  simulator::LineLog effects(true);
  simulator::DebugLog debug(true);
  simulator::ScriptDisplay display(std::move(parsed), name, effects, debug,
                                   [&replay](const std::string& text) { replay.printed += text; });
  simulator::Terminal terminal({storage, nobody, effects, debug, display}, terms.widthPx, terms.heightPx,
                               [](WideStringView commandLine) {
                                 FixSurroundings(platform::host::CurrentEnvironment());
                                 app::RunUtility(commandLine);
                                 return 0;
                               });
  terminal.Run(terms.commandLine);
  display.PlayRest();
  replay.problem = display.Player().Failure();
  return replay;
}

std::string FirstDifference(const std::string& expected, const std::string& printed) {
  std::istringstream left(expected);
  std::istringstream right(printed);
  for (std::size_t number = 1;; ++number) {
    std::string was;
    std::string is;
    const bool hasLeft = static_cast<bool>(std::getline(left, was));
    const bool hasRight = static_cast<bool>(std::getline(right, is));
    if (!hasLeft && !hasRight) return {};
    if (hasLeft == hasRight && was == is) continue;
    return "line " + std::to_string(number) + " was \"" + (hasLeft ? was : "(the end)") + "\", is \"" +
           (hasRight ? is : "(the end)") + "\"";
  }
}

}  // namespace authoring
