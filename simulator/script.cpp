#include "simulator/script.h"

#include "base/utf8.h"
#include "simulator/text_file.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace simulator {
namespace {

using Kind = Command::Kind;

constexpr std::string_view kBlanks = " \t";

// Each fills a command from what follows its word, and answers what is wrong with that.
std::string Nothing(std::string_view rest, Command&) {
  return rest.find_first_not_of(kBlanks) == std::string_view::npos ? "" : "takes nothing after it";
}

std::string Keys(std::string_view rest, Command& command) {
  while (true) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty()) break;
    const std::size_t end = std::min(rest.find_first_of(kBlanks), rest.size());
    const auto key = KeyByName(rest.substr(0, end));
    if (!key) {
      return "does not know the key \"" + std::string(rest.substr(0, end)) + "\"; keys are " + KeyNames() +
             " and any single character";
    }
    command.keys.push_back(*key);
    rest.remove_prefix(end);
  }
  return command.keys.empty() ? "needs at least one key" : "";
}

std::string Characters(std::string_view rest, Command& command) {
  for (const char16_t character : base::FromUtf8(rest)) command.keys.push_back(KeyForCharacter(character));
  return command.keys.empty() ? "needs a text" : "";
}

std::string ControlId(std::string_view rest, Command& command) {
  const std::size_t last = rest.find_last_not_of(kBlanks);
  rest = rest.substr(0, last == std::string_view::npos ? 0 : last + 1);
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), command.controlId);
  return error == std::errc() && end == rest.data() + rest.size() ? "" : "needs the number of a control";
}

std::string Text(std::string_view rest, Command& command) {
  command.text = rest;
  return rest.empty() ? "needs a text" : "";
}

const struct {
  std::string_view word;
  Kind kind;
  std::string (*fill)(std::string_view rest, Command& command);
} kCommands[] = {
    {"key", Kind::kKey, Keys},       {"type", Kind::kType, Characters},    {"press", Kind::kPress, ControlId},
    {"dump", Kind::kDump, Nothing},  {"effects", Kind::kEffects, Nothing}, {"debug", Kind::kDebug, Nothing},
    {"expect", Kind::kExpect, Text}, {"wait", Kind::kWait, Nothing},
};

std::string ParseLine(std::string_view line, Command& command) {
  const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
  const std::string_view word = line.substr(0, end);
  const auto* known =
      std::find_if(std::begin(kCommands), std::end(kCommands), [&](const auto& entry) { return entry.word == word; });
  if (known == std::end(kCommands)) return "there is no command \"" + std::string(word) + "\"";
  command.kind = known->kind;
  // One blank ends the word; what follows belongs to the text of "type" and "expect".
  std::string problem = known->fill(line.substr(std::min(end + 1, line.size())), command);
  if (!problem.empty()) problem = "\"" + std::string(word) + "\" " + problem;
  return problem;
}

}  // namespace

Script ParseScript(std::string_view bytes) {
  Script script;
  ForEachLine(bytes, [&](std::size_t number, std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    if (line.empty() || line.front() == '#') return true;
    Command command;
    command.line = number;
    script.problem = ParseLine(line, command);
    if (!script.problem.empty()) {
      script.brokenLine = number;
      script.commands.clear();
      return false;
    }
    script.commands.push_back(std::move(command));
    return true;
  });
  return script;
}

}  // namespace simulator
