// Environment variables between bounded strings and the platform's NUL-terminated texts.
#include "brelt/lib/process.h"
#include "brelt/str/core.h"
#include "platform/environment.h"

namespace Lib {

void GetEnvironmentStringA(unsigned int highName, const char* name, unsigned int highValue,
                           char* value) {
  // A name that fills its array has no NUL to end it for the platform.
  if (Str::LengthA(highName, name) == highName + 1u) {
    value[0] = '\0';
    return;
  }
  // In 32 bits, as the platform counts: a bound of all ones gives no room at all.
  const unsigned int capacity = highValue + 1u;
  const std::uint32_t got = brelt::platform::EnvironmentValue(name, value, capacity);
  // A value that does not fit whole is not cut: it reads as empty.
  if (got == 0 || got > capacity) value[0] = '\0';
}

void SetEnvironmentStringA(unsigned int highName, const char* name, unsigned int highValue,
                           const char* value) {
  if (Str::LengthA(highName, name) <= highName && Str::LengthA(highValue, value) <= highValue) {
    brelt::platform::SetEnvironmentValue(name, value);
  }
}

}  // namespace Lib
