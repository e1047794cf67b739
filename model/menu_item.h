// One node of the menu: a menu, a property or a command, and how it is shown.
#pragma once

#include "base/wide_string.h"
#include "values/property_line.h"

#include <memory>
#include <vector>

namespace values {
class PropertyDescriptor;
}

namespace model {

// What the rules decide about a line.
enum class DisplayState { kNormal = 0, kNotDisplayed = 1, kBlank = 2, kNoEdit = 3 };

class MenuItem final : public values::PropertyLine {
 public:
  MenuItem(MenuItem* parent, WideString name, WideString displayName, WideString title);
  ~MenuItem() override;

  // Makes the item that of another key; its children stay.
  void Rename(WideString name, WideString displayName, WideString title);

  // The key behind the item: its name below the parent's (of the root item: its path), its full path, put together anew
  // each time, and its display name as the key has it.
  const WideString& Name() const { return name_; }
  WideString Path() const;
  const WideString& DisplayName() const { return displayName_; }
  // The display name as it is shown, its symbol replaced; above the menu when the item is shown as one.
  const WideString& Title() const { return title_; }

  MenuItem* Parent() const { return parent_; }  // null: the root
  const std::vector<std::unique_ptr<MenuItem>>& Children() const { return children_; }
  bool IsLeaf() const { return children_.empty(); }
  MenuItem& AddChild(WideString name, WideString displayName, WideString title);
  void RemoveChildren();

  // The line reads: text, then suffix ("  <value>"). Setting the whole text clears the suffix; a suffix set after that
  // follows the title again.
  WideString LineText() const { return text_ + suffix_; }
  const WideString& Text() const { return text_; }
  const WideString& Suffix() const { return suffix_; }
  void SetLineText(WideString text) override;
  void SetSuffix(WideString suffix);
  // The mark that rules set and clear: column 0 of the text.
  void SetFirstColumn(char16_t mark);

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
    int lastLine = -1;           // index of the last line that can be selected
    int topLine = 0;
    int selectedLine = 0;
    int lastBackLine = 0;  // index of the last "...Back", 0: none
  };
  ListState list;

  bool topLevel = false;  // an item of the first menu below the root; kept by design, nothing asks for it
  bool changed = false;   // edited since the network settings were last applied

 private:
  MenuItem* parent_;
  WideString name_;
  WideString displayName_;
  WideString title_;
  WideString text_;
  WideString suffix_;
  bool textIsWholeLine_ = false;
  std::vector<std::unique_ptr<MenuItem>> children_;
  values::PropertyDescriptor* descriptor_ = nullptr;
  DisplayState state_ = DisplayState::kNormal;
  MenuItem* linkedItem_ = nullptr;
};

}  // namespace model
