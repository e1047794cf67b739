// The entries of a configuration in the order of the menus.
#pragma once

#include "config/data_store.h"

#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

namespace authoring {

struct Entry {
  const config::ConfigKey* key = nullptr;
  const Entry* parent = nullptr;       // null: the root
  WideStringView name;                 // as the parent has it; a path when it is a "Descendent"
  std::vector<const Entry*> children;  // in the order of the menu
  const Entry* first = nullptr;        // an earlier entry of the same key, which has the children; null: this is it
  std::uint32_t depth = 0;
  std::uint32_t number = 0;  // of its key, counted from 0 in the order in which keys come first
  std::uint32_t end = 0;     // of the first entry of a key: the number behind those of the keys below it

  WideStringView Value(TextId valueName) const { return key->Value(valueName); }
  WideStringView Value(WideStringView valueName) const { return key->Value(valueName); }
  WideStringView DisplayName() const { return Value(TextId::kDisplayName); }
  // OID, or without one the command OID; empty: the entry is no property.
  WideStringView Oid() const;
  bool IsMenu() const { return !key->Subkeys().empty(); }
};

// `Dependency`, `Dependency1` and so on, as far as they run.
std::vector<WideStringView> RulesOf(const config::ConfigKey& key);

class Entries {
 public:
  // The tree must live longer.
  Entries(const config::PDataStore& tree, WideStringView rootPath);

  const Entry& Root() const { return entries_.front(); }
  // All of them, each before those below it, the root first.
  const std::deque<Entry>& All() const { return entries_; }

  // "Network\Addresses": the names down to the entry, without the root's, as ShownPath() has them.
  static WideString PathOf(const Entry& entry);

  // It is the menu itself, or stands below it. Both are the first entries of their keys.
  static bool IsWithin(const Entry& entry, const Entry& menu) {
    return menu.number <= entry.number && entry.number < menu.end;
  }
  // A later entry leads to it too, or to a menu that it stands in. It is the first entry of its key.
  bool StandsElsewhere(const Entry& entry) const;

 private:
  void NoteShared();

  std::deque<Entry> entries_;  // never empty; addresses stay
  // The numbers of keys that have later entries, with those below them: from, and behind; none overlap.
  std::vector<std::pair<std::uint32_t, std::uint32_t>> shared_;
};

}  // namespace authoring
