// The text display as authors of configurations have it: Ctrl-W explains the selected line, and a terminal that is
// watched starts again when its storage changes, at the place in the menus where the person is.
#pragma once

#include "platform/host/display.h"
#include "simulator/advisor.h"
#include "simulator/storage_watch.h"
#include "simulator/text_panel.h"
#include "simulator/way_back.h"

#include <functional>
#include <optional>
#include <string>

namespace simulator {

class AuthorsDisplay final : public platform::host::Display {
 public:
  struct Parts {
    Display& screen;  // it shows the panel, too
    TextPanel& panel;
    Advisor* advisor = nullptr;     // null: there is none
    StorageWatch* watch = nullptr;  // null: changes do not count; else there is an advisor
    // The utility that runs; null: none.
    std::function<const app::CKelConfigApp*()> application;
    // Whether the device's file says something else than the device: not what the terminal itself wrote.
    std::function<bool()> deviceFileDiffers;
    std::string source;  // the utility's command line
  };
  explicit AuthorsDisplay(Parts parts) : parts_(std::move(parts)) {}

  // Before the utility is there: waits, with what is wrong on the screen, until the storage can be used. False: the
  // person has left by Esc. `afterAChange`: what is there now has failed.
  bool AwaitUsable(bool afterAChange);

  // Whether it is ending the utility only to start it again.
  bool IsStartingAgain() const { return isStartingAgain_; }

  std::optional<platform::host::KeyStroke> NextKey() override;
  void Wake() override { parts_.screen.Wake(); }
  void Pause(std::chrono::milliseconds duration) override { parts_.screen.Pause(duration); }
  void Beep() override { parts_.screen.Beep(); }
  void ComeForward() override { parts_.screen.ComeForward(); }

 private:
  bool HasChanged();
  void TakeAnswer();
  void StartAgain();
  void AskWhy();
  bool GoesBack(std::optional<platform::host::KeyStroke>& key);

  const Parts parts_;
  bool isStartingAgain_ = false;
  std::optional<bool> isUsable_;  // as the last check had it
  std::optional<MenuPlace> place_;
  std::optional<WayBack> wayBack_;
};

}  // namespace simulator
