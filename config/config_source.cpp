#include "config/config_source.h"

#include "base/format.h"
#include "base/string_table.h"
#include "config/registry_key_reader.h"
#include "config/shared_text.h"

#include <new>
#include <utility>

namespace config {
namespace {

constexpr WideStringView kRegistryPrefix = u"HKEY_LOCAL_MACHINE";
constexpr WideStringView kGroupFile = u"\\windows\\ekt.xml";
constexpr WideStringView kErrorCaption = u"Error";

// Null when the file cannot be read, and, once that has been shown, when it is not well formed.
std::shared_ptr<XmlDocument> ReadDocument(WideStringView filePath, SourceMessages& messages) {
  std::optional<SharedText> text = ReadTextFile(filePath);
  if (!text) return nullptr;
  try {
    auto document = std::make_shared<XmlDocument>();
    if (document->SetDocument(std::move(*text))) return document;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  messages.Show(base::Format(u"%s document is not well formed", filePath), kErrorCaption, SourceMessages::kErrorKind);
  return nullptr;
}

// The root's `name`.
std::optional<WideString> RootName(XmlDocument& document) {
  document.ResetPosition();
  if (!document.FindElement(u"GROUP")) return std::nullopt;
  return document.Attribute(u"name");
}

// The group file names a group of the configuration. Whether that is there makes no difference; the file is read for
// the complaint about one that is not well formed.
void ReadGroupFile(XmlDocument& configuration, SourceMessages& messages) {
  const std::shared_ptr<XmlDocument> document = ReadDocument(kGroupFile, messages);
  if (!document) return;
  if (const std::optional<WideString> name = RootName(*document)) configuration.FindGroup(*name);
  configuration.ResetPosition();
}

std::optional<ConfigSource> OpenRegistrySource(WideStringView path) {
  if (!OpenKey(path, false, platform::kKeyAllAccess)) return std::nullopt;
  return ConfigSource{SourceKind::kRegistry, WideString(path), nullptr};
}

std::optional<ConfigSource> TrySource(WideStringView commandLine, SourceMessages& messages) {
  if (commandLine.starts_with(kRegistryPrefix)) return OpenRegistrySource(commandLine);
  if (!commandLine.empty()) return LoadXmlSource(commandLine, messages);
  std::optional<ConfigSource> source = LoadXmlSource(LoadText(TextId::kDefaultXmlSource), messages);
  return source ? std::move(source) : OpenRegistrySource(LoadText(TextId::kDefaultRegistrySource));
}

}  // namespace

std::optional<ConfigSource> LoadXmlSource(WideStringView filePath, SourceMessages& messages) {
  const std::shared_ptr<XmlDocument> document = ReadDocument(filePath, messages);
  if (!document) return std::nullopt;
  std::optional<WideString> rootName = RootName(*document);
  if (!rootName) return std::nullopt;
  ReadGroupFile(*document, messages);
  return ConfigSource{SourceKind::kXmlFile, std::move(*rootName), document};
}

std::optional<ConfigSource> SelectSource(WideStringView commandLine, SourceMessages& messages) {
  std::optional<ConfigSource> source = TrySource(commandLine, messages);
  if (!source) {
    messages.Show(LoadText(TextId::kConfigurationDataError), kErrorCaption, SourceMessages::kErrorKind);
  }
  return source;
}

}  // namespace config
