#include "app/entry.h"

#include "app/kel_config_app.h"
#include "base/string_table.h"
#include "platform/window.h"

namespace app {
namespace {

constexpr std::size_t kLongestTitle = 260;

platform::WindowHandle RunningInstance() {
  for (const platform::WindowHandle window : platform::TopLevelWindows()) {
    const WideString title = platform::TextOf(window).substr(0, kLongestTitle);
    if (title == LoadText(TextId::kConfigurationUtility)) return window;
  }
  return nullptr;
}

}  // namespace

RunReport RunUtility(WideStringView commandLine, const Watcher& watcher, rules::RuleListener* listener) {
  if (const platform::WindowHandle other = RunningInstance()) {
    platform::BringToForeground(other);
    return {};
  }
  platform::InitDateTimeControls();
  CKelConfigApp application(listener);
  if (watcher) watcher(&application);
  application.Run(commandLine);
  if (watcher) watcher(nullptr);
  return application.Report();
}

}  // namespace app
