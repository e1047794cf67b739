// How the wireless settings depend on one another, as tables.
#pragma once

#include "base/wide_string.h"

#include <span>

namespace rules::wireless {

inline constexpr WideStringView kNetworkType = u"1.2.840.10036.1.1.1.10.2";
inline constexpr WideStringView kAuthentication = u"1.2.840.10036.1.2.1.2.2";
inline constexpr WideStringView kEncryption = u"1.2.840.10036.1.5.1.1.2";
inline constexpr WideStringView kKeyIndex = u"1.2.840.10036.1.5.1.2.2";
inline constexpr WideStringView kKeyValue = u"1.2.840.10036.1.3.1.2.2";
inline constexpr WideStringView kMethod8021X = u"1.2.840.10036.4242.1.2";
inline constexpr WideStringView kKeySetting = u"_Network Key Setting";
inline constexpr WideStringView kSecurityProperties = u"_Security Properties";
inline constexpr WideStringView kNetworkSettings = u"1.2.840.10036.1.1.1.8.2";

// Settings are told apart by their first characters alone; an empty one has the character 0.
struct Settings {
  char16_t networkType = 0;
  char16_t authentication = 0;
  char16_t encryption = 0;
  char16_t keyIndex = 0;
  char16_t method8021X = 0;
};

// A set of first characters.
struct Any {};
class Among {
 public:
  constexpr Among(Any) : others_(true) {}  // NOLINT(google-explicit-constructor): tables read better
  constexpr Among(WideStringView characters) : characters_(characters) {}  // NOLINT(google-explicit-constructor)
  static constexpr Among AllBut(WideStringView characters) { return Among(characters, true); }

  constexpr bool Holds(char16_t character) const {
    return (characters_.find(character) != WideStringView::npos) != others_;
  }

 private:
  constexpr Among(WideStringView characters, bool others) : characters_(characters), others_(others) {}

  WideStringView characters_;
  bool others_ = false;
};

// What a setting may be while others are what they are. The first row that fits counts; none: nothing changes.
struct Coupling {
  Among networkType;
  Among authentication;
  Among encryption;
  WideStringView choices;
  Among notAllowed;        // such a value is corrected
  WideStringView becomes;  // into this
  WideStringView alert;    // and this is said; empty: nothing
};

std::span<const Coupling> AuthenticationCouplings();
std::span<const Coupling> EncryptionCouplings();
std::span<const Coupling> Method8021XCouplings();

// How the three key items stand. The first row that fits counts; empty texts and kAsItIs leave an item alone.
enum class Visibility { kAsItIs, kShown, kHidden };
struct KeyCoupling {
  Among authentication;
  Among encryption;
  Among keyIndex;
  WideStringView settingChoices;
  WideStringView settingValue;
  WideStringView keyIndexBecomes;
  bool isPreSharedKey;
  Visibility keyValue;
  Visibility keyIndexItem;
  Visibility setting;
};
std::span<const KeyCoupling> KeyCouplings();

template <typename Row, typename Fits>
const Row* FirstFitting(std::span<const Row> rows, Fits fits) {
  for (const Row& row : rows) {
    if (fits(row)) return &row;
  }
  return nullptr;
}

}  // namespace rules::wireless
