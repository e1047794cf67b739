#include "model/menu_model.h"

#include "base/format.h"
#include "base/string_table.h"
#include "model/child_key.h"
#include "model/entry_kind.h"
#include "model/key_walk.h"
#include "model/ordered_menu_items.h"
#include "model/settings_ahead.h"
#include "platform/debug.h"
#include "values/shown_value.h"

#include <exception>

namespace model {

bool ShowsValue(const values::PropertyDescriptor& descriptor) {
  if (descriptor.HeldType() == LoadText(TextId::kReaderCmd)) return false;
  return !descriptor.GetOID().empty() || !descriptor.Resolve(TextId::kCmdOid).empty();
}

MenuModel::MenuModel(const Environment& environment)
    : environment_(environment), root_(std::make_unique<MenuItem>(nullptr, u"", u"", u"")) {}

// Leaves nothing of the model there was but the root item, which gets the new root's name. The root key, or null.
const config::ConfigKey* MenuModel::StartFrom(std::shared_ptr<const config::PDataStore> tree, WideStringView rootPath) {
  root_->RemoveChildren();
  root_->Rename(u"", u"", u"");  // the texts of the tree there was go with it
  items_.clear();
  pages_.clear();
  descriptors_.clear();
  oidByName_.clear();
  typeByOid_.clear();
  owned_.clear();
  isWhole_ = true;

  tree_ = std::move(tree);
  rootPath_ = rootPath;
  const config::ConfigKey* rootKey = FindKey(rootPath_);
  const WideStringView name = rootKey == nullptr ? WideStringView() : rootKey->Value(TextId::kDisplayName);
  root_->Rename(rootPath_, name, environment_.symbols.ViewOf(name), rootKey);
  return rootKey;
}

template <typename Part>
void MenuModel::Guarded(Part part) {
  try {
    part();
  } catch (const std::exception&) {
    isWhole_ = false;
    platform::DebugOutput(u"EXCEPTION: MenuModel::Build()\r\n");
  }
}

void MenuModel::BuildTopLevel(std::shared_ptr<const config::PDataStore> tree, WideStringView rootPath) {
  Guarded([&] {
    const config::ConfigKey* rootKey = StartFrom(std::move(tree), rootPath);
    if (rootKey != nullptr) AddTopLevel(*rootKey);
  });
}

void MenuModel::AddTopLevel(const config::ConfigKey& rootKey) {
  std::vector<WideStringView> names(rootKey.Subkeys().begin(), rootKey.Subkeys().end());
  InitOrderedMenuItems(names, rootKey, *tree_);
  for (const WideStringView name : names) {
    const config::ConfigKey* key = FindChild(*tree_, rootKey, name);
    if (key == nullptr || IsCommand(*key)) continue;
    const WideStringView displayName = key->Value(TextId::kDisplayName);
    root_->AddChild(name, displayName, environment_.symbols.ViewOf(displayName), key).topLevel = true;
  }
}

bool MenuModel::Build(std::shared_ptr<const config::PDataStore> tree, WideStringView rootPath, std::uint32_t maxDepth) {
  const config::ConfigKey* rootKey = nullptr;
  Guarded([&] { rootKey = StartFrom(std::move(tree), rootPath); });
  if (rootKey == nullptr) return false;

  const values::ReadingAhead ahead(environment_.device,
                                   [this, rootKey] { return SettingsOfMenu(*tree_, *rootKey, rootPath_); });
  // In menu order, so that a command stands before its fields.
  std::vector<MenuItem*> menus;  // those open, by depth
  KeyWalk walk(u"MenuModel::Build");
  const auto enter = [&](MenuItem& item, WideStringView name, const config::ConfigKey& key) {
    menus.push_back(&item);
    if (walk.Enter(key, name)) InitOrderedMenuItems(walk.Names(), key, *tree_);
  };
  const auto add = [&](const KeyWalk::Step& step) {
    menus.resize(step.depth + 1);
    const config::ConfigKey* key = FindChild(*tree_, step.parent, step.name);
    if (key == nullptr || walk.LeadsBack(*key, step.name)) return;
    MenuItem& item = AddItem(*menus.back(), step.name, *key);
    if (step.depth < maxDepth) enter(item, step.name, *key);
  };
  Guarded([&] { enter(*root_, rootPath_, *rootKey); });
  while (const auto step = walk.Next()) {
    Guarded([&] { add(*step); });
  }
  return true;
}

void MenuModel::WaitForDevice() const {
  if (environment_.deviceGate.Wait()) return;
  environment_.boxes.Show(u"WaitForSingleObject Error", u"Error", values::kErrorBox);
}

MenuItem& MenuModel::AddItem(MenuItem& parent, WideStringView name, const config::ConfigKey& key) {
  const WideStringView displayName = key.Value(TextId::kDisplayName);
  MenuItem& item = parent.AddChild(name, displayName, environment_.symbols.ViewOf(displayName), &key);
  item.topLevel = parent.Parent() == nullptr;
  const WideStringView oid = OidOf(key);
  if (oid.empty()) return item;
  try {
    AddDescriptor(item, oid, key);
  } catch (const std::exception&) {
    isWhole_ = false;
    platform::DebugOutput(u"EXCEPTION: MenuModel::AddDescriptor()\r\n");
    // It may have entered itself before it failed.
    std::erase_if(descriptors_, [this](const auto& entry) { return !items_.contains(entry.second); });
  }
  return item;
}

void MenuModel::AddDescriptor(MenuItem& item, WideStringView oid, const config::ConfigKey& key) {
  WaitForDevice();
  owned_.push_back(
      std::make_unique<values::PropertyDescriptor>(&key, environment_.device, environment_.symbols, descriptors_));
  values::PropertyDescriptor& descriptor = *owned_.back();
  oidByName_.insert_or_assign(item.DisplayName(), oid);
  typeByOid_.insert_or_assign(oid, key.Value(TextId::kType));
  items_.emplace(&descriptor, &item);
  item.SetDescriptor(&descriptor);
  UpdateSuffix(item);
  const WideStringView page = descriptor.PageName();
  if (!page.empty()) pages_[WideString(page)].push_back(&descriptor);
}

MenuItem* MenuModel::ItemOf(const values::PropertyDescriptor& descriptor) const {
  const auto found = items_.find(&descriptor);
  return found == items_.end() ? nullptr : found->second;
}

WideString MenuModel::OidByName(WideStringView displayName) const {
  const auto found = oidByName_.find(displayName);
  return found == oidByName_.end() ? WideString() : WideString(found->second);
}

WideString MenuModel::TypeByOid(WideStringView oid) const {
  const auto found = typeByOid_.find(oid);
  return found == typeByOid_.end() ? WideString() : WideString(found->second);
}

const PropertyPage* MenuModel::FindPage(WideStringView name) const {
  const auto found = pages_.find(name);
  return found == pages_.end() ? nullptr : &found->second;
}

WideString MenuModel::ShownValue(const values::PropertyDescriptor& descriptor) const {
  WaitForDevice();
  return values::ShownValue(descriptor);
}

void MenuModel::UpdateSuffix(MenuItem& item) const {
  const values::PropertyDescriptor* descriptor = item.Descriptor();
  if (descriptor == nullptr) return;
  const bool shows = ShowsValue(*descriptor);
  item.SetSuffix(shows ? base::Format(LoadText(TextId::kValueSuffixFormat), ShownValue(*descriptor)) : WideString());
}

}  // namespace model
