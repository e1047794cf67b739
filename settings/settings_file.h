// The settings file: YAML, maps of menus and names as on the screen, one value an entry.
//
//   Network:
//     Name: TRUCK-07              as the screen shows it
//     Addresses:
//       DHCP: !raw 0              as the device has it
//       Gateway: !default         the configuration's factory value
//   Wireless:
//     Key Value: !secret KEY      that secret
//   1.3.6.1.4.1.4242.10.4.2.0: 30   an entry may be given by its OID, at any place
//
// Nothing else of YAML has a meaning here: lists, anchors, aliases, other tags and further documents are slips. All
// values are texts: "on", "1.0" and "0x10" are what they look like.
#pragma once

#include "settings/given_value.h"

#include <string_view>

namespace settings {

// `file` is the name in the positions. Never fails but by what `problems` says.
SettingsFile ReadSettingsFile(const std::string& file, std::string_view bytes);

}  // namespace settings
