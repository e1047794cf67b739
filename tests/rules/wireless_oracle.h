// What the wireless rules are to do, written out case by case and apart from the program's own tables.
#pragma once

#include "base/wide_string.h"

#include <map>
#include <string>
#include <vector>

namespace tests {

struct WirelessCase {
  WideString networkType, authentication, encryption, keyIndex, method;
};

// Values and choices after the rules have run, hidden items, the type of the key, and sets and alerts in their order.
struct WirelessResult {
  WirelessCase values;
  WideString keySetting;
  std::map<std::string, WideString> choices;  // empty: as configured
  WideString keyType;
  std::map<std::string, bool> hidden;
  std::vector<WideString> events;
};

inline WirelessResult ExpectedWireless(const WirelessCase& before, const WideString& keySettingBefore) {
  WirelessResult r;
  r.values = before;
  r.keySetting = keySettingBefore;
  WirelessCase& v = r.values;
  const auto store = [&](const char16_t* oid, WideString& setting, const char16_t* to, const char16_t* alert) {
    setting = to;
    r.events.push_back(WideString(u"set ") + oid + u" Integer " + to);
    if (alert != nullptr) r.events.push_back(WideString(u"box Alert: ") + alert + u" [1]");
  };
  const bool adHoc = v.networkType == u"2";

  // Authentication
  if (adHoc) {
    r.choices["auth"] = u"1#Open|2#Shared|6#WPA-None";
    if (v.authentication == u"4" || v.authentication == u"5") {
      store(u"1.2.840.10036.1.2.1.2.2", v.authentication, u"1", u"Network Authentication changed to Open");
    }
  } else {
    r.choices["auth"] = u"1#Open|2#Shared|4#WPA|5#WPA-PSK";
    if (v.authentication == u"6") {
      store(u"1.2.840.10036.1.2.1.2.2", v.authentication, u"1", u"Network Authentication changed to Open");
    }
  }
  const bool open = v.authentication == u"1";
  const bool shared = v.authentication == u"2";
  const bool wpa = v.authentication == u"4";
  const bool psk = v.authentication == u"5";
  const bool wpaNone = v.authentication == u"6";

  // Encryption
  if (open || shared) {
    r.choices["enc"] = u"1#Disabled|0#WEP";
    if (v.encryption == u"4") {
      store(u"1.2.840.10036.1.5.1.1.2", v.encryption, u"1", u"Data Encryption has been disabled");
    }
  } else if (wpa || psk) {
    r.choices["enc"] = u"0#WEP|4#TKIP";
    if (v.encryption == u"1") {
      store(u"1.2.840.10036.1.5.1.1.2", v.encryption, u"4", u"Data Encryption changed to TKIP");
    }
  } else if (wpaNone) {
    r.choices["enc"] = u"4#TKIP";
    if (v.encryption != u"4") store(u"1.2.840.10036.1.5.1.1.2", v.encryption, u"4", nullptr);
  }

  // The key's items
  r.keyType = u"Hex";
  if (wpa || (open && v.encryption == u"1")) {
    r.choices["setting"] = u"1#Automatic";
    if (v.keyIndex != u"4") store(u"1.2.840.10036.1.5.1.2.2", v.keyIndex, u"4", nullptr);
    r.keySetting = u"1";
    r.hidden["value"] = r.hidden["index"] = r.hidden["setting"] = true;
  } else if (shared || open) {
    r.choices["setting"] = u"1#Automatic|0#Enter Key and Index";
    if (v.keyIndex == u"4") {
      r.keySetting = u"1";
      r.hidden["value"] = r.hidden["index"] = true;
    } else {
      r.keySetting = u"0";
    }
  } else if (psk || wpaNone) {
    r.keyType = u"Hex32";
    r.hidden["index"] = r.hidden["setting"] = true;
    if (v.keyIndex != u"0") store(u"1.2.840.10036.1.5.1.2.2", v.keyIndex, u"0", nullptr);
  }

  // 802.1X
  if (adHoc || v.encryption == u"1") {
    r.choices["method"] = u"0#Disabled";
    if (v.method != u"0") {
      store(u"1.2.840.10036.4242.1.2", v.method, u"0", u"802.1X authentication has been disabled");
    }
  } else if (open || shared) {
    r.choices["method"] = u"0#Disabled|13#TLS|25#PEAP";
  } else if (wpa || psk) {
    r.choices["method"] = u"13#TLS|25#PEAP";
    if (v.method == u"0") {
      store(u"1.2.840.10036.4242.1.2", v.method, u"13", u"802.1X authentication has been enabled");
    }
  }
  r.hidden["properties"] = v.method == u"0";
  return r;
}

}  // namespace tests
