// How a program, or each of its commands, describes its arguments and options, and what it does.
//
// Only command.cpp sees the library that reads command lines: it takes longer to compile than the commands themselves.
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tools {

// Exit statuses of every command.
inline constexpr int kFine = 0;
inline constexpr int kFound = 1;     // what was asked about is not in order, or there is none
inline constexpr int kUnusable = 2;  // arguments, files

// The variables that are named here live until the program ends.
class Command {
 public:
  Command(CLI::App& app, int& status) : app_(app), status_(status) {}

  // Names are those of an option ("-o,--output") or, without a dash, of an argument ("FOLDER").
  void Text(const std::string& names, std::string& value, const std::string& help);
  void RequiredText(const std::string& names, std::string& value, const std::string& help);
  void Texts(const std::string& names, std::vector<std::string>& values, const std::string& help);
  void Flag(const std::string& name, bool& value, const std::string& help);
  void Number(const std::string& name, std::size_t& value, std::size_t smallest, std::size_t largest,
              const std::string& help);
  void Choice(const std::string& name, const std::vector<std::string>& choices,
              const std::function<void(const std::string& choice)>& take, const std::string& help);
  // Of two options only one may be given.
  void Exclude(const std::string& name, const std::string& other);
  // An option says something only beside another.
  void Need(const std::string& name, const std::string& other);

  // What stands below the options in --help.
  void Remarks(const std::string& text);

  // Runs when the command was asked for; what it returns is the exit status of the program.
  void Do(std::function<int()> run);

 private:
  CLI::App& app_;
  int& status_;
};

struct CommandRow {
  const char* name;
  const char* description;
  std::function<void(Command)> describe;
};

struct Program {
  const char* name;
  const char* description;
  const char* version;
  const char* remarks;  // below the commands in --help
  std::vector<CommandRow> commands;
  std::function<void(Command)> describe = {};
};

// Runs the command that the arguments name, or the program itself when it has no commands and `describe` says what it
// does. Returns the exit status; kUnusable, after it was said on `errors` why, when the arguments cannot be used.
int RunCommandLine(const Program& program, const std::vector<std::string>& arguments, std::ostream& out,
                   std::ostream& errors);

}  // namespace tools
