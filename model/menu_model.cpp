#include "model/menu_model.h"

#include "base/format.h"
#include "base/string_table.h"
#include "model/ordered_menu_items.h"
#include "platform/debug.h"
#include "values/shown_value.h"

namespace model {
namespace {

WideString OidOf(const config::ConfigKey& key) {
  const WideStringView oid = key.Value(TextId::kOid);
  return WideString(oid.empty() ? key.Value(TextId::kCmdOid) : oid);
}

// A property's line shows its value unless the property is a whole command or was not read at all.
bool ShowsValue(const values::PropertyDescriptor& descriptor) {
  if (descriptor.Type().empty() || descriptor.Type() == LoadText(TextId::kReaderCmd)) return false;
  return !descriptor.GetOID().empty() || !descriptor.Resolve(TextId::kCmdOid).empty();
}

bool IsCommand(const config::ConfigKey& key) {
  return !key.Value(TextId::kFunction).empty() || !key.Value(TextId::kAppName).empty();
}

}  // namespace

MenuModel::MenuModel(const Environment& environment)
    : environment_(environment), root_(std::make_unique<MenuItem>(nullptr, WideString(), WideString(), WideString())) {}

// Leaves nothing of the model there was but the root item, which gets the new root's name. The root key, or null.
const config::ConfigKey* MenuModel::StartFrom(std::shared_ptr<const config::PDataStore> tree, WideString rootPath) {
  root_->RemoveChildren();
  items_.clear();
  pages_.clear();
  descriptors_.clear();
  oidByName_.clear();
  typeByOid_.clear();
  owned_.clear();

  tree_ = std::move(tree);
  rootPath_ = std::move(rootPath);
  const config::ConfigKey* rootKey = FindKey(rootPath_);
  const WideStringView name = rootKey == nullptr ? WideStringView() : rootKey->Value(TextId::kDisplayName);
  root_->Rename(rootPath_, WideString(name), environment_.symbols.TextOf(name));
  return rootKey;
}

std::vector<WideString> MenuModel::OrderedChildren(const config::ConfigKey& key, WideStringView path) const {
  std::vector<WideString> names;
  for (const WideStringView name : key.Subkeys()) names.emplace_back(name);
  InitOrderedMenuItems(names, path, *tree_);
  return names;
}

void MenuModel::BuildTopLevel(std::shared_ptr<const config::PDataStore> tree, WideString rootPath) {
  const config::ConfigKey* rootKey = StartFrom(std::move(tree), std::move(rootPath));
  if (rootKey == nullptr) return;
  for (const WideString& name : OrderedChildren(*rootKey, rootPath_)) {
    const WideString path = ChildPath(rootPath_, name);
    const config::ConfigKey* key = FindKey(path);
    if (key == nullptr || IsCommand(*key)) continue;
    const WideStringView displayName = key->Value(TextId::kDisplayName);
    root_->AddChild(path, WideString(displayName), environment_.symbols.TextOf(displayName)).topLevel = true;
  }
}

bool MenuModel::Build(std::shared_ptr<const config::PDataStore> tree, WideString rootPath, std::uint32_t maxDepth) {
  if (StartFrom(std::move(tree), std::move(rootPath)) == nullptr) return false;

  // Depth first in menu order, so that a command stands before its fields; on a stack of its own.
  struct OpenMenu {
    MenuItem* item;
    std::vector<WideString> names;
    std::size_t next;
  };
  std::vector<OpenMenu> open;
  const auto openMenu = [&](MenuItem& item, const WideString& path) {
    open.push_back({&item, OrderedChildren(*FindKey(path), path), 0});
  };
  openMenu(*root_, rootPath_);
  while (!open.empty()) {
    OpenMenu& menu = open.back();
    if (menu.next == menu.names.size()) {
      open.pop_back();
      continue;
    }
    const std::size_t depth = open.size() - 1;
    MenuItem& parent = *menu.item;
    const WideString path = ChildPath(parent.Path(), menu.names[menu.next++]);
    const config::ConfigKey* key = FindKey(path);
    if (key == nullptr) continue;
    if (IsOpenAbove(parent, path)) {
      platform::DebugOutput(base::Format(u"ERROR 5 CKelConfigApp::InitOrderedMenuItems [%s]\r\n", path));
      continue;
    }
    AddItem(parent, path, *key);
    if (depth < maxDepth && !key->Subkeys().empty()) openMenu(*parent.Children().back(), path);
  }
  return true;
}

// A name with "HKEY" can lead back to a menu that is being built.
bool MenuModel::IsOpenAbove(const MenuItem& parent, WideStringView path) const {
  // Only a path that is no longer than its parent's can be one of its ancestors.
  if (path.size() > parent.Path().size()) return false;
  for (const MenuItem* item = &parent; item != nullptr; item = item->Parent()) {
    if (item->Path() == path) return true;
  }
  return false;
}

void MenuModel::WaitForDevice() const {
  if (environment_.deviceGate.Wait()) return;
  environment_.boxes.Show(u"WaitForSingleObject Error", u"Error", values::kErrorBox);
}

void MenuModel::AddItem(MenuItem& parent, const WideString& path, const config::ConfigKey& key) {
  const WideStringView displayName = key.Value(TextId::kDisplayName);
  MenuItem& item = parent.AddChild(path, WideString(displayName), environment_.symbols.TextOf(displayName));
  item.topLevel = parent.Parent() == nullptr;
  const WideString oid = OidOf(key);
  if (!oid.empty()) AddDescriptor(item, oid, key);
}

void MenuModel::AddDescriptor(MenuItem& item, const WideString& oid, const config::ConfigKey& key) {
  WaitForDevice();
  owned_.push_back(std::make_unique<values::PropertyDescriptor>(item.Path(), &key, environment_.device,
                                                                environment_.symbols, descriptors_));
  values::PropertyDescriptor& descriptor = *owned_.back();
  oidByName_.insert_or_assign(item.DisplayName(), oid);
  typeByOid_.insert_or_assign(oid, WideString(key.Value(TextId::kType)));
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
  return found == oidByName_.end() ? WideString() : found->second;
}

WideString MenuModel::TypeByOid(WideStringView oid) const {
  const auto found = typeByOid_.find(oid);
  return found == typeByOid_.end() ? WideString() : found->second;
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
  if (descriptor == nullptr || !ShowsValue(*descriptor)) return;
  item.SetSuffix(base::Format(LoadText(TextId::kValueSuffixFormat), ShownValue(*descriptor)));
}

}  // namespace model
