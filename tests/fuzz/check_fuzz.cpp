// Any bytes as configuration: all checks with their proofs come to an end, and what they find can be read by people and
// programs.
#include "authoring/check_run.h"
#include "authoring/finding_formats.h"
#include "tests/fuzz/fuzz_storage.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <cstdlib>
#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const fuzz::Storage storage;
  storage.Write({reinterpret_cast<const char*>(bytes), size});
  const auto loaded = authoring::Configuration::Load(storage.root);
  if (!loaded.configuration) {
    if (loaded.problem.empty() || loaded.problem.find('\n') != std::string::npos) std::abort();
    return 0;
  }
  const auto findings = authoring::CheckConfiguration(*loaded.configuration, {true, {}});
  std::ostringstream text;
  authoring::PrintText(findings, true, text);
  if (text.str().empty() != findings.empty()) std::abort();
  for (const auto print : {authoring::PrintJson, authoring::PrintSarif}) {
    std::ostringstream json;
    print(findings, json);
    if (!nlohmann::json::accept(json.str())) std::abort();
  }
  return 0;
}
