// The process's environment variables (GetEnvironmentVariableA, SetEnvironmentVariableA).
// Names and values are NUL-terminated 8-bit text.
#pragma once

#include <cstdint>

namespace brelt::platform {

// With room for the value and a NUL in `capacity` bytes, stores them and gives the value's
// length; otherwise stores nothing and gives the room it needs, NUL included. 0 for a missing
// variable (last error kErrorEnvVarNotFound) and for an empty one.
std::uint32_t EnvironmentValue(const char* name, char* value, std::uint32_t capacity);

// Creates or replaces the variable; an empty value is kept as an empty text.
bool SetEnvironmentValue(const char* name, const char* value);

}  // namespace brelt::platform
