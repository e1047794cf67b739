#include "model/settings_ahead.h"

#include "base/string_table.h"
#include "model/child_key.h"
#include "model/key_walk.h"
#include "values/device_access.h"

namespace model {
namespace {

using platform::Setting;

void NameProperty(const config::ConfigKey& key, std::vector<Setting>& settings) {
  const bool isFieldOfCommand = !key.Value(TextId::kCmdOid).empty();
  const WideStringView oid = key.Value(TextId::kOid);
  if (isFieldOfCommand || oid.empty() || values::IsPseudoOid(oid)) return;
  if (oid.find(u'*') != WideStringView::npos && key.Value(TextId::kFillOid) == u"Profile") {
    settings.push_back(values::ActiveProfile());
  } else {
    settings.push_back({WideString(oid), WideString(key.Value(TextId::kType))});
  }
}

void NameCommand(const config::ConfigKey& key, std::vector<Setting>& settings) {
  const bool isMerged = key.Value(TextId::kType) == LoadText(TextId::kReaderCmd) &&
                        !key.Value(TextId::kDefVal).empty() && !key.Value(u"Dependency").empty();
  if (isMerged) settings.push_back({WideString(key.Value(TextId::kOid)), WideString(key.Value(TextId::kType))});
}

}  // namespace

std::vector<Setting> SettingsOfMenu(const config::PDataStore& tree, const config::ConfigKey& root,
                                    WideStringView rootPath) {
  std::vector<Setting> settings;
  KeyWalk walk(u"SettingsOfMenu");
  walk.Enter(root, rootPath);
  while (const auto step = walk.Next()) {
    const config::ConfigKey* key = FindChild(tree, step->parent, step->name);
    if (key == nullptr || walk.LeadsBack(*key, step->name)) continue;
    NameProperty(*key, settings);
    walk.Enter(*key, step->name);
  }
  return settings;
}

std::vector<Setting> SettingsOfDefaults(const config::PDataStore& tree, WideStringView path) {
  std::vector<Setting> settings;
  KeyWalk walk(u"SettingsOfDefaults");
  const auto visit = [&](const config::ConfigKey* key, WideStringView name) {
    if (key == nullptr) return;
    NameCommand(*key, settings);
    walk.Enter(*key, name);
  };
  visit(tree.Find(path), path);
  while (const auto step = walk.Next()) visit(tree.FindBelow(step->parent, step->name), step->name);
  return settings;
}

}  // namespace model
