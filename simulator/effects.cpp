#include "simulator/effects.h"

#include "base/utf8.h"
#include "simulator/quoted_text.h"

#include <cstdio>
#include <utility>

namespace simulator {
namespace {

std::string Code(std::uint32_t code) {
  char text[sizeof "0x80004005"] = {};
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(code));
  return text;
}

std::string Code(platform::ResultCode code) { return Code(static_cast<std::uint32_t>(code)); }

std::string Suffix(Operation operation) { return operation == Operation::kSpecial ? "special " : " "; }

}  // namespace

std::string GetLine(Operation operation, WideStringView oid, WideStringView type, platform::ResultCode code,
                    const std::optional<WideString>& value) {
  const std::string answer = code < 0 ? Code(code) : value ? Quoted(*value) : "null";
  return "get" + Suffix(operation) + base::ToUtf8(oid) + " " + Quoted(type) + " -> " + answer;
}

std::string SetLine(Operation operation, WideStringView oid, WideStringView type, WideStringView value,
                    platform::ResultCode code) {
  return "set" + Suffix(operation) + base::ToUtf8(oid) + " " + Quoted(type) + " " + Quoted(value) + " -> " + Code(code);
}

std::string TableLine(WideStringView table, WideStringView key, platform::ResultCode code, WideStringView text) {
  const std::string answer = code < 0 ? Code(code) : Quoted(text);
  return "table " + base::ToUtf8(table) + " " + base::ToUtf8(key) + " -> " + answer;
}

std::string PulseLine(WideStringView eventName) { return "pulse " + base::ToUtf8(eventName); }

std::string StartLine(WideStringView program, WideStringView arguments, std::uint32_t result) {
  return "start " + Quoted(program) + " " + Quoted(arguments) + " -> " + Code(result);
}

std::string WarmResetLine() { return "warm reset"; }

std::string ExitLine(int status) { return "exit " + std::to_string(status); }

void LineLog::Add(std::string line) {
  const std::lock_guard lock(mutex_);
  if (keepLines_) lines_.push_back(std::move(line));
}

std::vector<std::string> LineLog::Take() {
  const std::lock_guard lock(mutex_);
  return std::exchange(lines_, {});
}

}  // namespace simulator
