#include "authoring/named_settings.h"

#include "authoring/checks/survey.h"
#include "base/string_table.h"
#include "rules/wireless_couplings.h"
#include "values/device_access.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace authoring {
namespace {

class NamedList {
 public:
  // Of a property: its type counts in place of one that was there before.
  void AddProperty(NamedSetting setting) {
    if (values::IsPseudoOid(setting.oid) || setting.oid.empty()) return;
    NamedSetting& here = At(setting);
    here.type = std::move(setting.type);
    here.isSecret = here.isSecret || setting.isSecret;
    here.isExpected = here.isExpected || setting.isExpected;
  }
  void AddOther(NamedSetting setting) {
    if (!values::IsPseudoOid(setting.oid) && !setting.oid.empty()) At(setting);
  }
  std::vector<NamedSetting> Take() { return std::move(settings_); }

 private:
  NamedSetting& At(const NamedSetting& setting) {
    const auto [place, isNew] = places_.emplace(setting.oid, settings_.size());
    if (isNew) settings_.push_back(setting);
    return settings_[place->second];
  }

  std::vector<NamedSetting> settings_;
  std::unordered_map<WideString, std::size_t> places_;
};

bool IsSecretLine(const Subject& subject) {
  return subject.Has(Attribute::kPassWordChar) || subject.Has(Attribute::kWep) ||
         values::IsSecretType(subject.Get(Attribute::kType));
}

// The keys that the property of the active profile offers.
std::vector<WideString> Profiles(const Survey& survey) {
  std::vector<WideString> profiles;
  const auto offering = survey.WithOid(kActiveProfile);
  if (offering.empty() || !offering.back()->HasChoiceList()) return profiles;
  for (const auto& choice : offering.back()->Choices().Entries()) profiles.emplace_back(choice.key);
  return profiles;
}

void NameProperty(const Subject& subject, WideStringView activeProfile, NamedList& named) {
  const WideString oid(subject.Get(Attribute::kOid));
  // The utility sets what imports certificates, and never reads it.
  const bool isRead = subject.Get(Attribute::kFunction) != u"ImportCertificates";
  NamedSetting setting{oid, WideString(subject.Get(Attribute::kType)), IsSecretLine(subject), isRead};
  const std::size_t star = oid.find(u'*');
  if (star == WideString::npos || subject.Resolved(Attribute::kFillOid) != u"Profile") {
    return named.AddProperty(std::move(setting));
  }
  std::vector<WideString> profiles = Profiles(subject.All());
  if (!activeProfile.empty()) profiles.emplace_back(activeProfile);
  for (const WideString& profile : profiles) {
    setting.oid = oid;
    setting.oid.replace(star, 1, profile);
    setting.isExpected = isRead && profile == activeProfile;
    named.AddProperty(setting);
  }
}

// A field is part of its command's value, which is nobody's property where the author forgot the command.
void NameCommandOf(const Subject& field, NamedList& named) {
  const WideStringView oid = field.Get(Attribute::kCmdOid);
  named.AddOther({WideString(oid.substr(0, oid.find(u':'))), WideString(LoadText(TextId::kReaderCmd))});
}

}  // namespace

std::vector<NamedSetting> NamedSettings(const Configuration& configuration, WideStringView activeProfile) {
  const InTerminal terminal(configuration);
  const Survey survey(configuration);
  NamedList named;
  for (const Subject& subject : survey.Subjects()) {
    if (subject.Has(Attribute::kOid) && !subject.IsField()) NameProperty(subject, activeProfile, named);
    subject.Forget();
  }
  for (const Subject& subject : survey.Subjects()) {
    if (subject.IsField()) NameCommandOf(subject, named);
  }
  for (const model::SetTriple& triple : survey.Triples()) named.AddOther({triple.oid, triple.type});
  const WideString text(LoadText(TextId::kOctetString));
  named.AddOther({WideString(rules::wireless::kNetworkSettings), WideString(LoadText(TextId::kInteger)), false, false});
  for (const WideStringView oid :
       {WideStringView(u"cfg|80211PM|ZeroConfig"), kActiveProfile, WideStringView(u"cfg|80211PM|ConfigureProfile")}) {
    named.AddOther({WideString(oid), text, false, false});
  }
  return named.Take();
}

}  // namespace authoring
