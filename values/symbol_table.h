// Names that stand for longer texts in a configuration.
#pragma once

#include "base/wide_string.h"

#include <map>

namespace values {

class SymbolTable {
 public:
  using Texts = std::map<WideString, WideString, std::less<>>;

  // Without symbols every name stands for itself.
  SymbolTable() = default;
  explicit SymbolTable(Texts texts);

  // The string values of the registry's symbol table key; empty when there is no such key.
  static SymbolTable FromRegistry();

  // The text of the symbol that `name` names as a whole, else `name` itself.
  WideString TextOf(WideStringView name) const { return WideString(ViewOf(name)); }
  // The same, valid as long as the table and the text of `name`.
  WideStringView ViewOf(WideStringView name) const;

 private:
  Texts texts_;
};

}  // namespace values
