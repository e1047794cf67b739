// The application behind a main screen under test: it allows everything and keeps a log of what it was asked.
#pragma once

#include "app/screen_actions.h"
#include "base/utf8.h"

#include <functional>
#include <string>

namespace tests {

class RecordingActions final : public app::ScreenActions {
 public:
  void BringModelUpToDate() override {
    ++broughtUpToDate;
    if (whileBroughtUpToDate) whileBroughtUpToDate();
  }
  void StartTreeRebuild() override {}
  bool MayEnter(model::MenuItem&) override { return true; }
  bool MayLeave(model::MenuItem&) override { return true; }
  void Activate(model::MenuItem& leaf) override {
    log += "activate " + base::ToUtf8(leaf.Title()) + ";";
    if (whileActive) whileActive();
  }
  void EvaluateItem(model::MenuItem&) override {}
  void BeforeFill(model::MenuItem&) override {}
  void FlipToggle() override { log += "toggle;"; }
  void LeavingRoot() override { log += "leaving root;"; }
  void InlineTextChanged(model::MenuItem& item, WideStringView text, bool isChoice) override {
    log += base::ToUtf8(item.Title()) + (isChoice ? "#" : "=") + base::ToUtf8(text) + ";";
  }
  void InlineCheckChanged(model::MenuItem& item, bool checked) override {
    log += base::ToUtf8(item.Title()) + (checked ? " on;" : " off;");
  }

  std::string log;
  int broughtUpToDate = 0;
  std::function<void()> whileBroughtUpToDate;
  std::function<void()> whileActive;
};

}  // namespace tests
