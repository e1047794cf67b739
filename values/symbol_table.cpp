#include "values/symbol_table.h"

#include "base/string_table.h"
#include "config/registry_key_reader.h"

#include <utility>

namespace values {

SymbolTable::SymbolTable(Texts texts) : texts_(std::move(texts)) {}

SymbolTable SymbolTable::FromRegistry() {
  config::RegistryKeyReader key(LoadText(TextId::kSymbolTablePath));
  return SymbolTable(std::move(key.values));
}

WideStringView SymbolTable::ViewOf(WideStringView name) const {
  const auto found = texts_.find(name);
  return found == texts_.end() ? name : WideStringView(found->second);
}

}  // namespace values
