// Findings as people and programs read them.
#pragma once

#include "authoring/finding.h"

#include <ostream>
#include <span>

namespace authoring {

// As compilers do: "ovu.xml:312:9: warning: ... [rule-never-true]", the mend on a line of its own.
void PrintText(std::span<const Finding> findings, bool colours, std::ostream& out);

// docs/kelconf-check.schema.json describes it.
void PrintJson(std::span<const Finding> findings, std::ostream& out);

// SARIF 2.1.0, for editors and build services.
void PrintSarif(std::span<const Finding> findings, std::ostream& out);

}  // namespace authoring
