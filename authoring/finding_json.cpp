#include "authoring/finding_formats.h"
#include "authoring/json_text.h"
#include "base/utf8.h"

namespace authoring {

void PrintJson(std::span<const Finding> findings, std::ostream& out) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const Finding& finding : findings) {
    nlohmann::ordered_json json;
    json["id"] = finding.id;
    json["severity"] = NameOf(finding.severity);
    json["file"] = finding.position.file;
    if (finding.position.line != 0) {
      json["line"] = finding.position.line;
      json["column"] = finding.position.column;
    }
    json["key"] = base::ToUtf8(finding.key);
    json["value"] = base::ToUtf8(finding.value);
    json["sentence"] = finding.sentence;
    json["mend"] = finding.mend;
    list.push_back(std::move(json));
  }
  nlohmann::ordered_json document;
  document["version"] = 1;
  document["findings"] = std::move(list);
  // A name of any bytes may stand in a path.
  WriteJson(document, out);
}

}  // namespace authoring
