#include "authoring/levers.h"

#include "authoring/values_that_matter.h"
#include "rules/wireless_couplings.h"

#include <algorithm>

namespace authoring {
namespace {

class LeverMaker {
 public:
  LeverMaker(const Survey& survey, const Trial& trial) : survey_(survey), trial_(trial) {}

  // `wanted`: what a rule compares the setting with.
  void Add(const WideString& oid, const WideString& current, const WideString& wanted) {
    if (oid.empty()) return;
    auto lever = std::find_if(made_.begin(), made_.end(), [&](const Made& made) { return made.oid == oid; });
    if (lever == made_.end()) {
      if (made_.size() == kMostLevers) return;
      made_.push_back({oid, current, {}, false});
      lever = made_.end() - 1;
    }
    if (std::find(lever->wanted.begin(), lever->wanted.end(), wanted) == lever->wanted.end() &&
        lever->wanted.size() < kMostValues) {
      lever->wanted.push_back(wanted);
    }
  }

  // A setting that the wireless rules read: what its own list offers, and nothing else, as there are many of them to be
  // tried together.
  void AddWireless(const values::PropertyDescriptor& property) {
    const WideString oid(property.GetOID());
    for (const Subject* subject : survey_.WithOid(oid)) {
      for (const auto& choice : subject->Choices().Entries()) Add(oid, property.GetValue().AsText(), choice.key);
    }
    const auto made = std::find_if(made_.begin(), made_.end(), [&](const Made& one) { return one.oid == oid; });
    if (made != made_.end()) made->onlyWanted = true;
  }

  std::vector<Lever> Take() && {
    std::vector<Lever> levers;
    for (const Made& made : made_) {
      const auto* property = trial_.Model().FindDescriptor(made.oid);
      Lever lever{made.oid, made.current, made.wanted};
      if (!made.onlyWanted) lever.values = ValuesThatMatter(survey_, made.oid, property, made.wanted).values;
      std::erase(lever.values, lever.current);
      lever.values.resize(std::min(lever.values.size(), kMostValues));
      if (!lever.values.empty()) levers.push_back(std::move(lever));
    }
    return levers;
  }

 private:
  struct Made {
    WideString oid;
    WideString current;
    std::vector<WideString> wanted;
    bool onlyWanted = false;
  };

  const Survey& survey_;
  const Trial& trial_;
  std::vector<Made> made_;
};

}  // namespace

std::vector<Lever> LeversOf(const Survey& survey, const Trial& trial, const std::vector<SeenRule>& rules,
                            bool wireless) {
  LeverMaker maker(survey, trial);
  for (const SeenRule& rule : rules) {
    for (const SeenComparison& comparison : rule.comparisons) {
      maker.Add(comparison.operand.oid, comparison.operand.value, comparison.wanted);
    }
  }
  using namespace rules::wireless;
  const WideStringView settings[] = {kNetworkType, kAuthentication, kEncryption, kKeyIndex, kMethod8021X, kKeySetting};
  for (const WideStringView oid : settings) {
    const auto* property = wireless ? trial.Model().FindDescriptor(oid) : nullptr;
    if (property != nullptr) maker.AddWireless(*property);
  }
  return std::move(maker).Take();
}

}  // namespace authoring
