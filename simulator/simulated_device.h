// The device's two configuration objects over the storage, with a log of what is asked of them.
#pragma once

#include "platform/device.h"
#include "simulator/device_store.h"
#include "simulator/effects.h"
#include "simulator/property_tables.h"

#include <memory>

namespace simulator {

inline constexpr WideStringView kPropertyServer = u"Valtorix.ConfigProperty";

// The store and the log must live longer. Both kinds of operations reach the same values.
std::unique_ptr<platform::ISnmpConfig> MakeSimulatedDevice(DeviceStore& store, LineLog& effects);

// Fails with kFailed for a table or key that is not there, and as an unknown class for another server.
platform::TableAnswer AnswerTableValue(const PropertyTables& tables, LineLog& effects, const WideString& progId,
                                       const WideString& table, const WideString& key);

}  // namespace simulator
