#include "platform/environment.h"

#include <windows.h>

namespace brelt::platform {

std::uint32_t EnvironmentValue(const char* name, char* value, std::uint32_t capacity) {
  return GetEnvironmentVariableA(name, value, capacity);
}

bool SetEnvironmentValue(const char* name, const char* value) {
  return SetEnvironmentVariableA(name, value) != 0;
}

}  // namespace brelt::platform
