// The menu model: the tree of menu items over the key tree, with a descriptor for every property, and the tables that
// rules and commands look properties up in.
#pragma once

#include "base/wide_string.h"
#include "config/data_store.h"
#include "model/menu_item.h"
#include "values/property_descriptor.h"

#include <memory>
#include <unordered_map>

namespace model {

class MenuModel {
 public:
  // --- look-ups; all by exact text ---
  // Null when there is none.
  values::PropertyDescriptor* FindDescriptor(WideStringView oid) const;
  MenuItem* ItemOf(const values::PropertyDescriptor& descriptor) const;
  // Empty when there is none.
  WideString OidByName(WideStringView displayName) const;
  WideString TypeByOid(WideStringView oid) const;

  // The tree that the model stands on; whoever holds it keeps it.
  const std::shared_ptr<const config::PDataStore>& Tree() const;
  const config::ConfigKey* FindKey(WideStringView path) const;
  const WideString& RootPath() const;

  MenuItem& Root();

  // The text between the angle brackets of a property's line: choice text, dotted address, masked secret.
  WideString ShownValue(values::PropertyDescriptor& descriptor) const;
  // Sets an item's suffix from its property's shown value ("  <%s>").
  void UpdateSuffix(MenuItem& item) const;
};

}  // namespace model
