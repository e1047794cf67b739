#include "rules/wireless.h"

#include "base/string_table.h"

namespace rules {

using namespace wireless;

namespace {

WideString Integer() { return WideString(LoadText(TextId::kInteger)); }

char16_t FirstOf(WideStringView value) { return value.empty() ? u'\0' : value.front(); }

}  // namespace

char16_t Wireless::Read(WideStringView oid) const {
  return FirstOf(operands_.GetOperandValue(oid, LoadText(TextId::kInteger)));
}

WideString Wireless::ReadText(WideStringView oid) {
  WideString value;
  context_.device.DoSnmpGet(WideString(oid), WideString(LoadText(TextId::kOctetString)), value);
  return value;
}

void Wireless::Alert(WideStringView text, int kind) { context_.boxes.Show(text, u"Alert", kind); }

void Wireless::VerifyNetUI() {
  Settings settings;
  settings.networkType = Read(kNetworkType);
  settings.authentication = Read(kAuthentication);
  Couple(kAuthentication, AuthenticationCouplings(), settings, settings.authentication);
  settings.encryption = Read(kEncryption);
  Couple(kEncryption, EncryptionCouplings(), settings, settings.encryption);
  settings.keyIndex = Read(kKeyIndex);
  items_.SetItemType(kKeyValue, LoadText(TextId::kHex));
  Tell(WirelessChange::Kind::kType, kKeyValue, LoadText(TextId::kHex), settings);
  CoupleKeyItems(settings);
  settings.method8021X = Read(kMethod8021X);
  Couple(kMethod8021X, Method8021XCouplings(), settings, settings.method8021X);
  SetVisibility(kSecurityProperties, settings.method8021X == u'0' ? Visibility::kHidden : Visibility::kShown, settings);
  queue_.Submit();
}

void Wireless::Couple(WideStringView oid, std::span<const Coupling> rows, const Settings& settings, char16_t& setting) {
  const Coupling* row = FirstFitting(rows, [&](const Coupling& candidate) {
    return candidate.networkType.Holds(settings.networkType) &&
           candidate.authentication.Holds(settings.authentication) && candidate.encryption.Holds(settings.encryption);
  });
  if (row == nullptr) return;
  items_.SetItemChoices(oid, row->choices);
  Tell(WirelessChange::Kind::kChoices, oid, row->choices, settings);
  if (!row->notAllowed.Holds(setting)) return;
  Tell(WirelessChange::Kind::kValue, oid, row->becomes, settings);
  setting = FirstOf(row->becomes);
  const bool corrected = items_.CorrectValue(WideString(oid), Integer(), WideString(row->becomes));
  if (corrected && !row->alert.empty()) Alert(row->alert);
}

void Wireless::CoupleKeyItems(Settings& settings) {
  const KeyCoupling* row = FirstFitting(KeyCouplings(), [&](const KeyCoupling& candidate) {
    return candidate.authentication.Holds(settings.authentication) && candidate.encryption.Holds(settings.encryption) &&
           candidate.keyIndex.Holds(settings.keyIndex);
  });
  if (row == nullptr) return;
  if (!row->settingChoices.empty()) {
    items_.SetItemChoices(kKeySetting, row->settingChoices);
    Tell(WirelessChange::Kind::kChoices, kKeySetting, row->settingChoices, settings);
  }
  if (row->isPreSharedKey) {
    items_.SetItemType(kKeyValue, LoadText(TextId::kHex32));
    Tell(WirelessChange::Kind::kType, kKeyValue, LoadText(TextId::kHex32), settings);
  }
  if (!row->keyIndexBecomes.empty() && settings.keyIndex != FirstOf(row->keyIndexBecomes)) {
    Tell(WirelessChange::Kind::kValue, kKeyIndex, row->keyIndexBecomes, settings);
    settings.keyIndex = FirstOf(row->keyIndexBecomes);
    items_.CorrectValue(WideString(kKeyIndex), Integer(), WideString(row->keyIndexBecomes));
  }
  if (!row->settingValue.empty()) {
    items_.SetItemValue(kKeySetting, row->settingValue);
    Tell(WirelessChange::Kind::kValue, kKeySetting, row->settingValue, settings);
  }
  SetVisibility(kKeyValue, row->keyValue, settings);
  SetVisibility(kKeyIndex, row->keyIndexItem, settings);
  SetVisibility(kKeySetting, row->setting, settings);
}

void Wireless::SetVisibility(WideStringView key, Visibility visibility, const Settings& settings) {
  if (visibility == Visibility::kAsItIs) return;
  const bool shown = visibility == Visibility::kShown;
  Tell(shown ? WirelessChange::Kind::kShown : WirelessChange::Kind::kHidden, key, {}, settings);
  if (shown) {
    items_.ShowItem(key);
  } else {
    items_.HideItem(key);
  }
}

void Wireless::Tell(WirelessChange::Kind kind, WideStringView oid, WideStringView text,
                    const Settings& settings) const {
  if (context_.listener != nullptr) context_.listener->OnWireless({oid, kind, text, settings});
}

void Wireless::CheckWEPKey() {
  if (Read(kKeyIndex) == u'4') return;
  WideString key;
  context_.device.DoSnmpGet(WideString(kKeyValue), Integer(), key);
  if (key.empty()) Alert(u"Valid network key must be entered");
}

void Wireless::SetKeyIndex() {
  if (Read(kKeySetting) == u'1') {
    items_.StoreValue(WideString(kKeyIndex), Integer(), u"4");
  } else {
    if (Read(kKeyIndex) == u'4') items_.StoreValue(WideString(kKeyIndex), Integer(), u"0");
    Alert(LoadText(TextId::kWepKeyRequired), values::kWarningBox);
  }
  queue_.Submit();
}

void Wireless::RefreshEditedItem(const model::MenuItem& item) {
  const config::ConfigKey* node = item.Key();
  if (node == nullptr) return;
  const WideStringView command = node->Value(TextId::kCmdOid);
  const bool isField = !command.empty();
  const WideString oid(isField ? command.substr(0, command.find(u':')) : node->Value(TextId::kOid));
  const WideString type(isField ? LoadText(TextId::kReaderCmd) : node->Value(TextId::kType));
  if (oid.empty() || values::IsPseudoOid(oid)) return;

  items_.Reread(oid, type, ItemOperations::Fields::kUpToGap);
}

void Wireless::ApplyNetworkSettings(const model::MenuItem* item) {
  const WideString zeroConfig = ReadText(u"cfg|80211PM|ZeroConfig");
  if (zeroConfig == u"On" || zeroConfig.empty()) {
    items_.SendValue(WideString(kNetworkSettings), Integer(), u"5677765", item);
    context_.shell.ShowNote(u"\nApplying Network Settings");
  } else if (zeroConfig == u"Off") {
    const WideString profile = ReadText(u"cfg|80211PM|ActiveProfile");
    items_.SendValue(u"cfg|80211PM|ConfigureProfile", WideString(LoadText(TextId::kOctetString)), profile, item);
    context_.shell.ShowNote(u"\nApplying Profile Settings");
  }

  const model::MenuItem* page = context_.shell.CurrentMenu();
  if (page == nullptr) return;
  for (const auto& line : page->Children()) {
    line->changed = false;
    context_.shell.LineChanged(*line);
  }
}

void Wireless::ImportCertificates(const model::MenuItem& item) {
  const config::ConfigKey* node = item.Key();
  if (node == nullptr) return;
  platform::ResultCode result = platform::kOk;
  {
    const platform::WaitCursor cursor(context_.shell.MainWindow());
    result =
        items_.SendValue(WideString(node->Value(TextId::kOid)), WideString(node->Value(TextId::kType)), u"True", &item);
  }
  if (result >= 0) context_.shell.ShowSystemMessage(LoadText(TextId::kCertificatesImported), u"Success");
}

void Wireless::WEP_Properties(const model::MenuItem& item) {
  items_.SendValue(WideString(kNetworkSettings), Integer(), u"5677766", &item);
}

}  // namespace rules
