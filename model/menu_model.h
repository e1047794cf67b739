// The menu model: the tree of menu items over the key tree, a descriptor for every property, and the tables in which
// rules and commands look properties up.
#pragma once

#include "base/wide_string.h"
#include "config/data_store.h"
#include "model/menu_item.h"
#include "platform/events.h"
#include "values/descriptor_map.h"
#include "values/device_access.h"
#include "values/message_boxes.h"
#include "values/property_descriptor.h"
#include "values/symbol_table.h"

#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace model {

// The properties that name one page.
using PropertyPage = std::vector<const values::PropertyDescriptor*>;

// A property's line shows its value unless the property is a whole command or was not read at all.
bool ShowsValue(const values::PropertyDescriptor& descriptor);

class MenuModel {
 public:
  // What building needs; all outlive the model. `deviceGate` is waited for before each read from the device.
  struct Environment {
    values::DeviceAccess& device;
    const values::SymbolTable& symbols;
    platform::Event& deviceGate;
    values::MessageBoxes& boxes;
  };
  explicit MenuModel(const Environment& environment);
  MenuModel(const MenuModel&) = delete;
  MenuModel& operator=(const MenuModel&) = delete;

  // Builds the first menu alone, without properties and commands, so that it is there at once.
  void BuildTopLevel(std::shared_ptr<const config::PDataStore> tree, WideStringView rootPath);

  // Builds everything, reading every property from the device. The items and descriptors there were are gone before
  // the first new one is made; the root item stays. Levels deeper than `maxDepth` below the first are left out, and so
  // is what leads back to an open menu. The children of one key are built within the bounds of KeyVisits; its further
  // items have none. What there is no memory for is left out. False when the tree has no root key.
  bool Build(std::shared_ptr<const config::PDataStore> tree, WideStringView rootPath, std::uint32_t maxDepth = 9999);

  // False: Build() has left something out; another try may help.
  bool IsWhole() const { return isWhole_; }

  // The tree that the model stands on, null before the first build.
  const std::shared_ptr<const config::PDataStore>& Tree() const { return tree_; }
  const WideString& RootPath() const { return rootPath_; }
  const config::ConfigKey* FindKey(WideStringView path) const { return tree_ ? tree_->Find(path) : nullptr; }

  MenuItem& Root() { return *root_; }

  // --- look-ups, all by exact text; null or empty when there is none ---
  values::DescriptorMap& Descriptors() { return descriptors_; }
  const values::DescriptorMap& Descriptors() const { return descriptors_; }
  values::PropertyDescriptor* FindDescriptor(WideStringView oid) const {
    return values::FindDescriptor(descriptors_, oid);
  }
  MenuItem* ItemOf(const values::PropertyDescriptor& descriptor) const;
  WideString OidByName(WideStringView displayName) const;
  WideString TypeByOid(WideStringView oid) const;
  // Pages are kept by design; no screen shows them.
  const PropertyPage* FindPage(WideStringView name) const;

  // Waits until the device may be read: before a descriptor is made or its value shown. A failure is shown.
  void WaitForDevice() const;
  // The text between the angle brackets of a property's line: choice text, dotted address, masked secret.
  WideString ShownValue(const values::PropertyDescriptor& descriptor) const;
  // Makes the suffix of a property's item anew from the property's shown value, or leaves it out where none is shown.
  void UpdateSuffix(MenuItem& item) const;

 private:
  using TextMap = std::unordered_map<WideStringView, WideStringView>;  // of texts in the tree

  const config::ConfigKey* StartFrom(std::shared_ptr<const config::PDataStore> tree, WideStringView rootPath);
  // Runs a part of the building. What there is no memory for is left out, with a debug line.
  template <typename Part>
  void Guarded(Part part);
  void AddTopLevel(const config::ConfigKey& rootKey);
  MenuItem& AddItem(MenuItem& parent, WideStringView name, const config::ConfigKey& key);
  void AddDescriptor(MenuItem& item, WideStringView oid, const config::ConfigKey& key);

  Environment environment_;
  std::shared_ptr<const config::PDataStore> tree_;
  bool isWhole_ = true;
  WideString rootPath_;
  std::unique_ptr<MenuItem> root_;
  std::vector<std::unique_ptr<values::PropertyDescriptor>> owned_;
  values::DescriptorMap descriptors_;
  TextMap oidByName_;
  TextMap typeByOid_;
  std::map<WideString, PropertyPage, std::less<>> pages_;
  std::unordered_map<const values::PropertyDescriptor*, MenuItem*> items_;
};

}  // namespace model
