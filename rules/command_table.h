// Commands that configurations name, as tables.
#pragma once

#include "base/wide_string.h"
#include "model/menu_item.h"

#include <cstddef>

namespace rules {

template <typename Owner>
struct Command {
  WideStringView name;  // in full; one that ends in ":" is followed by what the command works on, the rest
  void (*run)(Owner& owner, model::MenuItem& item, WideStringView rest);
};

// Runs the command that the text names; any other text is ignored.
template <typename Owner, std::size_t count>
void RunCommand(const Command<Owner> (&commands)[count], WideStringView text, Owner& owner, model::MenuItem& item) {
  for (const Command<Owner>& command : commands) {
    const bool isNamed = command.name.ends_with(u':') ? text.starts_with(command.name) : text == command.name;
    if (!isNamed) continue;
    command.run(owner, item, text.substr(command.name.size()));
    return;
  }
}

}  // namespace rules
