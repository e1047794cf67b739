// Whether a setting can hide itself for good: the value is saved, the line or a menu above it is gone, and nothing at
// the terminal brings it back.
#pragma once

#include "authoring/rule_cases.h"

#include <string>
#include <vector>

namespace authoring {

class WayBack {
 public:
  // The cases are those of the line's rules.
  WayBack(const Subject& line, const RuleCases& cases);

  // Whether the line is shown in the present case.
  void Note(bool isShown);
  // A sentence for each setting that does this, of the line itself or behind it.
  std::vector<std::string> Traps() const;

 private:
  struct Setting {
    std::size_t variable;
    const Subject* property;
    std::vector<bool> everShown;  // by the variable's values
  };
  const Subject& line_;
  const RuleCases& cases_;
  std::vector<Setting> settings_;
};

}  // namespace authoring
