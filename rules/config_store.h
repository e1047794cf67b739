// The stored settings: "\CfgSettings.txt", 16-bit units in little-endian order without a mark at the start. Of each
// property "<Tag>path<\Tag>", a line feed, "<Tag>OID<\Tag><Tag>value<\Tag>", and nothing between two properties.
#pragma once

#include "platform/files.h"
#include "rules/context.h"

namespace rules {

// Writes the properties below a key with their values on the device. What is below a key that several paths lead to is
// written within the bounds of model::KeyVisits. False when the file took not everything.
bool WriteConfigTree(const Context& context, WideStringView path, platform::OutputFile& file);

// Replaces the file. False, with the older file as it was, when it cannot be opened or written.
bool StoreConfig(const Context& context);

}  // namespace rules
