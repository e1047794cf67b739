#include "config/config_source.h"

#include "base/format.h"
#include "base/string_table.h"
#include "config/registry_key_reader.h"
#include "config/shared_text.h"
#include "platform/debug.h"

#include <new>
#include <utility>

namespace config {
namespace {

constexpr WideStringView kRegistryPrefix = u"HKEY_LOCAL_MACHINE";
constexpr WideStringView kGroupFile = u"\\windows\\ekt.xml";

using Refusals = std::vector<SourceRefusal>;

// Refuses a file for what stands in it.
void Refuse(SourceRefusal refusal, Refusals& refusals) {
  platform::DebugOutput(base::Format(u"FAILED: ReadDocument  %s\r\n", refusal.Line()));
  refusals.push_back(std::move(refusal));
}

// Null for a file that is refused.
std::shared_ptr<XmlDocument> ReadDocument(WideStringView filePath, Refusals& refusals) {
  if (std::optional<Utf8Text> text = ReadTextFile(filePath)) {
    try {
      auto document = std::make_shared<XmlDocument>();
      if (document->SetDocument(std::move(*text))) return document;
      const XmlRefusal& why = document->Refusal();
      Refuse({WideString(filePath), why.reason, why.place, true}, refusals);
      return nullptr;
    } catch (const std::bad_alloc&) {
      platform::DebugOutput(u"EXCEPTION: ReadDocument()\r\n");
    }
  }
  refusals.push_back({WideString(filePath), u"Cannot be read", {}});
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
void ReadGroupFile(XmlDocument& configuration, Refusals& refusals) {
  const std::shared_ptr<XmlDocument> document = ReadDocument(kGroupFile, refusals);
  if (!document) return;
  if (const std::optional<WideString> name = RootName(*document)) configuration.FindGroup(*name);
  configuration.ResetPosition();
}

SourceRefusal WithoutRoot(WideStringView filePath, const XmlIndex& index) {
  const std::uint32_t element = index[XmlIndex::kDocument].firstChildIndex;
  return {WideString(filePath), base::Format(u"The first element is %s instead of GROUP", index.TagName(element)),
          PlaceIn(index.Text().View(), index[element].startTagStart)};
}

std::optional<ConfigSource> OpenXmlSource(WideStringView filePath, Refusals& refusals) {
  const std::shared_ptr<XmlDocument> document = ReadDocument(filePath, refusals);
  if (!document) return std::nullopt;
  std::optional<WideString> rootName = RootName(*document);
  if (!rootName) {
    Refuse(WithoutRoot(filePath, document->Index()), refusals);
    return std::nullopt;
  }
  ReadGroupFile(*document, refusals);
  return ConfigSource{std::move(*rootName), document};
}

std::optional<ConfigSource> OpenRegistrySource(WideStringView path, Refusals& refusals) {
  if (OpenKey(path, false, platform::kKeyAllAccess)) return ConfigSource{WideString(path), nullptr};
  refusals.push_back({WideString(path), u"Cannot be opened", {}});
  return std::nullopt;
}

std::optional<ConfigSource> TrySource(WideStringView commandLine, Refusals& refusals) {
  if (commandLine.starts_with(kRegistryPrefix)) return OpenRegistrySource(commandLine, refusals);
  if (!commandLine.empty()) return OpenXmlSource(commandLine, refusals);
  std::optional<ConfigSource> source = OpenXmlSource(LoadText(TextId::kDefaultXmlSource), refusals);
  return source ? std::move(source) : OpenRegistrySource(LoadText(TextId::kDefaultRegistrySource), refusals);
}

}  // namespace

WideString SourceRefusal::Line() const {
  return place.line == 0 ? base::Format(u"%s: %s", source, reason)
                         : base::Format(u"%s:%s: %s", source, TextOf(place), reason);
}

SelectedSource SelectSource(WideStringView commandLine) {
  SelectedSource selected;
  selected.source = TrySource(commandLine, selected.refusals);
  if (selected.source) {
    std::erase_if(selected.refusals, [](const SourceRefusal& refusal) { return !refusal.isMalformed; });
  }
  return selected;
}

}  // namespace config
