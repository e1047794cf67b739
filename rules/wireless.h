// The wireless rules and commands: settings that depend on one another are kept consistent, and the user is told.
#pragma once

#include "rules/change_queue.h"
#include "rules/item_operations.h"
#include "rules/operands.h"
#include "rules/wireless_couplings.h"

namespace rules {

class Wireless {
 public:
  Wireless(const Context& context, ItemOperations& items, const Operands& operands, ChangeQueue& queue)
      : context_(context), items_(items), operands_(operands), queue_(queue) {}

  // Narrows choices, corrects values that are no longer allowed, shows and hides what depends on them, and submits the
  // pending changes. Items that the configuration lacks are left out.
  void VerifyNetUI();

  // Says so when a key is to be used that is not there. Nothing is changed.
  void CheckWEPKey();

  // Makes the key index follow the key setting: automatic or entered.
  void SetKeyIndex();

  // Reads the item's value, or that of the command it is a field of, anew from the device.
  void RefreshEditedItem(const model::MenuItem& item);

  // Lets the device take the network or profile settings over, and takes the changed marks off the shown menu.
  void ApplyNetworkSettings(const model::MenuItem* item);

  void ImportCertificates(const model::MenuItem& item);
  void WEP_Properties(const model::MenuItem& item);  // NOLINT(readability-identifier-naming): the command's own name

 private:
  char16_t Read(WideStringView oid) const;
  void Alert(WideStringView text, int kind = values::kMessageBox);
  // Applies the row that fits to the item and to its character in `settings`.
  void Couple(WideStringView oid, std::span<const wireless::Coupling> rows, const wireless::Settings& settings,
              char16_t& setting);
  void CoupleKeyItems(wireless::Settings& settings);
  void SetVisibility(WideStringView key, wireless::Visibility visibility, const wireless::Settings& settings);
  void Tell(WirelessChange::Kind kind, WideStringView oid, WideStringView text,
            const wireless::Settings& settings) const;
  WideString ReadText(WideStringView oid);

  Context context_;
  ItemOperations& items_;
  const Operands& operands_;
  ChangeQueue& queue_;
};

}  // namespace rules
