// Checks of what a property is: its type, its editor, its OID, and whether it keeps its secret.
#include "authoring/checks/lists.h"

#include "authoring/secrets.h"
#include "base/utf8.h"

#include <algorithm>
#include <array>

namespace authoring::checks {
namespace {

constexpr std::array<TextId, 13> kTypes = {
    TextId::kNone,      TextId::kInteger,   TextId::kBool,   TextId::kOctetString, TextId::kIpAddress,
    TextId::kReaderCmd, TextId::kPassword,  TextId::kHex,    TextId::kHex32,       TextId::kCounter,
    TextId::kGauge,     TextId::kTimeTicks, TextId::kOpaque,
};

const std::vector<WideStringView>& TypeNames() {
  static const std::vector<WideStringView> all = [] {
    std::vector<WideStringView> names;
    names.reserve(kTypes.size());
    for (const TextId type : kTypes) names.push_back(LoadText(type));
    return names;
  }();
  return all;
}

bool IsExactly(WideStringView text, const std::vector<WideStringView>& names) {
  return std::find(names.begin(), names.end(), text) != names.end();
}

bool IsInAnyCase(WideStringView text, const std::vector<WideStringView>& names) {
  return std::any_of(names.begin(), names.end(),
                     [text](WideStringView name) { return base::EqualsIgnoringCase(text, name); });
}

}  // namespace

bool IsTypeName(WideStringView text) { return IsExactly(text, TypeNames()); }

void TypeMissing(const Subject& subject, Findings& findings) {
  if (subject.Has(Attribute::kType)) return;
  findings.Add(subject, "A property without a Type shows no value and cannot be edited.", "Give it a Type.");
}

void TypeUnknown(const Subject& subject, Findings& findings) {
  const WideStringView type = subject.Get(Attribute::kType);
  if (type.empty() || IsExactly(type, TypeNames()) || IsInAnyCase(type, TypeNames())) return;
  findings.Add(subject, Attribute::kType,
               "There is no Type " + Quoted(type) + ": the line shows no value, and Enter does nothing.",
               MendByNearest(type, TypeNames(), "Take one of the types there are."));
}

void TypeMiscased(const Subject& subject, Findings& findings) {
  const WideStringView type = subject.Get(Attribute::kType);
  if (IsExactly(type, TypeNames()) || !IsInAnyCase(type, TypeNames())) return;
  findings.Add(
      subject, Attribute::kType,
      "The editor of " + Quoted(type) +
          " is not found in this case: it opens without the value and the choices, which are compared as texts.",
      MendByNearest(type, TypeNames(), {}));
}

void EditorUnknown(const Subject& subject, Findings& findings) {
  const WideStringView editor = subject.Get(Attribute::kPropEditor);
  if (editor.empty() || IsExactly(editor, TypeNames())) return;
  const bool miscased = IsInAnyCase(editor, TypeNames());
  findings.Add(subject, Attribute::kPropEditor,
               miscased ? "The editor " + Quoted(editor) + " opens without the value: upper and lower case count."
                        : "There is no editor " + Quoted(editor) + ": the property cannot be edited.",
               MendByNearest(editor, TypeNames(), "Name a type, or None."));
}

void SubTypeUnknown(const Subject& subject, Findings& findings) {
  const WideStringView subType = subject.Get(Attribute::kSubType);
  if (subType.empty()) return;
  constexpr std::array<WideStringView, 3> kKnown = {u"Date", u"Time", u"Funk"};
  const bool isDate = base::EqualsIgnoringCase(subType, u"Date") || base::EqualsIgnoringCase(subType, u"Time");
  const bool isFunk = subType == u"Funk";
  const auto type = subject.Type();
  if (!isDate && !isFunk) {
    findings.Add(subject, Attribute::kSubType, "The SubType " + Quoted(subType) + " means nothing and is ignored.",
                 MendByNearest(subType, kKnown, "Take Date, Time or Funk, or leave it out."));
  } else if (isDate && type != values::TypeCode::kInteger) {
    findings.Add(subject, Attribute::kSubType,
                 "The SubType " + Quoted(subType) + " means something on an Integer only.",
                 "Make the Type Integer, or leave the SubType out.");
  } else if (isFunk && (type != values::TypeCode::kHex || !subject.Has(Attribute::kWep))) {
    findings.Add(subject, Attribute::kSubType, "The SubType Funk means something on a Hex or Hex32 with WEP only.",
                 "Leave the SubType out.");
  }
}

void FillOidUnknown(const Subject& subject, Findings& findings) {
  const WideStringView fill = subject.Resolved(Attribute::kFillOid);
  const bool hasStar = subject.Get(Attribute::kOid).find(u'*') != WideStringView::npos;
  if (!fill.empty() && fill != u"Profile") {
    constexpr std::array<WideStringView, 1> kKnown = {u"Profile"};
    findings.Add(subject, Attribute::kFillOid, "The FillOID " + Quoted(fill) + " fills nothing in: only Profile does.",
                 MendByNearest(fill, kKnown, "Write \"Profile\"."));
  } else if (!fill.empty() && !hasStar) {
    findings.Add(subject, Attribute::kFillOid, "There is no \"*\" in the OID for the profile to stand for.",
                 "Put a \"*\" into the OID, or leave FillOID out.");
  }
}

void StarWithoutFillOid(const Subject& subject, Findings& findings) {
  if (subject.Get(Attribute::kOid).find(u'*') == WideStringView::npos || subject.Has(Attribute::kFillOid)) return;
  findings.Add(subject, Attribute::kOid, "The device is asked for an OID with a \"*\" in it: nothing fills it in.",
               "Give the property FillOID Profile.");
}

void ProfileMissing(const Subject& subject, Findings& findings) {
  const Survey& survey = subject.All();
  if (!survey.Source().Terminal().hasDevice || subject.Resolved(Attribute::kFillOid) != u"Profile") return;
  if (subject.Get(Attribute::kOid).find(u'*') == WideStringView::npos) return;
  if (survey.DeviceText(kActiveProfile) != nullptr) return;
  findings.Add(subject, Attribute::kFillOid,
               "The device does not give cfg|80211PM|ActiveProfile, so the \"*\" becomes an empty text.",
               "Give device.txt a line for cfg|80211PM|ActiveProfile.");
}

void OidBlanks(const Subject& subject, Findings& findings) {
  for (const Attribute attribute : {Attribute::kOid, Attribute::kCmdOid}) {
    const WideStringView oid = subject.Get(attribute);
    if (base::Trim(oid) == oid) continue;
    findings.Add(subject, attribute, "Blanks and line ends around an OID are part of it: the device has no such OID.",
                 "Write " + Quoted(base::Trim(oid)) + " right between the tags.");
  }
}

void SecretInClear(const Subject& subject, Findings& findings) {
  if (subject.Has(Attribute::kPassWordChar) || subject.Has(Attribute::kWep)) return;
  if (subject.Type() != values::TypeCode::kOctetString || subject.Has(Attribute::kChoiceFmt)) return;
  const WideStringView name = subject.All().Source().Symbols().ViewOf(subject.Get(Attribute::kDisplayName));
  if (!NamesASecret(name)) return;
  findings.Add(subject, "By its name " + Quoted(name) + " is a secret, and its value stands on its line in clear.",
               "Make its Type Password, or give it PassWordChar.");
}

void KeyWithoutWep(const Subject& subject, Findings& findings) {
  if (subject.Get(Attribute::kType) != LoadText(TextId::kHex32) || subject.Has(Attribute::kWep)) return;
  findings.Add(subject, Attribute::kType,
               "Without WEP a key of Type Hex32 is tested as a WEP key when it is saved: no pre-shared key is taken.",
               "Give it WEP with the text that its line is to show.");
}

}  // namespace authoring::checks
