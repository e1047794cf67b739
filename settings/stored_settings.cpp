#include "settings/stored_settings.h"

#include <array>

namespace settings {
namespace {

constexpr WideStringView kOpening = u"<Tag>";
constexpr WideStringView kClosing = u"<\\Tag>";

WideString UnitsIn(std::string_view bytes) {
  WideString units;
  units.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]);
    const auto high = static_cast<unsigned char>(bytes[i + 1]);
    units.push_back(static_cast<char16_t>(low | (high << 8)));
  }
  return units;
}

// Takes the next record off the text. False: there is none.
bool TakeRecord(WideStringView& text, WideString& record) {
  if (!text.starts_with(kOpening)) return false;
  const std::size_t end = text.find(kClosing, kOpening.size());
  if (end == WideStringView::npos) return false;
  record = text.substr(kOpening.size(), end - kOpening.size());
  text.remove_prefix(end + kClosing.size());
  return true;
}

}  // namespace

bool AreStoredSettings(std::string_view bytes) { return UnitsIn(bytes.substr(0, 10)) == kOpening; }

SettingsFile ReadStoredSettings(const std::string& file, std::string_view bytes) {
  SettingsFile read;
  const WideString units = UnitsIn(bytes);
  WideStringView text = units;
  while (!text.empty()) {
    const authoring::Position at{file, read.settings.size() + 1, 0};
    std::array<WideString, 3> records;  // path, OID, value
    bool isWhole = TakeRecord(text, records[0]) && text.starts_with(u'\n');
    if (isWhole) text.remove_prefix(1);
    isWhole = isWhole && TakeRecord(text, records[1]) && TakeRecord(text, records[2]);
    if (!isWhole || bytes.size() % 2 != 0) {
      read.Complain(at, "stored settings are a path, an OID and a value each; this one is not whole");
      return read;
    }
    read.Add({records[1]}, {GivenValue::Kind::kStored, records[2]}, at);
  }
  return read;
}

}  // namespace settings
