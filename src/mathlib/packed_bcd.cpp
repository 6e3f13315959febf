// MATHLIB::LongToBcd and MATHLIB::BcdToLong: packed decimal by integer and double arithmetic,
// with the limits of their own that callers rely on (1.15e18 is the overflow bound, not 1e18).
#include <cstdint>

#include "brelt/mathlib.h"

namespace MATHLIB {

PackedBcd LongToBcd(double value) {
  PackedBcd out{};
  double magnitude = value;
  if (value < 0.0) {  // negative zero is not below 0 and stays positive
    out.bytes[9] = 0x80;
    magnitude = -value;
  }
  // NaN fails this test as well, and so gets the digits of an overflow.
  if (!(magnitude < 1.15e18)) {
    for (int i = 0; i < 9; ++i) out.bytes[i] = 0x99;
    return out;
  }
  if (magnitude < 1.0) return out;
  // Below 1.15e18 every double is an integer of at most 60 bits after cutting its fraction,
  // so the conversion is exact and every digit below is right.
  std::uint64_t rest = static_cast<std::uint64_t>(magnitude);
  // Four digits at a time, lowest first, into two bytes each; the fifth group has room for its
  // tens and units only, so a nineteenth digit (from 1e18 on) is dropped.
  for (int g = 0; g < 5; ++g) {
    const auto group = static_cast<unsigned>(rest % 10000);
    rest /= 10000;
    out.bytes[2 * g] = static_cast<unsigned char>((group / 10 % 10) << 4 | group % 10);
    if (g < 4) {
      out.bytes[2 * g + 1] = static_cast<unsigned char>((group / 1000) << 4 | group / 100 % 10);
    }
  }
  return out;
}

double BcdToLong(PackedBcd bcd) {
  double sum = 0.0;
  for (int i = 0; i < 9; ++i) {
    const double power = IntPow(100.0, i);
    const unsigned byte = bcd.bytes[i];
    // Two roundings per byte, units first, in this order: the result above 2^53 depends on it.
    sum += static_cast<double>(byte & 0x0F) * power;
    sum += static_cast<double>((byte >> 4) * 10) * power;
  }
  return (bcd.bytes[9] & 0x80) != 0 ? -sum : sum;
}

}  // namespace MATHLIB
