// A person's way through the menus, without a screen: which rules and handlers run when menus are opened and left.
//
// Rules run again only where a value that they read has changed since: what they would do else is done already. So the
// way costs what it changes, not what it passes.
#pragma once

#include "authoring/trial.h"
#include "settings/rule_readers.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace settings {

class MenuWalk {
 public:
  // Told of each menu before its handlers run, and after.
  class Host {
   public:
    virtual ~Host() = default;
    virtual void Opening(model::MenuItem& menu) = 0;
    virtual void Opened(model::MenuItem& menu) = 0;
    // Whether its exit handlers are to run.
    virtual bool Leaving(model::MenuItem& menu) = 0;
    virtual void Left(model::MenuItem& menu) = 0;
  };

  // All must live longer.
  MenuWalk(authoring::Trial& trial, const RuleReaders& readers, Host& host)
      : trial_(trial), readers_(readers), host_(host) {}

  // Goes to a menu by the shortest way, leaving and opening those between. The line that cannot be entered on the way,
  // null when the menu is open now. With `through` hidden and blank lines are entered, too.
  const model::MenuItem* GoTo(model::MenuItem& menu, bool through);
  // Leaves all menus, and the utility.
  void LeaveAll();

  // The list is filled again after an edit in the menu that is open.
  void Refill() { Fill(*open_.back()); }
  // A setting has another value, or may have.
  void Changed(const WideString& oid);

 private:
  void Open(model::MenuItem& menu);
  void Leave();
  void Fill(model::MenuItem& menu);

  authoring::Trial& trial_;
  const RuleReaders& readers_;
  Host& host_;
  std::vector<model::MenuItem*> open_;  // from the main menu down
  std::unordered_set<const model::MenuItem*> filled_;
  std::unordered_map<const model::MenuItem*, std::vector<model::MenuItem*>> outdated_;  // lines, by their menu
};

}  // namespace settings
