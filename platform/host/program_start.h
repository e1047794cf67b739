// How the machine starts a file of the terminal as a program.
#pragma once

#include "platform/host/root_path.h"

#include <cstdint>
#include <string>

namespace platform::host {

// The codes of the terminal's system.
inline constexpr std::uint32_t kFileNotFound = 2;
inline constexpr std::uint32_t kPathNotFound = 3;
inline constexpr std::uint32_t kRefused = 5;
inline constexpr std::uint32_t kBadName = 123;
inline constexpr std::uint32_t kBadProgram = 193;

// Why what is there, of whatever kind, is nothing that can be started; 0 when it may be.
std::uint32_t WhyNoProgram(const Place& place);

// Starts the program of that full name, and does not wait for it. 0, or why it cannot be started.
std::uint32_t Spawn(const std::string& program, WideStringView arguments);

}  // namespace platform::host
