#include "tools/command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace tools {
namespace {

constexpr const char* kSeeHelp = "\nRun with --help for more information.\n";

// An argument's name says all that --help has to say of what is given for it; an option's does not.
CLI::Option* Plainly(CLI::Option* option) { return option->get_positional() ? option->option_text(" ") : option; }

bool HasCommand(const Program& program, const std::string& name) {
  return std::any_of(program.commands.begin(), program.commands.end(),
                     [&name](const CommandRow& row) { return row.name == name; });
}

// Of several commands one has to come first, if nothing is asked of the program itself.
bool NamesACommand(const Program& program, const std::vector<std::string>& arguments, std::ostream& errors) {
  const bool isNamed = !arguments.empty() && !arguments.front().starts_with('-');
  if (!arguments.empty() && (!isNamed || HasCommand(program, arguments.front()))) return true;
  errors << program.name << ": "
         << (isNamed ? "there is no command \"" + arguments.front() + "\"" : std::string("a command is missing"))
         << "; there are";
  for (const CommandRow& row : program.commands) errors << ' ' << row.name;
  errors << kSeeHelp;
  return false;
}

}  // namespace

void Command::Text(const std::string& names, std::string& value, const std::string& help) {
  Plainly(app_.add_option(names, value, help));
}

void Command::RequiredText(const std::string& names, std::string& value, const std::string& help) {
  Plainly(app_.add_option(names, value, help))->required();
}

void Command::Texts(const std::string& names, std::vector<std::string>& values, const std::string& help) {
  Plainly(app_.add_option(names, values, help));
}

void Command::Flag(const std::string& name, bool& value, const std::string& help) { app_.add_flag(name, value, help); }

void Command::Number(const std::string& name, std::size_t& value, std::size_t smallest, std::size_t largest,
                     const std::string& help) {
  app_.add_option(name, value, help)
      ->check(CLI::Range(smallest, largest).description(""))
      ->type_name(std::to_string(smallest) + "-" + std::to_string(largest));
}

void Command::Choice(const std::string& name, const std::vector<std::string>& choices,
                     const std::function<void(const std::string& choice)>& take, const std::string& help) {
  app_.add_option_function<std::string>(name, take, help)
      ->check(CLI::IsMember(choices).description(""))
      ->type_name(CLI::detail::join(choices, "|"));
}

void Command::Exclude(const std::string& name, const std::string& other) {
  app_.get_option(name)->excludes(app_.get_option(other));
}

void Command::Need(const std::string& name, const std::string& other) {
  app_.get_option(name)->needs(app_.get_option(other));
}

void Command::Remarks(const std::string& text) { app_.footer(text); }

void Command::Do(std::function<int()> run) {
  app_.callback([status = &status_, run = std::move(run)] { *status = run(); });
}

int RunCommandLine(const Program& program, const std::vector<std::string>& arguments, std::ostream& out,
                   std::ostream& errors) {
  CLI::App app(program.description, program.name);
  app.allow_windows_style_options(false);  // "/" begins a path, there too
  if (!program.commands.empty()) app.require_subcommand(1);
  app.set_version_flag("--version", program.version);
  app.footer(program.remarks);
  app.failure_message([&program](const CLI::App*, const CLI::Error& error) {
    return std::string(program.name) + ": " + error.what() + kSeeHelp;
  });
  int status = kFine;
  if (!program.commands.empty() && !NamesACommand(program, arguments, errors)) return kUnusable;
  if (program.describe) program.describe(Command(app, status));
  for (const CommandRow& row : program.commands) {
    row.describe(Command(*app.add_subcommand(row.name, row.description), status));
  }
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    status = app.exit(error, out, errors) == 0 ? kFine : kUnusable;
  }
  // On a full disk the answer must not look whole.
  if (out.flush()) return status;
  errors << program.name << ": the answer cannot be written\n";
  return kUnusable;
}

}  // namespace tools
