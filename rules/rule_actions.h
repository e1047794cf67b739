// What rules can ask for: the actions behind THEN and ELSE, the flags of rules without a condition, and "ChoiceFmt=".
#pragma once

#include "base/wide_string.h"
#include "model/menu_item.h"

#include <optional>
#include <span>

namespace rules {

enum class Effect { kNothing, kShow, kHide, kBlank, kMark, kUnmark, kLock, kRefresh };

// The state that a line has from it; nothing: it leaves the state alone.
std::optional<model::DisplayState> StateOf(Effect effect);

struct ActionRow {
  WideStringView name;
  Effect effect;
};
struct FlagRow {
  WideStringView name;
  Effect whenMatched;
  Effect otherwise;
};
std::span<const ActionRow> Actions();
std::span<const FlagRow> Flags();

// The case of names does not count. Null: there is none of this name.
const ActionRow* FindAction(WideStringView name);
const FlagRow* FindFlag(WideStringView name);

// ChoiceFmt=CHOICES[:FALLBACK], perhaps in quotes behind the sign.
struct ChoicesAction {
  WideStringView choices;
  WideStringView fallback;  // empty: the value stays
};
// Nothing for any other action.
std::optional<ChoicesAction> ReadChoicesAction(WideStringView action);

}  // namespace rules
