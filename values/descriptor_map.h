// All properties of the model, by OID, or by command OID and field number where they are fields of a command.
#pragma once

#include "base/wide_string.h"

#include <functional>
#include <unordered_map>

namespace values {

class PropertyDescriptor;

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(WideStringView text) const { return std::hash<WideStringView>()(text); }
};

// The model owns the descriptors and takes them out.
using DescriptorMap = std::unordered_map<WideString, PropertyDescriptor*, TextHash, std::equal_to<>>;

// Null when there is none.
inline PropertyDescriptor* FindDescriptor(const DescriptorMap& descriptors, WideStringView oid) {
  const auto found = descriptors.find(oid);
  return found == descriptors.end() ? nullptr : found->second;
}

}  // namespace values
