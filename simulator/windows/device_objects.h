// The simulated device behind the COM interfaces that the utility uses.
//
// The storage is the folder that the environment variable KEL_TERMINAL names, else the current folder: device.txt and
// tables.txt. What is asked of the device goes to the end of the file that KEL_DEVICE_LOG names, if it is set.
#pragma once

#include "platform/win32/com.h"
#include "platform/win32/device_interfaces.h"

namespace simulator {

// {7C1B6A64-35C4-4E0B-9B1F-6C2D0E6F4A11}
inline constexpr CLSID kConfigPropertyClass = {
    0x7C1B6A64, 0x35C4, 0x4E0B, {0x9B, 0x1F, 0x6C, 0x2D, 0x0E, 0x6F, 0x4A, 0x11}};

// Null when the storage cannot be read; why goes to the debugger. The caller releases the object.
platform::win32::ComPointer<IUnknown> MakeSnmpConfig();
platform::win32::ComPointer<IUnknown> MakeConfigProperty();

}  // namespace simulator
