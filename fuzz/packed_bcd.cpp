// Packed BCD: MATHLIB::LongToBcd over any double and MATHLIB::BcdToLong over any ten bytes.
// Invariants: LongToBcd writes digits 0 to 9 only and a sign byte of 0x00 or 0x80 (0x80 exactly
// for values below 0); below 2^53 its digits read back as the whole part of the value, and
// from 1.15e18 on (and for NaN) they are all nines. BcdToLong of any bytes gives the sum of
// digit times power that a walk from the highest byte down gives, where that sum is exact (below
// 2^53), and its sign follows bit 7 of byte 9 alone.
//
// Input: eight bytes of a double, then ten bytes of a record, from the front.
#include <brelt/mathlib.h>

#include <cmath>
#include <cstring>

#include "fuzz_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 18) return 0;
  double value;
  std::memcpy(&value, data, sizeof value);
  const MATHLIB::PackedBcd b = MATHLIB::LongToBcd(value);
  for (int i = 0; i < 9; ++i) BRELT_FUZZ_CHECK((b.bytes[i] & 0x0F) <= 9 && b.bytes[i] >> 4 <= 9);
  BRELT_FUZZ_CHECK(b.bytes[9] == (value < 0.0 ? 0x80 : 0x00));
  const double magnitude = std::fabs(value);
  if (magnitude < 9007199254740992.0) {
    BRELT_FUZZ_CHECK(MATHLIB::BcdToLong(b) == std::trunc(value));
  } else if (!(magnitude < 1.15e18)) {
    for (int i = 0; i < 9; ++i) BRELT_FUZZ_CHECK(b.bytes[i] == 0x99);
  }

  MATHLIB::PackedBcd r;
  std::memcpy(r.bytes, data + 8, sizeof r.bytes);
  std::uint64_t sum = 0;  // at most 165 * (100^9 - 1) / 99, well inside 64 bits
  for (int i = 8; i >= 0; --i) sum = sum * 100 + (r.bytes[i] >> 4) * 10 + (r.bytes[i] & 0x0F);
  const double got = MATHLIB::BcdToLong(r);
  BRELT_FUZZ_CHECK(std::signbit(got) == ((r.bytes[9] & 0x80) != 0));
  if (sum < (std::uint64_t{1} << 53)) BRELT_FUZZ_CHECK(std::fabs(got) == static_cast<double>(sum));
  return 0;
}
