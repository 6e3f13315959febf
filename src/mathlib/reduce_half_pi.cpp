// x = m 2^(E-52) with a 53-bit m. Of x * 2/pi only the value modulo 4 counts, so the bits of
// 2/pi that would give multiples of 4 are passed over and a window of 256 bits is taken from
// there on: m times the window holds the quadrant in its two bits above bit 254 and the
// fraction below, with some 200 bits to spare for the cancellation near a multiple of pi/2.
#include "mathlib/reduce_half_pi.h"

#include <bit>
#include <iterator>
#include <cstdint>

#include "mathlib/constants_table.h"
#include "mathlib/float_bits.h"

namespace brelt::mathlib {
namespace {

using U128 = unsigned __int128;
constexpr int kTableBits = 64 * static_cast<int>(std::size(kTwoOverPiBits));

// The 64 bits of 2/pi from the bit of weight 2^-i on; bits of weight 2^0 and more are 0.
std::uint64_t TwoOverPiBits(int i) {
  const int p = i - 1;  // position in the table's bit stream
  if (p <= -64) return 0;
  if (p < 0) return kTwoOverPiBits[0] >> -p;
  const int word = p / 64, shift = p % 64;
  std::uint64_t bits = kTwoOverPiBits[word] << shift;
  if (shift != 0 && (word + 1) * 64 < kTableBits) bits |= kTwoOverPiBits[word + 1] >> (64 - shift);
  return bits;
}

}  // namespace

Reduced ReduceHalfPi(double x) {
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(x);
  const int e = static_cast<int>((bits >> 52) & 0x7FF) - 1023;
  const std::uint64_t m = (bits & 0x000FFFFFFFFFFFFFu) | (std::uint64_t{1} << 52);

  // m times the 256 bits of 2/pi from weight 2^-(e-53) on; the words above bit 255 are
  // multiples of 4 and dropped.
  const int first = e - 53;
  std::uint64_t p[4];  // p[3] highest
  U128 carry = 0;
  for (int w = 3; w >= 0; --w) {  // window word w holds bits first + 64w on
    const U128 t = static_cast<U128>(m) * TwoOverPiBits(first + 64 * w) + carry;
    p[3 - w] = static_cast<std::uint64_t>(t);
    carry = t >> 64;
  }
  int quadrant = static_cast<int>(p[3] >> 62);
  std::uint64_t f[4] = {p[3] & 0x3FFFFFFFFFFFFFFFu, p[2], p[1], p[0]};  // f[0] highest

  // A fraction of a half or more belongs to the next quadrant: take 1 - f, negated.
  const bool negative = (f[0] >> 61) != 0;
  if (negative) {
    quadrant = (quadrant + 1) & 3;
    std::uint64_t borrow = 1;
    for (int w = 3; w >= 0; --w) {
      const std::uint64_t v = ~f[w] + borrow;
      borrow = (borrow != 0 && v == 0) ? 1 : 0;
      f[w] = v;
    }
    f[0] &= 0x3FFFFFFFFFFFFFFFu;
  }

  // The fraction f / 2^254 as three pieces of 53 bits from its leading one on.
  int lead = 0;
  while (lead < 4 && f[lead] == 0) ++lead;
  if (lead == 4) return {quadrant, {0.0, 0.0}};
  const int shift = std::countl_zero(f[lead]);
  std::uint64_t a[3] = {};
  for (int i = 0; i < 3; ++i) {
    const int w = lead + i;
    const std::uint64_t hiPart = w < 4 ? f[w] << shift : 0;
    const std::uint64_t loPart = (shift != 0 && w + 1 < 4) ? f[w + 1] >> (64 - shift) : 0;
    a[i] = hiPart | loPart;
  }
  // The leading one stood at bit 255 - 64 lead - shift of the 256-bit f: weight 2^top.
  const int top = 255 - 64 * lead - shift - 254;
  const double p1 = static_cast<double>(a[0] >> 11) * Pow2(top - 52);
  const double p2 =
      static_cast<double>(((a[0] & 0x7FF) << 42) | (a[1] >> 22)) * Pow2(top - 105);
  const double p3 =
      static_cast<double>(((a[1] & 0x3FFFFF) << 31) | (a[2] >> 33)) * Pow2(top - 158);
  DD fraction = Add(QuickTwoSum(p1, p2), p3);
  if (negative) fraction = Neg(fraction);
  return {quadrant, Mul(fraction, kHalfPi)};
}

}  // namespace brelt::mathlib
