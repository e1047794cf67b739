// Why a line of the menu looks as it does, and the smallest changes of settings that would show it, unlock it or bring
// back a choice.
#pragma once

#include "authoring/assumption.h"
#include "authoring/rule_trace.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace authoring {

// What decided how a line is shown.
struct Verdict {
  WideString path;  // below the root
  WideString title;
  model::DisplayState state = model::DisplayState::kNormal;
  std::vector<SeenRule> rules;         // in their order
  std::optional<std::size_t> winner;   // the rule whose state the line has; none: it has none from rules
  std::vector<SeenWireless> wireless;  // what the wireless rules did with it, after all others
  bool byWireless = false;             // their state is the one that the line has
};

// One more thing about a line, with an id that never changes.
struct Remark {
  std::string id;
  WideString sentence;
};

struct Step {
  SettingChange change;
  WideString name;                 // of the property; empty: only the device knows the OID
  WideString text;                 // of the choice; empty: the value is shown as it is
  std::optional<WideString> keys;  // that open its editor now; nothing: it cannot be edited now
};

struct Wish {
  enum class Goal { kShow, kUnlock, kRead, kChoice };
  Goal goal = Goal::kShow;
  WideString choice;                    // kChoice: its text
  std::vector<std::vector<Step>> ways;  // of the fewest steps there are; each was tried on a copy of the device
  bool complete = false;                // no way: all values that matter, up to kMostSteps at once, were tried
};
inline constexpr std::size_t kMostSteps = 3;

struct Explanation {
  Verdict line;
  WideString oid;  // empty: no property
  WideString type;
  bool isMenu = false;
  Look look;
  std::optional<WideString> keys;    // that lead to it; nothing: it cannot be reached
  std::vector<Verdict> closedMenus;  // those above it that cannot be opened, from the top
  std::vector<Remark> remarks;
  std::vector<Wish> wishes;
  std::vector<Verdict> hiddenLines;   // of a menu
  std::vector<Verdict> hiddenBeside;  // of the menu that it is in; only by AddHiddenBeside()
};

// Told how many assumptions have been tried.
using Tried = std::function<void(std::size_t done, std::size_t most)>;

// `trace` is the trial's listener. The trial stands afterwards as it was made, with all items anew. Bounded, whatever
// the configuration.
Explanation Explain(Trial& trial, RuleTrace& trace, const ItemPlace& item, const Tried& tried = {});

// Adds which lines are hidden in the menu around the item.
void AddHiddenBeside(Trial& trial, RuleTrace& trace, const ItemPlace& item, Explanation& explanation);

// The lines of a menu that are not shown now.
std::vector<Verdict> HiddenLines(RuleTrace& trace, model::MenuItem& menu);

}  // namespace authoring
