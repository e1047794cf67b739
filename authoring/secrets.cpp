#include "authoring/secrets.h"

#include "values/shown_value.h"
#include "values/value_types.h"

#include <algorithm>
#include <array>

namespace authoring {

bool NamesASecret(WideStringView displayName) {
  static constexpr std::array<WideStringView, 5> kWords = {u"PASSWORD", u"PASSPHRASE", u"PASS PHRASE", u"PASSCODE",
                                                           u"SECRET"};
  const WideString name = base::ToUpper(displayName);
  return std::any_of(kWords.begin(), kWords.end(),
                     [&name](WideStringView word) { return name.find(word) != WideString::npos; });
}

bool IsSecret(const values::PropertyDescriptor& property) {
  constexpr WideStringView kAny = u"any";
  if (values::MaskedText(property, kAny) != kAny) return true;
  const bool isText = values::TypeCodeOf(property.Attributes().Get(TextId::kType)) == values::TypeCode::kOctetString;
  return isText && property.Choices().Count() == 0 && NamesASecret(property.DisplayName());
}

}  // namespace authoring
