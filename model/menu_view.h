// The screen that shows the menu, as the model and the rules see it.
#pragma once

namespace model {

class MenuItem;

class MenuView {
 public:
  virtual ~MenuView() = default;

  virtual MenuItem* CurrentMenu() = 0;  // the menu shown

  // An item's text or suffix changed: its line is rewritten when it is on the screen.
  virtual void LineChanged(MenuItem& item) = 0;
  // The shown menu is filled anew; its rules run, selection and page stay.
  virtual void Refill() = 0;
  virtual void FocusList() = 0;
};

}  // namespace model
