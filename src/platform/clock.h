// The clocks the os module is built on, and the lock that guards its tick extension.
#pragma once

#include <cstdint>

namespace brelt::platform {

// Milliseconds since the system started, wrapping after 2^32.
std::uint32_t TickCount();

// The high-resolution counter's ticks per second; false when there is no such counter.
bool CounterFrequency(std::int64_t* hz);
// The counter's reading; only meaningful where CounterFrequency succeeded.
std::int64_t CounterReading();

// A lock held for a few instructions at a time: the platform's critical section, spinning
// `spinCount` times before it sleeps. Storage is the caller's, zeroed or not.
struct TickLock {
  alignas(16) unsigned char storage[64];
};
void InitTickLock(TickLock* lock, unsigned spinCount);
void EnterTickLock(TickLock* lock);
void LeaveTickLock(TickLock* lock);

}  // namespace brelt::platform
