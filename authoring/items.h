// The items of a menu model: all of them, where each stands, and what it is called by.
#pragma once

#include "authoring/trial.h"

#include <vector>

namespace authoring {

// All items, each before those below it, the main menu first.
std::vector<model::MenuItem*> ItemsOf(model::MenuModel& model);

// Where an item stands in the tree of items: the same place in every model of one configuration.
using ItemPlace = std::vector<std::size_t>;
ItemPlace PlaceOf(const model::MenuItem& item);
// Null when the model has no such place.
model::MenuItem* ItemAtPlace(model::MenuModel& model, const ItemPlace& place);

// The path below the root, "Network\Addresses"; empty for the root.
WideString PathOf(const model::MenuItem& item);
// The same for people, of one that is very long its end alone.
WideString ShownPathOf(const model::MenuItem& item);
// OID or command OID; empty: no property.
WideStringView OidOf(const model::MenuItem& item);

// "2-9-3"
WideString KeysInWords(WideStringView keys);

}  // namespace authoring
