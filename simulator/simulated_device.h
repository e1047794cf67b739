// The device's two configuration objects over the storage, with a log of what is asked of them.
#pragma once

#include "platform/device.h"
#include "simulator/device_store.h"
#include "simulator/effects.h"
#include "simulator/property_tables.h"

#include <functional>
#include <memory>

namespace simulator {

inline constexpr WideStringView kPropertyServer = u"Valtorix.ConfigProperty";

// Lets the time of a delay= pass.
using DeviceWait = std::function<void(int milliseconds)>;

// The store and the log must live longer. Both kinds of operations reach the same values. Without `wait` all of them
// take no time.
std::unique_ptr<platform::ISnmpConfig> MakeSimulatedDevice(DeviceStore& store, LineLog& effects, DeviceWait wait = {});

// Fails with kFailed for a table or key that is not there, and as an unknown class for another server.
platform::TableAnswer AnswerTableValue(const PropertyTables& tables, LineLog& effects, const WideString& progId,
                                       const WideString& table, const WideString& key);

}  // namespace simulator
