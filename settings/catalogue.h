// The entries of a terminal's menus, by the names on the screen and by OID.
#pragma once

#include "model/menu_model.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace settings {

class Catalogue {
 public:
  // The model must live longer, with the items that it has now.
  explicit Catalogue(model::MenuModel& model);

  struct Found {
    model::MenuItem* item = nullptr;  // null: `problem` says why
    std::string problem;
  };
  // The entry of a path: the names of menus and the entry's own; or where the last name is no entry's, the one of that
  // OID. Find() finds settings alone.
  Found Find(const std::vector<WideString>& path);
  Found FindEntry(const std::vector<WideString>& path);

  // The shortest path that leads to an item and no other; empty when there is none that a file can hold.
  std::vector<WideString> PathTo(model::MenuItem& item);

  // The first line that shows the setting; null for none.
  model::MenuItem* ItemOfOid(WideStringView oid) const;

 private:
  using Lines = std::unordered_map<WideString, std::vector<model::MenuItem*>>;  // by name

  const Lines& LinesOf(const model::MenuItem& menu);

  model::MenuModel& model_;
  std::unordered_map<const model::MenuItem*, Lines> menus_;
};

// As the line has it, without the blanks around it.
WideString NameOf(const model::MenuItem& item);

// The names from the top down to an item, whether a file can hold them or not.
std::vector<WideString> NamesOf(const model::MenuItem& item);

// OID or command OID; empty: no property.
WideStringView OidOf(const model::MenuItem& item);

}  // namespace settings
