// Dependency rules, set triples and command lines of any text come to an end and give no more than the text holds.
#include "base/utf8.h"
#include "model/defaults_walk.h"
#include "model/set_triple.h"
#include "rules/program_start.h"
#include "rules/rule_condition.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

// Every item's value is its own name, so that comparisons go either way.
class Echo final : public rules::OperandSource {
 public:
  WideString ResolveOperand(WideStringView displayName) override {
    ++asked;
    return WideString(displayName);
  }
  std::size_t asked = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const WideString text = base::FromUtf8({reinterpret_cast<const char*>(bytes), size});

  Echo echo;
  const auto action = rules::ChooseAction(text, echo);
  Require(!action || action->size() <= text.size());
  Require(echo.asked <= text.size());

  if (const auto triple = model::ParseSetTriple(text)) {
    Require(triple->oid + u"|" + triple->type + u"|" + triple->value == text);
  }
  const rules::CommandLine command = rules::SplitCommandLine(text);
  Require(command.program.size() + command.arguments.size() <= text.size());
  Require(model::ThirdPart(text).size() <= text.size());
  return 0;
}
