// Test entries into the clocks' private state, reached through the static objects only.
#pragma once

#include <cstdint>

namespace brelt::os_clock {

// Replaces the platform's millisecond count (null restores it).
void SetTickSourceForTest(std::uint32_t (*source)());
// Sets the extension's state as if the last step had seen `lastTick` and reached `total`.
void SetTickStateForTest(std::uint32_t lastTick, std::uint64_t total);
// Pretends the counter exists or not, with the given frequency.
void SetHiResForTest(bool exists, std::int64_t hz);

}  // namespace brelt::os_clock
