// Two walks over the whole configuration that turn keys into changes of settings: back to the factory values
// (`DefVal`), and what the exit rules ("IfChanges:") ask for.
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"
#include "config/data_store.h"

namespace model {

enum class DefaultsMode { kRestore, kExitRules };

// What the walk asks and tells.
class DefaultsHost {
 public:
  virtual ~DefaultsHost() = default;
  // The verdict of the rules on a key.
  virtual bool IsActive(const config::ConfigKey& key) = 0;
  // The device's value; empty when it cannot be read.
  virtual WideString ReadValue(const WideString& oid, const WideString& type) = 0;
  virtual void QueueChange(const WideString& oid, const WideString& type, const WideString& value) = 0;
};

// Keys come before their children, children in the order of the source. A key with a default that the rules leave out
// is left out with all below it. What is below a key that several paths lead to is gone through within the bounds
// of KeyVisits.
void WalkDefaults(const config::PDataStore& tree, WideStringView path, DefaultsMode mode, DefaultsHost& host);

// The third part of a reader command's "first|second|third": what stands up to the next bar behind the text
// "first|second|" and its immediate repetitions. Where that text is not found at the front, it is what stands there.
WideStringView ThirdPart(WideStringView dependency);

// In the default of a reader command, every field in which the device's value already equals the third part of the
// key's `Dependency` keeps that value. The default of any other key stays as it is.
void MergeReaderCommand(const config::ConfigKey& key, DefaultsHost& host, WideString& defaultValue);

}  // namespace model
