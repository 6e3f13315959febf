#include "platform/sleep.h"

#include <windows.h>

namespace brelt::platform {

void SleepMs(std::uint32_t ms) { Sleep(ms); }

void YieldThread() { Sleep(0); }

}  // namespace brelt::platform
