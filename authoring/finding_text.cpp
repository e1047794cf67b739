#include "authoring/finding_formats.h"

#include "base/utf8.h"

#include <string>

namespace authoring {
namespace {

const char* ColourOf(Severity severity) {
  switch (severity) {
    case Severity::kNote: return "36";
    case Severity::kWarning: return "33";
    case Severity::kError: return "31";
  }
  return "0";
}

std::string Painted(const std::string& text, const char* sgr, bool colours) {
  return colours ? "\x1b[" + std::string(sgr) + "m" + text + "\x1b[0m" : text;
}

// A registry has no lines: key and value stand in their place.
std::string PlaceOf(const Finding& finding) {
  std::string place = finding.position.file;
  if (finding.position.line != 0) {
    return place + ":" + std::to_string(finding.position.line) + ":" + std::to_string(finding.position.column);
  }
  if (!finding.key.empty()) place += ": [" + base::ToUtf8(finding.key) + "]";
  if (!finding.value.empty()) place += " " + base::ToUtf8(finding.value);
  return place;
}

}  // namespace

void PrintText(std::span<const Finding> findings, bool colours, std::ostream& out) {
  for (const Finding& finding : findings) {
    out << PlaceOf(finding) << ": "
        << Painted(std::string(NameOf(finding.severity)), ColourOf(finding.severity), colours) << ": "
        << finding.sentence << " [" << finding.id << "]\n";
    if (!finding.mend.empty()) out << "    " << finding.mend << '\n';
  }
}

}  // namespace authoring
