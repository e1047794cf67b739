#include "authoring/checks/check.h"
#include "authoring/finding_formats.h"
#include "authoring/json_text.h"
#include "base/utf8.h"
#include "platform/host/utf8_path.h"

#include <cctype>
#include <cstdio>

namespace authoring {
namespace {

using Json = nlohmann::ordered_json;

// A relative reference, or a file address: what may not stand in one is written as its bytes.
std::string UriOf(const std::string& file) {
  const std::filesystem::path normal = platform::host::PathOf(file).lexically_normal();
  std::string path = normal.generic_string();
  std::string uri;
  if (path.starts_with("//")) {
    uri = "file:";  // the name of a computer follows
  } else if (path.starts_with('/')) {
    uri = "file://";
  } else if (const std::string drive = normal.root_name().string(); !drive.empty()) {
    uri = "file:///" + drive;
    path.erase(0, drive.size());
  }
  for (const char character : path) {
    const auto byte = static_cast<unsigned char>(character);
    if (std::isalnum(byte) != 0 || std::string_view("/._-~").find(character) != std::string_view::npos) {
      uri += character;
    } else {
      char escaped[4];
      std::snprintf(escaped, sizeof(escaped), "%%%02X", byte);
      uri += escaped;
    }
  }
  return uri;
}

Json Rules() {
  Json rules = Json::array();
  for (const Check& check : Checks()) {
    Json rule;
    rule["id"] = check.id;
    rule["shortDescription"]["text"] = check.title;
    rule["defaultConfiguration"]["level"] = NameOf(check.severity);
    rules.push_back(std::move(rule));
  }
  return rules;
}

Json LocationOf(const Finding& finding) {
  Json location;
  Json& physical = location["physicalLocation"];
  physical["artifactLocation"]["uri"] = UriOf(finding.position.file);
  if (finding.position.line != 0) {
    physical["region"]["startLine"] = finding.position.line;
    physical["region"]["startColumn"] = finding.position.column;
  }
  if (!finding.key.empty()) {
    std::string name = base::ToUtf8(finding.key);
    if (!finding.value.empty()) name += " " + base::ToUtf8(finding.value);
    location["logicalLocations"] = Json::array({Json{{"fullyQualifiedName", name}}});
  }
  return location;
}

Json ResultOf(const Finding& finding) {
  Json result;
  result["ruleId"] = finding.id;
  const Check* check = FindCheck(finding.id);
  if (check != nullptr) result["ruleIndex"] = check - Checks().data();
  result["level"] = NameOf(finding.severity);
  result["message"]["text"] = finding.mend.empty() ? finding.sentence : finding.sentence + " " + finding.mend;
  result["locations"] = Json::array({LocationOf(finding)});
  return result;
}

}  // namespace

void PrintSarif(std::span<const Finding> findings, std::ostream& out) {
  Json run;
  run["tool"]["driver"]["name"] = "kelconf";
  run["tool"]["driver"]["version"] = "1.0";
  run["tool"]["driver"]["rules"] = Rules();
  run["columnKind"] = "unicodeCodePoints";
  run["results"] = Json::array();
  for (const Finding& finding : findings) run["results"].push_back(ResultOf(finding));

  Json document;
  document["$schema"] = "https://json.schemastore.org/sarif-2.1.0.json";
  document["version"] = "2.1.0";
  document["runs"] = Json::array({std::move(run)});
  WriteJson(document, out);
}

}  // namespace authoring
