#include "values/property_descriptor.h"

#include "base/format.h"
#include "base/number.h"
#include "config/data_store.h"
#include "platform/debug.h"
#include "values/host_address.h"
#include "values/range.h"
#include "values/value_types.h"

#include <atomic>
#include <utility>

namespace values {
namespace {

std::atomic<int> liveCount = 0;

}  // namespace

int PropertyDescriptor::LiveCount() { return liveCount; }

PropertyDescriptor::PropertyDescriptor(const config::ConfigKey* key, DeviceAccess& device, const SymbolTable& symbols,
                                       DescriptorMap& descriptors)
    : device_(device), symbols_(symbols), key_(key) {
  ++liveCount;
  if (key != nullptr) {
    for (const auto& [name, text] : key->Values()) attributes_.Set(name, WideString(text));
  }
  if (WideString layout = Resolve(TextId::kCmdString); !layout.empty()) layout_.emplace(std::move(layout));

  if (WideString commandOid = Resolve(TextId::kCmdOid); !commandOid.empty()) {
    InitFromCommand(descriptors);
    descriptors.insert_or_assign(std::move(commandOid), this);
  } else if (WideString oid = GetOID(); !oid.empty()) {
    if (IsPseudoOid(oid)) {
      InitFromPseudoOid(oid);
    } else {
      InitValue();
      if (!Resolve(TextId::kWep).empty()) ParseValue(value_.AsText(), value_);
    }
    descriptors.insert_or_assign(std::move(oid), this);
  }

  const bool isNamed = attributes_.Has(TextId::kDisplayName);
  displayName_ = symbols_.TextOf(isNamed ? attributes_.Get(TextId::kDisplayName) : u"No Display Name");
  type_ = available_ ? attributes_.Get(TextId::kType) : WideStringView();
  if (type_.empty()) type_ = LoadText(TextId::kNone);
  if (available_) subType_ = attributes_.Get(TextId::kSubType);
  InitEditor();
}

PropertyDescriptor::~PropertyDescriptor() { --liveCount; }

WideString PropertyDescriptor::Path() const { return key_ == nullptr ? WideString() : key_->FullPath(); }

void PropertyDescriptor::InitFromPseudoOid(WideStringView oid) {
  if (oid != LoadText(TextId::kGetIpAddress)) return;  // the rules know the others
  WideString address;
  if (GetHostIPString(address) != 0) return;
  ParseValue(address, value_);
  readOnly_ = true;
}

void PropertyDescriptor::InitEditor() {
  editorName_ = attributes_.Get(TextId::kPropEditor);
  if (!editorName_.empty()) return;

  const bool isSecure = attributes_.Has(TextId::kSecurity);
  if (isSecure) readOnly_ = true;
  const bool isClosed = isSecure || attributes_.Has(TextId::kCmdString) || !available_;
  editorName_ = isClosed ? LoadText(TextId::kNone) : WideStringView(type_);
}

void PropertyDescriptor::SetUnavailable() {
  readOnly_ = true;
  available_ = false;
  type_ = LoadText(TextId::kNone);
}

void PropertyDescriptor::InitValue() {
  const WideString oid = DeviceOid();
  if (oid.empty() || IsPseudoOid(oid)) return;
  const WideString type = GetType();

  std::optional<WideString> text;
  try {
    const platform::ResultCode result = device_.Get(oid, type, text);
    if (result != platform::kOk) {
      platform::DebugOutput(base::Format(u"**FAILED PropertyDescriptor::InitValue SnmpGet %s %s\r\n", oid, type));
      text.reset();
    }
  } catch (...) {
    platform::DebugOutput(base::Format(u"EXCEPTION: PropertyDescriptor::InitValue SnmpGet %s %s\r\n", oid, type));
    text.reset();
  }
  if (text) {
    ParseValue(*text, value_);
  } else {
    SetUnavailable();
  }
}

void PropertyDescriptor::ParseValue(WideStringView text, PropertyValue& value) const {
  ParseValueAs(attributes_.Get(TextId::kType), text, value);
}

TextId PropertyDescriptor::GetTypeId() const { return TypeIdOf(GetType()); }

int PropertyDescriptor::GetMaxChars() const { return base::ToLong(attributes_.Get(TextId::kMaxChars)); }

WideString PropertyDescriptor::GetTextFormat() const {
  if (layout_) return layout_->Mask();
  if (base::EqualsIgnoringCase(type_, LoadText(TextId::kIpAddress))) return {};

  WideString mask(attributes_.Get(TextId::kTextFmt));
  if (mask.empty()) {
    const WideString range = Resolve(TextId::kRange);
    if (range != kUnresolved) mask = MaskFromRange(range);
  }
  if (mask.empty() && base::EqualsIgnoringCase(type_, LoadText(TextId::kInteger))) {
    mask = LoadText(TextId::kIntegerMask);
  }
  return mask;
}

WideString PropertyDescriptor::ChoiceText() const { return symbols_.TextOf(Resolve(TextId::kChoiceFmt)); }

ChoiceFormat PropertyDescriptor::Choices() const {
  return ChoiceFormat(ChoiceText(), GetTypeId() == TextId::kInteger ? KeyMode::kNumeric : KeyMode::kText);
}

void PropertyDescriptor::ReplaceType(WideString type) {
  if (type.empty()) return;
  attributes_.Set(TextId::kType, type);
  if (!available_) return;
  type_ = std::move(type);
  InitEditor();
}

bool PropertyDescriptor::TestRange(const PropertyValue& value, WideString& message) const {
  const WideString range = Resolve(TextId::kRange);
  if (range.empty()) return true;
  if (range == kUnresolved) {
    message = LoadText(TextId::kRangeTableNotFound);
    return false;
  }
  if (InRange(value.AsInteger(), range)) return true;
  message = base::Format(LoadText(TextId::kOutOfRange), value.AsInteger(), range);
  return false;
}

}  // namespace values
