#include "ui/address_entry.h"

#include "base/format.h"
#include "ui/ip_address_control.h"
#include "values/ip_address.h"

namespace ui {
namespace {

int FilledFields(platform::WindowHandle control) {
  return static_cast<int>(platform::Send(control, address_message::kGet));
}

}  // namespace

void AddressEntry::Fill(const EditRequest& request) {
  startedEmpty_ = !request.number;
  if (request.number) {
    platform::Send(Handle(), address_message::kSet, 0, static_cast<platform::LParam>(*request.number));
  } else {
    platform::Send(Handle(), address_message::kClear);
  }
}

// A button leaves the fields without the check that their keys make.
bool AddressEntry::Finish() { return platform::Send(Handle(), address_message::kCheck) != 0; }

bool AddressEntry::HasValue() const { return !startedEmpty_ || FilledFields(Handle()) > 0; }

EnteredValue AddressEntry::Entered() const {
  std::uint32_t address = 0;
  platform::Send(Handle(), address_message::kGet, 0, platform::ToLParam(&address));
  const WideString text = values::DottedIpAddress(static_cast<std::int32_t>(address));
  return {text, values::EntryMode::kTyped, text};
}

// An empty field counts as 0, yet it is something else than one.
WideString AddressEntry::Contents() const { return base::Format(u"%d %s", FilledFields(Handle()), Entered().text); }

}  // namespace ui
