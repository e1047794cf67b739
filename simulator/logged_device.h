// A device with a log of what is asked of it.
#pragma once

#include "platform/device.h"
#include "simulator/effects.h"

#include <memory>

namespace simulator {

// The log must live longer.
std::unique_ptr<platform::ISnmpConfig> MakeLoggedDevice(std::unique_ptr<platform::ISnmpConfig> device,
                                                        LineLog& effects);

}  // namespace simulator
