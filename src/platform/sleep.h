// Giving up the processor: for a while, or only for the moment (Sleep and Sleep (0)).
#pragma once

#include <cstdint>

namespace brelt::platform {

// Blocks the calling thread for `ms` milliseconds.
void SleepMs(std::uint32_t ms);

// Lets other ready threads run before the caller goes on; returns at once when none waits.
void YieldThread();

}  // namespace brelt::platform
