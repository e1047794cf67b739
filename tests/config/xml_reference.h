// The rules by which a document's elements are found, written down as plainly as they are: unit by unit, and slow.
#pragma once

#include "base/wide_string.h"
#include "config/xml_index.h"
#include "config/xml_scan.h"

#include <vector>

namespace config {

struct ReferenceScan {
  XmlScanResult result;
  std::vector<XmlElement> elements;  // with the document's own
};

ReferenceScan ScanByTheRules(WideStringView text);

}  // namespace config
