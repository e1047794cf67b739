// The utility itself, played in this process on a folder, one key after the other. It runs on a thread of its own that
// stands still whenever it waits for a key; its windows and its model are then looked at from here.
#pragma once

#include "app/entry.h"
#include "platform/host/environment.h"
#include "simulator/debug_log.h"
#include "simulator/dump.h"
#include "simulator/effects.h"
#include "simulator/keys.h"
#include "simulator/screen_painter.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace authoring {

struct PlayTerms {
  std::filesystem::path root;  // it is written to
  WideString commandLine;
  int widthPx = 240;
  int heightPx = 320;
};

class PlaySession {
 public:
  // Returns when the utility waits for its first key, or has ended. The clock and the network are the same in every
  // session.
  explicit PlaySession(const PlayTerms& terms, rules::RuleListener* listener = nullptr);
  ~PlaySession();
  PlaySession(const PlaySession&) = delete;
  PlaySession& operator=(const PlaySession&) = delete;

  // Why the folder cannot be used; then nothing runs.
  const std::string& Problem() const;
  bool IsRunning() const;

  // Returns when the utility waits again or has ended. Nothing happens when it does not run.
  void Press(const simulator::Key& key);
  void Press(std::string_view name) { Press(*simulator::KeyByName(name)); }

  // Null while it does not run, or nothing was loaded.
  const app::CKelConfigApp* App() const;
  // The program's windows are there to be asked while the session stands still.
  simulator::ScreenPicture Screen() const;
  simulator::PaintedScreen Paint(int columns, int rows) const;

  // What left the program since the last time.
  std::vector<std::string> TakeEffects();
  // Texts of the notes that were shown for a moment.
  std::vector<std::string> TakeNotes();

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

// The environment of every session: a day, an address.
void FixSurroundings(platform::host::Environment& environment);

}  // namespace authoring
