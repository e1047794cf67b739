#include "platform/process.h"

#include "platform/win32/owned_handle.h"

namespace platform {

namespace {

using win32::OwnedHandle;

#ifndef UNDER_CE
// The terminal looks for a program without a folder in \Windows and then in its root.
WideString FullName(const WideString& program) {
  if (program.find_first_of(u"\\/:") != WideString::npos) return program;
  const WideString inWindows = u"\\Windows\\" + program;
  const bool exists = GetFileAttributesW(win32::ToApi(inWindows)) != INVALID_FILE_ATTRIBUTES;
  return exists ? inWindows : u"\\" + program;
}
#endif

BOOL Create(const WideString& program, const WideString& arguments, PROCESS_INFORMATION& process) {
#ifdef UNDER_CE
  WideString commandLine = arguments;
  return CreateProcessW(win32::ToApi(program), win32::ToApi(commandLine), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        nullptr, &process);
#else
  // A PC's command line begins with the program.
  WideString commandLine = u"\"" + program + u"\" " + arguments;
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  return CreateProcessW(win32::ToApi(FullName(program)), win32::ToApi(commandLine), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &process);
#endif
}

}  // namespace

std::uint32_t StartProgram(const WideString& program, const WideString& arguments) {
  PROCESS_INFORMATION process = {};
  if (!Create(program, arguments, process)) return GetLastError();
  const OwnedHandle processHandle(process.hProcess);
  const OwnedHandle threadHandle(process.hThread);
  return 0;
}

}  // namespace platform
