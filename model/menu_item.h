// One node of the menu: a menu, a property or a command, and how it is shown.
#pragma once

#include "base/wide_string.h"
#include "values/property_line.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace config {
class ConfigKey;
}
namespace values {
class PropertyDescriptor;
}

namespace model {

// What the rules decide about a line.
enum class DisplayState { kNormal = 0, kNotDisplayed = 1, kBlank = 2, kNoEdit = 3 };

class MenuItem final : public values::PropertyLine {
 public:
  // The three texts and the key, here and below, belong to somebody else and must outlive the item: thousands of items
  // may stand on one key.
  MenuItem(MenuItem* parent, WideStringView name, WideStringView displayName, WideStringView title,
           const config::ConfigKey* key = nullptr);
  ~MenuItem() override;

  // Makes the item that of another key; its children stay.
  void Rename(WideStringView name, WideStringView displayName, WideStringView title,
              const config::ConfigKey* key = nullptr);

  // The key behind the item; null: none.
  const config::ConfigKey* Key() const { return key_; }
  // Its name below the parent's (of the root item: its path), its full path, put together anew
  // each time, and its display name as the key has it.
  WideStringView Name() const { return name_; }
  WideString Path() const;
  WideStringView DisplayName() const { return displayName_; }
  // The display name as it is shown, its symbol replaced; above the menu when the item is shown as one.
  WideStringView Title() const { return title_; }

  MenuItem* Parent() const { return parent_; }  // null: the root
  const std::vector<std::unique_ptr<MenuItem>>& Children() const { return children_; }
  bool IsLeaf() const { return children_.empty(); }
  MenuItem& AddChild(WideStringView name, WideStringView displayName, WideStringView title,
                     const config::ConfigKey* key = nullptr);
  void RemoveChildren();

  // The line reads: title, then suffix ("  <value>"). Setting the whole text clears the suffix; a suffix set after that
  // follows the title again. A line has kLongestLine characters at most, more than any screen shows of it.
  static constexpr std::size_t kLongestLine = 1024;
  WideString LineText() const;
  const WideString& Suffix() const { return suffix_; }
  void SetLineText(WideString text) override;
  void SetSuffix(WideString suffix);
  // The mark that rules set and clear: column 0 of the line.
  void SetFirstColumn(char16_t mark) { mark_ = mark; }

  values::PropertyDescriptor* Descriptor() const override { return descriptor_; }
  void SetDescriptor(values::PropertyDescriptor* descriptor) { descriptor_ = descriptor; }  // owned by the model

  DisplayState State() const { return state_; }
  // The states normal and not-displayed travel over to the linked item.
  void SetState(DisplayState state);
  // Part of what an item is by the system's design, which names no link of its own accord.
  void SetLinkedItem(MenuItem* item) { linkedItem_ = item; }

  // How the list shows the item and, of a menu, its pages.
  struct ListState {
    bool nonSelectable = false;  // a heading: no number, cannot be selected
    bool keepWithNext = false;   // not the last item of a page when more follow
    bool entryFlag = false;      // a leaf that Enter shows as a menu all the same
    bool numbered = true;        // numbered pages, or a plain list
    int topLine = 0;
    int selectedLine = 0;
    // Noted at each filling, as a menu's state has them by design; the list works with those of its own pages.
    int lastLine = -1;     // index of the last line that can be selected
    int lastBackLine = 0;  // index of the last "...Back", 0: none
  };
  ListState list;

  bool topLevel = false;  // an item of the first menu below the root; kept by design, nothing asks for it
  bool changed = false;   // edited since the network settings were last applied

 private:
  MenuItem* parent_;
  WideStringView name_;
  WideStringView displayName_;
  WideStringView title_;
  const config::ConfigKey* key_;
  std::optional<WideString> wholeLine_;  // instead of title and suffix
  WideString suffix_;
  std::optional<char16_t> mark_;
  std::vector<std::unique_ptr<MenuItem>> children_;
  values::PropertyDescriptor* descriptor_ = nullptr;
  DisplayState state_ = DisplayState::kNormal;
  MenuItem* linkedItem_ = nullptr;
};

}  // namespace model
