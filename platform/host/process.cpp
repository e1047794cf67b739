#include "platform/process.h"

#include "platform/host/environment.h"
#include "platform/host/program_start.h"

#include <algorithm>
#include <string>

namespace platform {
namespace {

struct Program {
  std::uint32_t error = 0;
  std::string fullName;
};

Program Check(const host::Place& place) {
  if (!place.folder) return {host::kPathNotFound, {}};
  if (!place.exists) return {host::kFileNotFound, {}};
  return {host::WhyNoProgram(place), place.fullName};
}

// No file of the terminal has such a name; quotes do not make it another.
bool IsBadName(WideStringView name) {
  return std::any_of(name.begin(), name.end(), [](char16_t unit) {
    return unit < u' ' || WideStringView(u"\"*<>?|").find(unit) != WideStringView::npos;
  });
}

// Named without a folder it is looked for in \Windows and then in the root.
Program Find(const WideString& name) {
  if (host::IsRefused(host::Use::kStartProgram)) return {host::kRefused, {}};
  if (IsBadName(name)) return {host::kBadName, {}};
  if (host::SplitPath(name).empty()) return {host::kPathNotFound, {}};
  if (name.find_first_of(u"\\/") == WideString::npos) {
    const Program inWindows = Check(host::FindPlace(u"\\Windows\\" + name));
    if (inWindows.error == 0) return inWindows;
  }
  return Check(host::FindPlace(name));
}

}  // namespace

std::uint32_t StartProgram(const WideString& program, const WideString& arguments) {
  const Program found = Find(program);
  const std::uint32_t result = found.error != 0 ? found.error : host::Spawn(found.fullName, arguments);
  if (auto* observer = host::CurrentEnvironment().observer) observer->Started(program, arguments, result);
  return result;
}

}  // namespace platform
