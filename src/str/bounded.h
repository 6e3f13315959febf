// Shared helpers of the Str operations: the measured length of a bounded string and the
// character types of the two twins.
#pragma once

#include <cstdint>

#include "brelt/config.h"
#include "lib/scan_kernels.h"

namespace brelt::str {

// The element count of (high, s), formed in 64 bits so that high 0xFFFFFFFF does not wrap.
inline std::uint64_t Capacity(unsigned int high) { return std::uint64_t{high} + 1; }

// Index of the first NUL of (high, s), or high + 1 when the array is full.
template <class T>
inline std::uint64_t MeasuredLength(unsigned int high, const T* s) {
  return scan::FindEq(s, Capacity(high), T{0});
}

}  // namespace brelt::str
