#include "values/property_descriptor.h"

#include "base/format.h"
#include "base/number.h"
#include "config/data_store.h"
#include "platform/debug.h"
#include "values/host_address.h"
#include "values/range.h"
#include "values/value_types.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace values {
namespace {

std::atomic<int> liveCount = 0;

}  // namespace

int PropertyDescriptor::LiveCount() { return liveCount; }

PropertyDescriptor::PropertyDescriptor(const config::ConfigKey* key, DeviceAccess& device, const SymbolTable& symbols,
                                       DescriptorMap& descriptors)
    : device_(device), symbols_(symbols), descriptors_(descriptors), key_(key), attributes_(key) {
  ++liveCount;
  layout_ = MakeLayout();

  if (WideString commandOid = Resolve(TextId::kCmdOid); !commandOid.empty()) {
    InitFromCommand();
    EnterInto(descriptors, std::move(commandOid));
  } else if (WideString oid = GetOID(); !oid.empty()) {
    if (IsPseudoOid(oid)) {
      InitFromPseudoOid(oid);
    } else {
      InitValue();
      if (!Resolve(TextId::kWep).empty()) ParseValue(value_.AsText(), value_);
    }
    EnterInto(descriptors, std::move(oid));
  }

  const bool isNamed = attributes_.Has(TextId::kDisplayName);
  displayName_ = symbols_.ViewOf(isNamed ? attributes_.Get(TextId::kDisplayName) : u"No Display Name");
  const bool isSecured = attributes_.Has(TextId::kSecurity) && !attributes_.Has(TextId::kPropEditor);
  if (isSecured) readOnly_ = true;
}

PropertyDescriptor::~PropertyDescriptor() { --liveCount; }

WideString PropertyDescriptor::Path() const { return key_ == nullptr ? WideString() : key_->FullPath(); }

// Null when the property is no command. A command may stand on thousands of lines and have thousands of fields.
std::shared_ptr<const FieldWidthList> PropertyDescriptor::MakeLayout() const {
  WideString text = Resolve(TextId::kCmdString);
  if (text.empty()) return nullptr;
  const PropertyDescriptor* const earlier = FindDescriptor(descriptors_, GetOID());
  const bool isKnown = earlier != nullptr && earlier->layout_ != nullptr && earlier->layout_->Text() == text;
  return isKnown ? earlier->layout_ : std::make_shared<const FieldWidthList>(std::move(text));
}

void PropertyDescriptor::EnterInto(DescriptorMap& descriptors, WideString oid) {
  const auto [entry, isFirst] = descriptors.try_emplace(std::move(oid), this);
  if (!isFirst) earlier_ = std::exchange(entry->second, this);
}

void PropertyDescriptor::InitFromPseudoOid(WideStringView oid) {
  if (oid != LoadText(TextId::kGetIpAddress)) return;  // the rules know the others
  WideString address;
  if (GetHostIPString(address) != 0) return;
  ParseValue(address, value_);
  readOnly_ = true;
}

WideStringView PropertyDescriptor::EditorName() const {
  if (attributes_.Has(TextId::kPropEditor)) return attributes_.Get(TextId::kPropEditor);
  const bool isClosed = attributes_.Has(TextId::kSecurity) || attributes_.Has(TextId::kCmdString);
  return isClosed ? LoadText(TextId::kNone) : HeldType();
}

WideStringView PropertyDescriptor::HeldType() const {
  const bool isHeld = available_ && attributes_.Has(TextId::kType);
  return isHeld ? attributes_.Get(TextId::kType) : LoadText(TextId::kNone);
}

WideStringView PropertyDescriptor::SubType() const {
  return available_ ? attributes_.Get(TextId::kSubType) : WideStringView();
}

void PropertyDescriptor::SetNewValue(PropertyValue value) {
  if (!beforeEdit_) beforeEdit_ = std::move(value_);
  value_ = std::move(value);
  refused_.reset();
}

void PropertyDescriptor::SetTaken(PropertyValue value) {
  refused_.reset();
  SetRead(std::move(value));
}

void PropertyDescriptor::SetRefused(PropertyValue value) {
  DropEdit();
  refused_ = std::move(value);
}

void PropertyDescriptor::DropEdit() {
  if (beforeEdit_) value_ = *std::exchange(beforeEdit_, std::nullopt);
}

void PropertyDescriptor::SetRead(PropertyValue value) {
  DropEdit();
  if (value_ != value) refused_.reset();
  value_ = std::move(value);
  available_ = true;
}

void PropertyDescriptor::InitValue() {
  const WideString oid = device_.FillOid(GetOID(), attributes_);
  if (oid.empty() || IsPseudoOid(oid)) return;
  const WideString type = GetType();

  std::optional<WideString> text;
  missed_ = false;
  try {
    const platform::ResultCode result = device_.Get(oid, type, text);
    missed_ = result == platform::kTimedOut;
    if (result != platform::kOk) {
      platform::DebugOutput(base::Format(u"**FAILED PropertyDescriptor::InitValue SnmpGet %s %s\r\n", oid, type));
      text.reset();
    }
  } catch (...) {
    platform::DebugOutput(base::Format(u"EXCEPTION: PropertyDescriptor::InitValue SnmpGet %s %s\r\n", oid, type));
    text.reset();
  }
  if (!text) {
    available_ = false;
    return;
  }
  PropertyValue read = value_;
  ParseValue(*text, read);
  SetRead(std::move(read));
}

void PropertyDescriptor::ParseValue(WideStringView text, PropertyValue& value) const {
  ParseValueAs(attributes_.Get(TextId::kType), text, value);
}

TextId PropertyDescriptor::GetTypeId() const { return TypeIdOf(GetType()); }

int PropertyDescriptor::GetMaxChars() const { return base::ToLong(attributes_.Get(TextId::kMaxChars)); }

WideString PropertyDescriptor::GetTextFormat() const {
  if (layout_) return layout_->Mask();
  if (base::EqualsIgnoringCase(HeldType(), LoadText(TextId::kIpAddress))) return {};

  WideString mask(attributes_.Get(TextId::kTextFmt));
  if (mask.empty()) {
    const WideString range = Resolve(TextId::kRange);
    if (range != kUnresolved) mask = MaskFromRange(range);
  }
  if (mask.empty() && base::EqualsIgnoringCase(HeldType(), LoadText(TextId::kInteger))) {
    mask = LoadText(TextId::kIntegerMask);
  }
  return mask;
}

WideString PropertyDescriptor::ChoiceText() const { return symbols_.TextOf(Resolve(TextId::kChoiceFmt)); }

ChoiceFormat PropertyDescriptor::Choices() const {
  return ChoiceFormat(ChoiceText(), GetTypeId() == TextId::kInteger ? KeyMode::kNumeric : KeyMode::kText);
}

void PropertyDescriptor::ReplaceType(WideString type) {
  if (!type.empty()) attributes_.Set(TextId::kType, std::move(type));
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

WideString DeviceOid(const DescriptorMap& descriptors, DeviceAccess& device, const WideString& oid) {
  const PropertyDescriptor* property = FindDescriptor(descriptors, oid);
  return property == nullptr ? oid : device.FillOid(oid, property->Attributes());
}

}  // namespace values
