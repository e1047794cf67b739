// Changing one property: the dialog with the control for its type, and what follows when it is saved.
#pragma once

#include "model/menu_item.h"
#include "model/menu_view.h"
#include "platform/window.h"
#include "ui/insert_flag.h"
#include "ui/property_editors.h"
#include "values/property_line_text.h"

namespace ui {

// What saving sets going in the program around the dialog.
class EditActions {
 public:
  virtual ~EditActions() = default;
  // Sends the pending changes and signals their events. False when the device refused, after the user has been told.
  virtual bool ApplyChanges() = 0;
  // Runs one of the property's commands for after an edit; an unknown one does nothing.
  virtual void RunPostEditAction(WideStringView command, model::MenuItem& item) = 0;
};

struct EditContext {
  const EditorTable& editors;
  values::ValueCommitter& committer;
  EditActions& actions;
  model::MenuView& menu;
  InsertFlag& insertFlag;
};

// Returns when the dialog has closed; true when a value was saved. Items without a property, read-only properties and
// those without an editor open nothing. The item and its descriptor must stay until the call returns.
bool RunEditDialog(const EditContext& context, model::MenuItem& item, bool largeLayout, platform::WindowHandle owner);

}  // namespace ui
