// The names that a configuration may use, as numbers and sets.
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

namespace authoring {

enum class Attribute : std::uint8_t {
  kDisplayName,
  kOid,
  kCmdOid,
  kType,
  kOrdinal,
  kDefVal,
  kChoiceFmt,
  kCmdString,
  kDescendent,
  kUnavailable,
  kPropEditor,
  kSecurity,
  kTextFmt,
  kRange,
  kMaxChars,
  kSubType,
  kFillOid,
  kPassWordChar,
  kWep,
  kCustPage,
  kPageDependency,
  kShortDesc,
  kSnmpEvent,
  kSymbology,
  kOnEnter,
  kOnError,
  kFunction,
  kAppName,
  kEvent,
  kDependency,  // and its numbered followers
  kOnExit,      // the same
  kUnknown,     // any other name
};
inline constexpr std::size_t kAttributeCount = static_cast<std::size_t>(Attribute::kUnknown);

WideStringView NameOf(Attribute attribute);

// The attribute of a name; `number` is that of a numbered follower, 0 for the first. kUnknown for what is none, such as
// "Dependency01".
struct NamedAttribute {
  Attribute attribute = Attribute::kUnknown;
  int number = 0;
};
NamedAttribute AttributeOf(WideStringView name);

// Whether an attribute's text is looked up in a table of the property server, where a table is asked.
inline constexpr WideStringView kIndirect = u"Table,";
inline bool IsIndirect(WideStringView text) { return text.starts_with(kIndirect); }

// "Dependency", "Dependency1" and so on.
WideString NumberedName(Attribute stem, int number);
// Their texts, as far as they run.
std::vector<WideStringView> NumberedTexts(const config::ConfigKey& key, Attribute stem);

class AttributeSet {
 public:
  constexpr AttributeSet() = default;
  constexpr AttributeSet(std::initializer_list<Attribute> attributes) {
    for (const Attribute attribute : attributes) Add(attribute);
  }
  constexpr void Add(Attribute attribute) { bits_ |= std::uint64_t{1} << static_cast<unsigned>(attribute); }
  constexpr bool Has(Attribute attribute) const { return (bits_ >> static_cast<unsigned>(attribute) & 1) != 0; }
  constexpr bool HasAnyOf(AttributeSet others) const { return (bits_ & others.bits_) != 0; }
  constexpr bool IsEmpty() const { return bits_ == 0; }

 private:
  std::uint64_t bits_ = 0;
};

}  // namespace authoring
