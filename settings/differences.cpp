#include "settings/differences.h"

#include "authoring/items.h"
#include "base/utf8.h"
#include "settings/entered_value.h"
#include "values/shown_value.h"

namespace settings {

std::vector<Difference> FindDifferences(authoring::Trial& trial, const std::vector<WantedSetting>& wanted) {
  const ui::EditorTable editors;
  const auto items = authoring::ItemsOf(trial.Model());
  std::vector<Difference> differences;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (values::IsPseudoOid(wanted[i].oid)) continue;
    const values::PropertyDescriptor& property = *items[wanted[i].item]->Descriptor();
    const GivenValue& value = wanted[i].value;
    if (property.IsAvailable() && IsPresent(property, value, ReadAsEntered(property, editors, value))) continue;
    const bool isStarred = wanted[i].isSecret && property.IsAvailable();
    differences.push_back({i, isStarred ? "****" : base::ToUtf8(values::ShownValue(property))});
  }
  return differences;
}

}  // namespace settings
