// The attributes of one property, and the look-up of those that stand in a table of the property server.
#pragma once

#include "base/string_table.h"
#include "base/wide_string.h"

#include <map>
#include <utility>

namespace config {
class ConfigKey;
}

namespace values {

// Names are exact. An attribute that is present but empty counts as not set.
class AttributeMap {
 public:
  AttributeMap() = default;
  // The values of a key, which must outlive this: many properties may stand on one key, and none has a copy of it.
  explicit AttributeMap(const config::ConfigKey* key) : key_(key) {}

  // The text as it stands, without any look-up; empty when not set. Valid until the attribute is set anew.
  WideStringView Get(WideStringView name) const;
  WideStringView Get(TextId name) const { return Get(LoadText(name)); }
  bool Has(TextId name) const { return !Get(name).empty(); }

  // From now on instead of what the key says.
  void Set(WideStringView name, WideString text);
  void Set(TextId name, WideString text) { Set(LoadText(name), std::move(text)); }

 private:
  const config::ConfigKey* key_ = nullptr;
  std::map<WideString, WideString, std::less<>> set_;
};

// What an indirect attribute gives when the property server cannot supply it.
inline constexpr WideStringView kUnresolved = u"Error";

// What an attribute's text stands for: itself, but one of the form "Table,TABLE,KEY" for that entry of the
// configuration property server. The entry's text is the result, or kUnresolved when there is none. Only the first two
// commas divide; a missing key is an empty one.
WideString ResolveText(WideStringView text);

inline WideString ResolveAttribute(const AttributeMap& attributes, WideStringView name) {
  return ResolveText(attributes.Get(name));
}
inline WideString ResolveAttribute(const AttributeMap& attributes, TextId name) {
  return ResolveAttribute(attributes, LoadText(name));
}

}  // namespace values
