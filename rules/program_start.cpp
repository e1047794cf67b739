#include "rules/program_start.h"

#include "base/format.h"
#include "base/string_table.h"
#include "platform/debug.h"
#include "platform/process.h"

#include <algorithm>

namespace rules {

CommandLine SplitCommandLine(WideStringView text) {
  constexpr WideStringView kBlanks = u" \t";
  constexpr std::size_t kMostCharacters = 519;

  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::size_t searchFrom = text.starts_with(u'"') ? text.find(u'"', 1) : 0;
  const std::size_t end =
      searchFrom == WideStringView::npos ? WideStringView::npos : text.find_first_of(kBlanks, searchFrom);
  CommandLine command;
  command.program = text.substr(0, std::min(end, kMostCharacters));
  if (end != WideStringView::npos) command.arguments = text.substr(end + 1);
  return command;
}

void StartProgram(const CommandLine& command, WideStringView named, values::MessageBoxes& boxes) {
  const std::uint32_t error = platform::StartProgram(command.program, command.arguments);
  if (error == 0) return;
  boxes.Show(base::Format(u"Unable to execute command %s", named), u"Error", values::kMessageBox);
  platform::DebugOutput(base::Format(u"CKelConfigApp::Assigned CreateProccess err 0x%x\r\n", error));
}

void StartFlashWriter(values::MessageBoxes& boxes) {
  const WideStringView program = LoadText(TextId::kFlashWriterProgram);
  StartProgram({WideString(program), WideString(LoadText(TextId::kFlashWriterArguments))}, program, boxes);
}

}  // namespace rules
