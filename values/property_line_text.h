// From what a person entered to a property's value, its pending change and its line in the menu.
#pragma once

#include "base/wide_string.h"
#include "values/descriptor_map.h"
#include "values/event_names.h"
#include "values/message_boxes.h"
#include "values/pending_change.h"
#include "values/property_line.h"

namespace values {

class PropertyDescriptor;

// What an entry control's text is.
enum class EntryMode {
  kTyped = 0,   // read by the property's type
  kChoice = 1,  // the text of one of the property's choices
};

// The main screen's state of an edit. The screen that there is edits in a dialog: it neither sets `busy` nor looks at
// `firstEdited` and `repaintList`, which are there for editors on the screen itself.
struct EditState {
  bool busy = false;  // commits are ignored
  PropertyValue edited;
  PropertyDescriptor* firstEdited = nullptr;  // since the last apply
  bool repaintList = false;
};

// How a value is treated as a wireless key when it is sent to the property as that type.
KeyKind GetKeyKind(const PropertyDescriptor& descriptor, WideStringView type);

// False, with `value` as it was, when the property has no choice of that text.
bool ChoiceTextToValue(const PropertyDescriptor& descriptor, WideStringView text, PropertyValue& value);

class ValueCommitter {
 public:
  ValueCommitter(const DescriptorMap& descriptors, MessageBoxes& boxes, ChangeList& changes, EventNames& events,
                 EditState& state);

  // Rewrites the line as display name and value, masked ("Name, <value>"). Null when the line is no property.
  PropertyDescriptor* UpdatePropertyLine(WideStringView valueText, bool markDirty, PropertyLine* line);

  // False when the text is no value of the property: nothing is recorded, and a value out of range is explained.
  bool CommitEditedValue(PropertyLine* line, WideStringView text, EntryMode mode);

  // Rewrites the line and records without a look at the range.
  void CommitValueNoRangeTest(PropertyLine* line, WideStringView text, EntryMode mode);
  // Stores the number of the choice's key, whatever the property's type. For a choice list on the screen itself, which
  // no layout has.
  void SaveChoiceByIndex(PropertyLine* line, std::size_t index);

  // Stores the value in the property and makes it a pending change, a command's field as part of its command.
  void RecordChange(PropertyDescriptor& descriptor, const PropertyValue& value);

 private:
  PropertyDescriptor* BeginEdit(PropertyLine* line);
  bool ReadEntry(const PropertyDescriptor& descriptor, WideStringView text, EntryMode mode);

  const DescriptorMap& descriptors_;
  MessageBoxes& boxes_;
  ChangeList& changes_;
  EventNames& events_;
  EditState& state_;
};

}  // namespace values
