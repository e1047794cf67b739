// Where the configuration comes from: the command line names a registry key or an XML file; without one it is the
// default file, else the default key.
#pragma once

#include "base/wide_string.h"
#include "config/xml_document.h"

#include <memory>
#include <optional>

namespace config {

// Shows what went wrong and returns when the user has seen it. The kinds are those of the program's message boxes.
class SourceMessages {
 public:
  static constexpr int kErrorKind = 4;

  virtual ~SourceMessages() = default;
  virtual void Show(WideStringView text, WideStringView caption, int kind) = 0;
};

enum class SourceKind { kRegistry, kXmlFile };

struct ConfigSource {
  SourceKind kind = SourceKind::kRegistry;
  WideString path;                              // of the root key; of an XML source, the root's `name`
  std::shared_ptr<const XmlDocument> document;  // null for a registry source
};

// `commandLine` is all that follows the program's name. Nothing when there is no usable source; that has been shown.
std::optional<ConfigSource> SelectSource(WideStringView commandLine, SourceMessages& messages);

// An XML file as configuration, whose first "GROUP" is the root. A file that is not well formed is shown; all other
// failures are silent.
std::optional<ConfigSource> LoadXmlSource(WideStringView filePath, SourceMessages& messages);

}  // namespace config
