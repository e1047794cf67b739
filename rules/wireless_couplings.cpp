#include "rules/wireless_couplings.h"

namespace rules::wireless {
namespace {

// clang-format off

constexpr Among kAny = Any();
constexpr Among kNone = WideStringView();
constexpr Among kAdHoc = WideStringView(u"2");

// Authentication
constexpr Among kOpen = WideStringView(u"1");
constexpr Among kOpenOrShared = WideStringView(u"12");
constexpr Among kWpa = WideStringView(u"4");
constexpr Among kWpaOrPsk = WideStringView(u"45");
constexpr Among kWpaNone = WideStringView(u"6");
constexpr Among kPskOrWpaNone = WideStringView(u"56");

// Encryption
constexpr Among kDisabled = WideStringView(u"1");
constexpr Among kTkip = WideStringView(u"4");

// Key index
constexpr Among kAutomatic = WideStringView(u"4");

// 802.1X
constexpr Among kOff = WideStringView(u"0");

constexpr WideStringView kOpened = u"Network Authentication changed to Open";
constexpr WideStringView kUnencrypted = u"Data Encryption has been disabled";
constexpr WideStringView kEncrypted = u"Data Encryption changed to TKIP";
constexpr WideStringView kMethodOff = u"802.1X authentication has been disabled";
constexpr WideStringView kMethodOn = u"802.1X authentication has been enabled";

constexpr Coupling kAuthentications[] = {
    // network  authentication  encryption  choices                                not allowed  becomes  alert
    {kAdHoc,    kAny,           kAny,       u"1#Open|2#Shared|6#WPA-None",         kWpaOrPsk,   u"1",    kOpened},
    {kAny,      kAny,           kAny,       u"1#Open|2#Shared|4#WPA|5#WPA-PSK",    kWpaNone,    u"1",    kOpened},
};

constexpr Coupling kEncryptions[] = {
    // network  authentication  encryption  choices               not allowed            becomes  alert
    {kAny,      kOpenOrShared,  kAny,       u"1#Disabled|0#WEP",  kTkip,                 u"1",    kUnencrypted},
    {kAny,      kWpaOrPsk,      kAny,       u"0#WEP|4#TKIP",      kDisabled,             u"4",    kEncrypted},
    {kAny,      kWpaNone,       kAny,       u"4#TKIP",            Among::AllBut(u"4"),   u"4",    u""},
};

constexpr Coupling kMethods8021X[] = {
    // network  authentication  encryption  choices                      not allowed           becomes  alert
    {kAdHoc,    kAny,           kAny,       u"0#Disabled",               Among::AllBut(u"0"),  u"0",    kMethodOff},
    {kAny,      kAny,           kDisabled,  u"0#Disabled",               Among::AllBut(u"0"),  u"0",    kMethodOff},
    {kAny,      kOpenOrShared,  kAny,       u"0#Disabled|13#TLS|25#PEAP", kNone,               u"",     u""},
    {kAny,      kWpaOrPsk,      kAny,       u"13#TLS|25#PEAP",           kOff,                 u"13",   kMethodOn},
};

constexpr auto kAsItIs = Visibility::kAsItIs;
constexpr auto kShown = Visibility::kShown;
constexpr auto kHidden = Visibility::kHidden;
constexpr WideStringView kAutomaticOnly = u"1#Automatic";
constexpr WideStringView kAutomaticOrEntered = u"1#Automatic|0#Enter Key and Index";

constexpr KeyCoupling kKeys[] = {
    // authentication  encryption  key index    key setting: choices, value   key index  PSK    value    index    setting
    {kWpa,             kAny,       kAny,        kAutomaticOnly,      u"1",    u"4",      false, kHidden, kHidden, kHidden},
    {kOpen,            kDisabled,  kAny,        kAutomaticOnly,      u"1",    u"4",      false, kHidden, kHidden, kHidden},
    {kOpenOrShared,    kAny,       kAutomatic,  kAutomaticOrEntered, u"1",    u"",       false, kHidden, kHidden, kAsItIs},
    {kOpenOrShared,    kAny,       kAny,        kAutomaticOrEntered, u"0",    u"",       false, kShown,  kShown,  kAsItIs},
    {kPskOrWpaNone,    kAny,       kAny,        u"",                 u"",     u"0",      true,  kShown,  kHidden, kHidden},
};

// clang-format on

}  // namespace

std::span<const Coupling> AuthenticationCouplings() { return kAuthentications; }
std::span<const Coupling> EncryptionCouplings() { return kEncryptions; }
std::span<const Coupling> Method8021XCouplings() { return kMethods8021X; }
std::span<const KeyCoupling> KeyCouplings() { return kKeys; }

}  // namespace rules::wireless
