#include "authoring/units.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace authoring {
namespace {

struct Unit {
  std::string_view written;
  std::string_view said;
  bool isSymbol = false;  // its case counts; one of a single letter stands in parentheses
};

// Of two that begin alike the longer one comes first.
constexpr Unit kUnits[] = {
    {"tenths of a second", "tenths of a second"},
    {"hundredths of a second", "hundredths of a second"},
    {"microseconds", "microseconds"},
    {"milliseconds", "milliseconds"},
    {"seconds", "seconds"},
    {"minutes", "minutes"},
    {"hours", "hours"},
    {"days", "days"},
    {"weeks", "weeks"},
    {"percent", "percent"},
    {"degrees celsius", "degrees Celsius"},
    {"degrees fahrenheit", "degrees Fahrenheit"},
    {"degrees", "degrees"},
    {"kilometres", "kilometres"},
    {"kilometers", "kilometres"},
    {"millimetres", "millimetres"},
    {"millimeters", "millimetres"},
    {"centimetres", "centimetres"},
    {"centimeters", "centimetres"},
    {"metres", "metres"},
    {"meters", "metres"},
    {"kilograms", "kilograms"},
    {"grams", "grams"},
    {"tonnes", "tonnes"},
    {"millivolts", "millivolts"},
    {"volts", "volts"},
    {"milliamperes", "milliamperes"},
    {"amperes", "amperes"},
    {"milliwatts", "milliwatts"},
    {"watts", "watts"},
    {"characters", "characters"},
    {"bytes", "bytes"},
    {"kilobytes", "kilobytes"},
    {"megabytes", "megabytes"},
    {"hertz", "Hz"},
    {"kilohertz", "kHz"},
    {"megahertz", "MHz"},
    {"pixels", "pixels"},
    {"baud", "baud"},
    {"km/h", "km/h", true},
    {"m/s", "m/s", true},
    {"mph", "mph", true},
    {"ms", "milliseconds", true},
    {"sec", "seconds", true},
    {"mm", "millimetres", true},
    {"cm", "centimetres", true},
    {"kg", "kilograms", true},
    {"mV", "millivolts", true},
    {"mA", "milliamperes", true},
    {"mW", "milliwatts", true},
    {"dBm", "dBm", true},
    {"dB", "dB", true},
    {"Hz", "Hz", true},
    {"kHz", "kHz", true},
    {"MHz", "MHz", true},
    {"GHz", "GHz", true},
    {"bit/s", "bit/s", true},
    {"kbit/s", "kbit/s", true},
    {"Mbit/s", "Mbit/s", true},
    {"KB", "kilobytes", true},
    {"MB", "megabytes", true},
    {"px", "pixels", true},
    {"%", "percent", true},
    {"\u00B0C", "degrees Celsius", true},
    {"\u00B0F", "degrees Fahrenheit", true},
    {"s", "seconds", true},
    {"min", "minutes", true},
    {"h", "hours", true},
    {"m", "metres", true},
    {"g", "grams", true},
    {"V", "volts", true},
    {"A", "amperes", true},
    {"W", "watts", true},
};
// These are too short, or mean other things as well, to be taken for a unit without parentheses around them.
constexpr std::array<std::string_view, 8> kWantParentheses = {"s", "min", "h", "m", "g", "V", "A", "W"};

bool IsLetter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '/'; }

bool Matches(std::string_view text, std::size_t at, const Unit& unit) {
  if (text.size() - at < unit.written.size()) return false;
  const std::string_view part = text.substr(at, unit.written.size());
  const std::size_t end = at + part.size();
  const bool begins = at == 0 || !IsLetter(text[at - 1]) || !IsLetter(part.front());
  const bool ends = end == text.size() || !IsLetter(text[end]);
  if (!begins || !ends) return false;
  if (!unit.isSymbol) {
    return std::equal(part.begin(), part.end(), unit.written.begin(), [](char a, char b) {
      return std::tolower(static_cast<unsigned char>(a)) == static_cast<unsigned char>(b);
    });
  }
  if (part != unit.written) return false;
  if (std::find(kWantParentheses.begin(), kWantParentheses.end(), unit.written) == kWantParentheses.end()) return true;
  const bool isEnclosed = at > 0 && end < text.size();
  return isEnclosed && ((text[at - 1] == '(' && text[end] == ')') || (text[at - 1] == '[' && text[end] == ']'));
}

// The first one in the text.
std::string_view FirstUnit(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto* found =
        std::find_if(std::begin(kUnits), std::end(kUnits), [&](const Unit& unit) { return Matches(text, at, unit); });
    if (found != std::end(kUnits)) return found->said;
  }
  return {};
}

}  // namespace

std::string UnitIn(std::string_view name, std::string_view description) {
  const std::string_view unit = FirstUnit(description);
  return std::string(unit.empty() ? FirstUnit(name) : unit);
}

}  // namespace authoring
