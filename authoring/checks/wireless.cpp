// Checks of what the wireless rules need.
#include "authoring/checks/lists.h"

#include "base/utf8.h"
#include "rules/wireless_couplings.h"

#include <algorithm>
#include <map>

namespace authoring::checks {
namespace {

constexpr WideStringView kVerify = u"VerifyNetUI";

struct Setting {
  WideStringView oid;
  const char* name;
};
constexpr Setting kReadSettings[] = {
    {rules::wireless::kNetworkType, "network type"},  {rules::wireless::kAuthentication, "authentication"},
    {rules::wireless::kEncryption, "encryption"},     {rules::wireless::kKeyIndex, "key index"},
    {rules::wireless::kMethod8021X, "802.1X method"},
};

bool NamesVerify(const Subject& subject) {
  if (base::EqualsIgnoringCase(subject.Get(Attribute::kOnEnter), kVerify)) return true;
  const auto commands = subject.ExitCommands();
  return std::find(commands.begin(), commands.end(), kVerify) != commands.end();
}

// What VerifyNetUI lets people choose of a setting, in whatever state; empty for a setting that it leaves alone.
std::map<WideString, WideString> OfferedChoices(WideStringView oid) {
  using namespace rules::wireless;
  std::map<WideString, WideString> offered;
  const auto add = [&offered](WideStringView list) {
    const values::ChoiceFormat choices(list, values::KeyMode::kText);
    for (const auto& choice : choices.Entries()) offered.emplace(choice.key, choice.text);
  };
  const auto addAll = [&add](const auto& rows) {
    for (const auto& row : rows) add(row.choices);
  };
  if (oid == kAuthentication) addAll(AuthenticationCouplings());
  if (oid == kEncryption) addAll(EncryptionCouplings());
  if (oid == kMethod8021X) addAll(Method8021XCouplings());
  if (oid == kKeySetting) {
    for (const auto& row : KeyCouplings()) add(row.settingChoices);
  }
  return offered;
}

bool IsWirelessProperty(const Subject& subject) {
  using namespace rules::wireless;
  const WideStringView known[] = {kNetworkType, kAuthentication, kEncryption, kKeyIndex, kMethod8021X, kKeySetting};
  return std::find(std::begin(known), std::end(known), subject.Oid()) != std::end(known);
}

}  // namespace

void WirelessSettingMissing(const Survey& survey, Findings& findings) {
  const auto& subjects = survey.Subjects();
  const auto first = std::find_if(subjects.begin(), subjects.end(), NamesVerify);
  if (first == subjects.end()) return;
  std::string missing;
  for (const Setting& setting : kReadSettings) {
    const bool isThere = !survey.WithOid(setting.oid).empty() || survey.DeviceText(setting.oid) != nullptr;
    if (isThere) continue;
    missing += (missing.empty() ? "" : ", ") + std::string(setting.name) + " " + base::ToUtf8(setting.oid);
  }
  if (missing.empty()) return;
  findings.Add(
      *first,
      "VerifyNetUI takes these settings for empty, since neither an entry nor the device has them: " + missing + ".",
      "Give each an entry, or the device its value.");
}

void WirelessKeyType(const Survey& survey, Findings& findings) {
  const auto keys = survey.WithOid(rules::wireless::kKeyValue);
  if (keys.empty() || std::none_of(survey.Subjects().begin(), survey.Subjects().end(), NamesVerify)) return;
  for (const Subject* key : keys) {
    if (key->Type() == values::TypeCode::kHex && key->Has(Attribute::kWep)) continue;
    findings.Add(
        *key,
        "VerifyNetUI makes this property a Hex or a Hex32, whatever its Type; without WEP no pre-shared key is taken.",
        "Make its Type Hex and give it WEP with the text that its line is to show.");
  }
}

void WirelessChoiceReplaced(const Survey& survey, Findings& findings) {
  if (std::none_of(survey.Subjects().begin(), survey.Subjects().end(), NamesVerify)) return;
  for (const Subject& subject : survey.Subjects()) {
    const auto offered = OfferedChoices(subject.Oid());
    if (offered.empty() || !subject.HasChoiceList()) continue;
    for (const auto& choice : subject.Choices().Entries()) {
      const auto same = offered.find(choice.key);
      if (same != offered.end() && same->second == choice.text) continue;
      findings.Add(subject, Attribute::kChoiceFmt,
                   "VerifyNetUI gives this property choices of its own" +
                       (same == offered.end() ? ", and " + Quoted(choice.text) + " is none of them."
                                              : ": " + Quoted(choice.text) + " reads " + Quoted(same->second) + "."),
                   "Write the choices as VerifyNetUI has them.");
    }
  }
}

void WirelessNotVerified(const Survey& survey, Findings& findings) {
  if (std::none_of(survey.Subjects().begin(), survey.Subjects().end(), NamesVerify)) return;
  for (const Subject& subject : survey.Subjects()) {
    if (!IsWirelessProperty(subject) || NamesVerify(subject) || !subject.IsEditable()) continue;
    findings.Add(
        subject,
        "After an edit of it the other wireless settings are not made to agree until the page is entered anew.",
        "Give it _OnExit VerifyNetUI.");
  }
}

}  // namespace authoring::checks
