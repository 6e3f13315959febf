// The shared generator behind Lib::RANDOM, and what start-up and the internal tests reach of it.
#pragma once

#include <cstdint>

namespace brelt::lib {

inline constexpr unsigned kRandomTableSize = 55;

// Start-up's first step: the generator's lock stands free.
void FreeRandomLock();

// Seeds the generator: the lag indices at 54 and 23, and the table filled from `seed`.
void SeedRandom(std::uint32_t seed);

// For the internal tests: the state as it stands, and a generator that was never seeded
// (table and indices all 0), which seeds itself with 12345 at its first draw.
struct RandomSnapshot {
  std::uint32_t table[kRandomTableSize];
  std::uint32_t indexA;
  std::uint32_t indexB;
};
RandomSnapshot ReadRandomState();
void ClearRandomState();

}  // namespace brelt::lib
