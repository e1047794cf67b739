#include "settings/wanted_settings.h"

#include "authoring/items.h"
#include "authoring/secrets.h"
#include "base/utf8.h"
#include "settings/catalogue.h"
#include "settings/entered_value.h"

#include <unordered_map>

namespace settings {
namespace {

class Resolver {
 public:
  Resolver(authoring::Trial& trial, const Secrets& secrets) : catalogue_(trial.Model()), secrets_(secrets) {
    const auto items = authoring::ItemsOf(trial.Model());
    for (std::size_t i = 0; i < items.size(); ++i) numbers_.emplace(items[i], i);
  }

  WantedSettings Take(const SettingsFile& file) {
    wanted_.problems = file.problems;
    for (const GivenSetting& given : file.settings) TakeOne(given);
    return std::move(wanted_);
  }

 private:
  void Complain(const GivenSetting& given, std::string sentence) {
    wanted_.problems.push_back({given.at, std::move(sentence)});
  }

  void TakeOne(const GivenSetting& given) {
    if (given.value.kind == GivenValue::Kind::kNothing) {
      const Catalogue::Found found = catalogue_.FindEntry(given.path);
      if (found.item == nullptr) return Complain(given, found.problem);
      if (!found.item->IsLeaf()) return;
      return Complain(given, "a value is missing; the empty text is \"\"");
    }
    const Catalogue::Found found = catalogue_.Find(given.path);
    if (found.item == nullptr) return Complain(given, found.problem);
    if (given.value.kind == GivenValue::Kind::kStored && !IsSettable(*found.item)) return;
    WantedSetting setting{numbers_.at(found.item),
                          ToText(NamesOf(*found.item)),
                          WideString(OidOf(*found.item)),
                          given.value,
                          authoring::IsSecret(*found.item->Descriptor()),
                          given.at};
    const auto [before, isNew] = places_.try_emplace(setting.oid, given.at);
    if (!isNew) return Complain(given, "\"" + setting.name + "\" is set already, at " + ToText(before->second));
    if (!FillIn(given, setting)) return;
    wanted_.settings.push_back(std::move(setting));
  }

  // The utility stores all there is, what nobody can set and what it shows twice as well; and secrets in clear, which
  // are not taken from there.
  bool IsSettable(const model::MenuItem& item) const {
    const WideString oid(OidOf(item));
    return CanBeEdited(item, editors_) && !values::IsPseudoOid(oid) && !places_.contains(oid) &&
           !authoring::IsSecret(*item.Descriptor());
  }

  // A secret in a file that many may read is none any more.
  bool FillIn(const GivenSetting& given, WantedSetting& setting) {
    if (given.value.kind == GivenValue::Kind::kSecret) {
      const std::string name = base::ToUtf8(given.value.text);
      auto secret = secrets_ ? secrets_(given.value.text) : std::nullopt;
      if (!secret) {
        Complain(given, "there is no secret \"" + name + "\"; give it by --secrets FILE or as KELSET_SECRET_" + name);
        return false;
      }
      setting.value.text = std::move(*secret);
      setting.isSecret = true;
      return true;
    }
    const bool isOpen = given.value.kind == GivenValue::Kind::kShown || given.value.kind == GivenValue::Kind::kRaw;
    if (!setting.isSecret || !isOpen) return true;
    Complain(given, "\"" + setting.name + "\" is a secret: write \"!secret NAME\", and give that by --secrets FILE");
    return false;
  }

  Catalogue catalogue_;
  const ui::EditorTable editors_;
  const Secrets& secrets_;
  std::unordered_map<const model::MenuItem*, std::size_t> numbers_;
  std::unordered_map<WideString, authoring::Position> places_;  // by OID
  WantedSettings wanted_;
};

}  // namespace

WantedSettings Resolve(const SettingsFile& file, authoring::Trial& trial, const Secrets& secrets) {
  return Resolver(trial, secrets).Take(file);
}

}  // namespace settings
