// The parts of a double, read and made from its bits.
#pragma once

#include <bit>
#include <cstdint>

namespace brelt::mathlib {

// 2^k, for k from -1022 to 1023.
inline double Pow2(int k) {
  return std::bit_cast<double>(static_cast<std::uint64_t>(k + 1023) << 52);
}

// The unbiased exponent of a normal double: x lies in [2^e, 2^(e+1)).
inline int ExponentOf(double x) {
  return static_cast<int>((std::bit_cast<std::uint64_t>(x) >> 52) & 0x7FF) - 1023;
}

}  // namespace brelt::mathlib
