#include "authoring/wireless_words.h"

#include "base/utf8.h"
#include "rules/wireless_couplings.h"

namespace authoring {
namespace {

namespace wireless = rules::wireless;

// "{...}" stands for the name that a setting has in this configuration.
const struct {
  WideStringView oid;
  const char* words;
} kSentences[] = {
    {wireless::kAuthentication,
     "The choices depend on {network type}: WPA and WPA-PSK are for infrastructure, WPA-None is for ad hoc networks."},
    {wireless::kEncryption,
     "The choices depend on {authentication}: WEP or TKIP for WPA and WPA-PSK, TKIP alone for WPA-None, Disabled or "
     "WEP "
     "for the others."},
    {wireless::kMethod8021X,
     "The choices depend on {network type}, {authentication} and {encryption}: Disabled alone for ad hoc networks and "
     "without encryption, TLS or PEAP for WPA and WPA-PSK."},
    {wireless::kKeySetting, "Shown only when {authentication} is Shared, or is Open and {encryption} is not Disabled."},
    {wireless::kKeyIndex,
     "Shown only when a key is entered: {authentication} is Shared, or is Open and {encryption} is not Disabled, and "
     "{key setting} is not Automatic."},
    {wireless::kKeyValue,
     "Shown only when {authentication} is WPA-PSK or WPA-None, or a key is entered: {key setting} is not Automatic."},
    {wireless::kSecurityProperties, "Shown only when {802.1X method} is not Disabled."},
};

const struct {
  const char* placeholder;
  WideStringView oid;
} kSettingNames[] = {
    {"{network type}", wireless::kNetworkType},  {"{authentication}", wireless::kAuthentication},
    {"{encryption}", wireless::kEncryption},     {"{key setting}", wireless::kKeySetting},
    {"{802.1X method}", wireless::kMethod8021X},
};

bool Verifies(const model::MenuItem& item) {
  const model::MenuItem* menu = item.Parent();
  const config::ConfigKey* key = menu == nullptr ? nullptr : menu->Key();
  return key != nullptr && base::EqualsIgnoringCase(key->Value(u"_OnEnter"), u"VerifyNetUI");
}

}  // namespace

std::string WirelessInWords(const Trial& trial, const model::MenuItem& item) {
  const config::ConfigKey* key = item.Key();
  if (key == nullptr || !Verifies(item)) return {};
  const WideStringView oid = key->Value(TextId::kOid);
  std::string words;
  for (const auto& sentence : kSentences) {
    if (oid == sentence.oid) words = sentence.words;
  }
  for (const auto& name : kSettingNames) {
    const std::string placeholder = name.placeholder;
    const auto* property = trial.Model().FindDescriptor(name.oid);
    const std::string written = property == nullptr ? placeholder.substr(1, placeholder.size() - 2)
                                                    : base::ToUtf8(base::Trim(property->DisplayName()));
    for (std::size_t at = words.find(placeholder); at != std::string::npos; at = words.find(placeholder, at)) {
      words.replace(at, placeholder.size(), written);
      at += written.size();
    }
  }
  return words;
}

}  // namespace authoring
