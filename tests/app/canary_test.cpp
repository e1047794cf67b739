// No secret of the demonstration terminal is shown or written where it does not belong, whatever screen script is
// played. Random keys look for the same.
#include "tests/app/canary.h"
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include "app/entry.h"
#include "base/utf8.h"
#include "simulator/instance_lock.h"
#include "simulator/options.h"
#include "simulator/script_display.h"
#include "simulator/storage.h"
#include "simulator/terminal.h"
#include "simulator/text_file.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tests {
namespace {

namespace fs = std::filesystem;

// The scripts' display, which is looked at whenever the program waits or pauses.
class WatchedDisplay final : public platform::host::Display {
 public:
  explicit WatchedDisplay(platform::host::Display& display) : display_(display) {}

  std::optional<platform::host::KeyStroke> NextKey() override {
    Look();
    return display_.NextKey();
  }
  void Wake() override { display_.Wake(); }
  void Pause(std::chrono::milliseconds duration) override {
    Look();
    display_.Pause(duration);
  }
  void Beep() override {}
  void ComeForward() override {}

  int looks = 0;
  std::string seen;  // the first secret on the screen

 private:
  void Look() {
    ++looks;
    if (seen.empty()) seen = SecretOnScreen();
  }

  platform::host::Display& display_;
};

// What follows "# WORD: " in a script's comments.
std::string Comment(const std::string& script, const std::string& word) {
  const std::string start = "# " + word + ": ";
  const std::size_t at = script.find(start);
  if (at == std::string::npos) return {};
  return script.substr(at + start.size(), script.find('\n', at) - at - start.size());
}

std::optional<simulator::Options> OptionsOf(const std::string& script) {
  std::istringstream words("kelterm " + Comment(script, "options"));
  std::vector<std::string> arguments;
  for (std::string word; words >> word;) arguments.push_back(word);
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  std::string problem;
  return simulator::ParseOptions(static_cast<int>(pointers.size()), pointers.data(), problem);
}

// How often the screen was looked at.
int PlayLookingForSecrets(const fs::path& root, const std::string& name, const std::string& text) {
  const auto options = OptionsOf(text);
  if (!options) return 0;
  simulator::LineLog effects(false);
  // The file has every debug line; those in memory go to the script that asks for them.
  simulator::DebugLog debug(true);
  const TemporaryRoot logs;
  EXPECT_TRUE(debug.WriteTo(logs.Path() / "log"));
  simulator::ScriptDisplay player(simulator::ParseScript(text), name, effects, debug, [](const std::string&) {});
  WatchedDisplay display(player);
  simulator::Storage storage;
  EXPECT_EQ("", simulator::OpenStorage(root, storage));
  simulator::InstanceLock instance(root);
  simulator::Terminal terminal({storage, instance, effects, debug, display}, options->screenWidthPx,
                               options->screenHeightPx, [](WideStringView commandLine) {
                                 app::RunUtility(commandLine);
                                 return 0;
                               });
  terminal.Run(options->commandLine);
  player.PlayRest();
  EXPECT_EQ("", display.seen) << name;
  const std::string log = logs.Read("log");
  EXPECT_FALSE(HasSecret(base::FromUtf8(log))) << name << "\n" << log;
  return display.looks;
}

TEST(Canary, NoScreenScriptShowsASecretOutsideOfItsOwnField) {
  int scripts = 0;
  int looks = 0;
  for (const auto& entry : fs::directory_iterator(KEL_SCREEN_SCRIPTS)) {
    if (entry.path().extension() != ".script") continue;
    const std::string text = simulator::ReadTextFile(entry.path()).value_or("");
    if (Comment(text, "root") != "examples/terminal") continue;
    const TemporaryRoot root;
    fs::copy(KEL_DEMONSTRATION, root.Path(), fs::copy_options::recursive);
    ASSERT_EQ("", PlantSecrets(root.Path()));
    ++scripts;
    looks += PlayLookingForSecrets(root.Path(), entry.path().filename().string(), text);
  }
  EXPECT_LT(30, scripts);
  EXPECT_LT(500, looks);
}

}  // namespace
}  // namespace tests
