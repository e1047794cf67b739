#include "simulator/storage_watch.h"

#include "base/utf8.h"
#include "platform/host/root_path.h"

#include <algorithm>
#include <array>

namespace simulator {
namespace {

constexpr std::array<WideStringView, 3> kOwnFiles = {u"registry.reg", u"device.txt", u"tables.txt"};
constexpr WideStringView kDocument = u".xml";

// Names match without case, and "\" is "/", as on the terminal.
bool AreOneFile(WideStringView a, WideStringView b) {
  const auto left = platform::host::SplitPath(a);
  const auto right = platform::host::SplitPath(b);
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), base::EqualsIgnoringCase);
}

}  // namespace

bool IsReadAtStart(const std::string& file, const std::string& source) {
  if (file.empty()) return true;
  const WideString name = base::FromUtf8(file);
  const WideStringView end = WideStringView(name).substr(name.size() - std::min(name.size(), kDocument.size()));
  const bool isHidden = name.front() == u'.' || name.find(u"/.") != WideString::npos;
  if (!isHidden && base::EqualsIgnoringCase(end, kDocument)) return true;
  if (!source.empty() && AreOneFile(name, base::FromUtf8(source))) return true;
  return std::any_of(kOwnFiles.begin(), kOwnFiles.end(), [&](WideStringView own) { return name == own; });
}

}  // namespace simulator
