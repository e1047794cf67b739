// Where the configuration comes from: the command line names a registry key or an XML file; without one it is the
// default file, else the default key.
#pragma once

#include "base/wide_string.h"
#include "config/text_place.h"
#include "config/xml_document.h"

#include <memory>
#include <optional>
#include <vector>

namespace config {

struct ConfigSource {
  WideString path;                              // of the root key; of an XML source, the root's `name`
  std::shared_ptr<const XmlDocument> document;  // null for a registry source
};

// Why a file or a registry key is not what the configuration is read from.
struct SourceRefusal {
  WideString source;  // its path as it was asked for
  WideString reason;
  TextPlace place;           // of what is wrong in a file
  bool isMalformed = false;  // a file that is there, but no well-formed document: the user is to know

  // All of that in one line: "\menu.xml:3:7: Tag starts with quote".
  WideString Line() const;
};

struct SelectedSource {
  std::optional<ConfigSource> source;  // nothing: there is no usable one
  // In the order of the attempts. What is missing is none where another source has taken its place.
  std::vector<SourceRefusal> refusals;
};

// `commandLine` is all that follows the program's name. The root of an XML source is its first "GROUP". Why a file is
// malformed goes to the debug output as well.
SelectedSource SelectSource(WideStringView commandLine);

}  // namespace config
