// Fills keys. What it is given is copied, but not the units of the texts: they must live as long as the keys.
#pragma once

#include "config/arena.h"
#include "config/config_key.h"

#include <memory>
#include <vector>

namespace config {

class KeyWriter {
 public:
  explicit KeyWriter(Arena& arena) : arena_(arena) {}

  // Its "Descendent" is among the subkeys that are added.
  void SetFromRegistry() { fromRegistry_ = true; }
  // Of two values of one name the later one stays.
  void AddValue(WideStringView name, WideStringView text) { values_.push_back({name, text}); }
  void AddSubkey(WideStringView name) { subkeys_.push_back(name); }
  void SetLists(std::unique_ptr<const ConfigKey::Lists> lists) { lists_ = std::move(lists); }

  // Puts all of that into the key and starts afresh. In a document, a value "Descendent" that is not
  // empty names one more subkey.
  void Finish(ConfigKey& key);

 private:
  void MakeValuesUnique();

  Arena& arena_;
  bool fromRegistry_ = false;
  std::vector<NamedText> values_;
  std::vector<WideStringView> subkeys_;
  std::unique_ptr<const ConfigKey::Lists> lists_;
};

}  // namespace config
