// Plays the utility towards goals and writes down the keys, so that each play can be a UI script.
#pragma once

#include "authoring/goals.h"
#include "authoring/play_session.h"

#include <functional>
#include <optional>

namespace authoring {

// What is in front of the person at the terminal.
enum class Front { kEnded, kMenu, kTextPage, kEditor, kBox };
Front FrontOf(const PlaySession& session);

class Player {
 public:
  // Keys that may still be pressed, over all players.
  struct Budget {
    std::size_t keys = 0;
  };

  Player(const PlayTerms& terms, Goals& goals, Budget& budget);

  PlaySession& Session() { return session_; }
  bool IsRunning() const { return session_.IsRunning() && budget_.keys > 0; }
  bool HasFoundSomething() const { return found_; }
  // The script of what was played, and what it found in words.
  std::string Script() const;
  const std::vector<std::string>& Findings() const { return findings_; }

  // The goal is reached by what is done now.
  void Reach(const Goal& goal) { Found(goal); }

  void Press(std::string_view key);
  void Type(const std::string& text);

  // The item of a place in the utility's model now.
  const model::MenuItem* ItemAt(const ItemPlace& place) const;
  const model::MenuItem* CurrentMenu() const;

  // Goes to a menu by the keys that people use. False: that is not possible now.
  bool GoTo(const ItemPlace& menu);
  // Goes to the item's menu and presses the key of its line.
  bool Activate(const ItemPlace& item);
  // Leafs through all pages of the menu shown; `onPage` is told of each but the first.
  void SeeAllPages(const std::function<void()>& onPage = {});

  // With the editor in front: saves a choice, a text or, for kinds that are neither, another value. False: nothing
  // was saved; the editor is closed all the same.
  bool SaveChoice(const std::string& text);
  bool SaveText(const std::string& text);
  bool SaveNext();
  std::vector<std::string> ChoicesShown() const;
  // The typed field's text and its mask's length; nothing when no field is in front.
  std::optional<std::string> FieldText() const;
  void CloseEditor();

  // Until the menu, an editor or nothing is in front: boxes are answered, pages left. Each answer of a question is
  // given once, then the last one.
  void Settle();

 private:
  void Note();
  void Found(const Goal& goal);
  void FoundAlert(const std::string& text, const std::string& answer);
  void AnswerBox();
  void Finish();
  bool TurnToPageOf(const model::MenuItem& item);
  // Of the menu that is open. False when it has no such line now.
  bool PressLineOf(const model::MenuItem& item);

  Goals& goals_;
  Budget& budget_;
  RuleOutcomes outcomes_;
  PlaySession session_;
  std::vector<std::string> lines_;  // of the script
  std::vector<std::string> findings_;
  bool found_ = false;
  bool foundNow_ = false;
  bool saved_ = false;
  std::size_t alerts_ = 0;  // boxes so far
};

}  // namespace authoring
