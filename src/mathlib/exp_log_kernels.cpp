#include "mathlib/exp_log_kernels.h"

#include <bit>
#include <cstdint>

#include "mathlib/constants_table.h"
#include "mathlib/float_bits.h"
#include "mathlib/series.h"

namespace brelt::mathlib {
namespace {

constexpr std::uint64_t kMantissaMask = 0x000FFFFFFFFFFFFFu;

// The nearest whole number, ties away from zero: only ever used to pick a reduction.
int Nearest(double x) { return static_cast<int>(x < 0 ? x - 0.5 : x + 0.5); }

}  // namespace

DD ExpM1Small(DD r) { return Mul(r, Series(r, kExpM1Series, 5)); }

Scaled ExpScaled(DD x) {
  // x = (64 k + j) ln 2 / 64 + r: the first two products are exact, and so is the first
  // difference. Then e^x = 2^k 2^(j/64) e^r with |r| at most ln 2 / 128.
  const int n = Nearest(x.hi * k64ByLn2);
  const double nd = n;
  const DD head = TwoSum(x.hi - nd * kLn2By64Part1, -(nd * kLn2By64Part2));
  const DD r = Add(head, x.lo - nd * kLn2By64Part3);
  // e^r - 1 = r + r^2 (1/2! + r/3! + ... + r^6/8!): the part beyond r is below 2^-16 and is
  // summed in doubles, with the cross term of r^2 that the low half of r adds.
  const double h = r.hi;
  double tail = kExpM1Series[7].hi;
  for (int k = 6; k >= 1; --k) tail = kExpM1Series[k].hi + h * tail;
  const DD em1 = Add(r, h * h * tail + h * r.lo);
  const DD step = kExp2Sixty4ths[n & 63];
  return {Add(step, Mul(step, em1)), n >> 6};
}

DD LogOf(double x) {
  int e = 0;
  if (x < 0x1p-1022) {  // subnormal: make it normal first
    x *= 0x1p54;
    e = -54;
  }
  e += ExponentOf(x);
  // x = 2^e m with m in [0.75, 1.5), so that near 1 e is 0 and nothing cancels; then
  // ln m = -ln(inverse) + ln(1 + r) with r = m inverse - 1, exact in double-double and at
  // most 1/128 or so.
  double m = std::bit_cast<double>((std::bit_cast<std::uint64_t>(x) & kMantissaMask) |
                                   (std::uint64_t{1023} << 52));
  if (m >= 1.5) {
    m *= 0.5;
    ++e;
  }
  const LogStep& step = kLogSteps[Nearest((m - 1.0) * 64.0) + 16];
  const DD product = TwoProd(m, step.inverse);
  const DD r = TwoSum(product.hi - 1.0, product.lo);
  const DD lnM = Add(step.minusLog, Mul(r, Series(r, kLog1pSeries, 3)));
  return Add(Mul(kLn2, static_cast<double>(e)), lnM);
}

double ToDouble(DD m, int k) {
  const int exponent = ExponentOf(m.hi) + k;
  if (exponent >= -1022) {
    // Normal or overflowing: hi is already m rounded, and scaling it is exact or infinite.
    if (k > 1023) return m.hi * Pow2(1023) * Pow2(k - 1023);
    if (k < -1022) return m.hi * Pow2(k + 1022) * Pow2(-1022);
    return m.hi * Pow2(k);
  }
  if (exponent < -1080) return m.hi * 0.0;  // below half the smallest subnormal
  // A subnormal result: count in units of the smallest subnormal, round hi + lo to a whole
  // number of them (ties to even), and scale back, which is exact. The scaling goes in two
  // halves, each of which stays in the normal range.
  const bool negative = m.hi < 0;
  if (negative) m = Neg(m);
  const int first = (k + 1074) / 2, second = k + 1074 - first;
  const double a = m.hi * Pow2(first) * Pow2(second);
  const double b = m.lo * Pow2(first) * Pow2(second);
  double n = (a + 0x1p52) - 0x1p52;
  const double rest = (a - n) + b;
  const bool odd = (static_cast<std::int64_t>(n) & 1) != 0;
  if (rest > 0.5 || (rest == 0.5 && odd)) n += 1.0;
  if (rest < -0.5 || (rest == -0.5 && odd)) n -= 1.0;
  const double result = n * 0x1p-1074;
  return negative ? -result : result;
}

}  // namespace brelt::mathlib
