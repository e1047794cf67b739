// What a check has to say about a configuration: data, which others print.
#pragma once

#include "authoring/configuration.h"

#include <string>
#include <string_view>

namespace authoring {

enum class Severity {
  kNote,     // the utility ignores it without a word, or it could be said more plainly
  kWarning,  // it is shown wrongly, or does not do what it says
  kError,    // it can never work
};

std::string_view NameOf(Severity severity);  // "note", "warning", "error"

struct Finding {
  std::string_view id;  // of the check
  Severity severity = Severity::kWarning;
  Position position;
  WideString key;             // the entry's path below the root, empty for the root and for what is no entry
  WideString value;           // the attribute, empty: the entry as a whole
  std::string sentence;       // what the utility does with it
  std::string mend;           // what helps; may be empty
  std::uint32_t element = 0;  // of the document; 0: none
};

}  // namespace authoring
