#include "mathlib/exp_log_kernels.h"

#include <bit>
#include <cstdint>

#include "mathlib/constants_table.h"
#include "mathlib/float_bits.h"
#include "mathlib/series.h"

namespace brelt::mathlib {
namespace {

constexpr std::uint64_t kMantissaMask = 0x000FFFFFFFFFFFFFu;
constexpr double kSqrt2 = 1.4142135623730951;

// The nearest whole number, ties away from zero: only ever used to pick a reduction.
int Nearest(double x) { return static_cast<int>(x < 0 ? x - 0.5 : x + 0.5); }

}  // namespace

DD ExpM1Small(DD r) { return Mul(r, Series(r, kExpM1Series, 5)); }

Scaled ExpScaled(DD x) {
  const int k = Nearest(x.hi * kInvLn2);
  // x - k ln 2: the first two products are exact, and so is the first difference.
  const double kd = k;
  const DD head = TwoSum(x.hi - kd * kLn2Part1, -(kd * kLn2Part2));
  const DD r = Add(head, x.lo - kd * kLn2Part3);
  return {Add(ExpM1Small(r), 1.0), k};
}

DD LogOf(double x) {
  int e = 0;
  if (x < 0x1p-1022) {  // subnormal: make it normal first
    x *= 0x1p54;
    e = -54;
  }
  e += ExponentOf(x);
  // x = 2^e m with m from sqrt(1/2) to sqrt(2), and ln m = 2 atanh((m - 1) / (m + 1)).
  double m = std::bit_cast<double>((std::bit_cast<std::uint64_t>(x) & kMantissaMask) |
                                   (std::uint64_t{1023} << 52));
  if (m > kSqrt2) {
    m *= 0.5;
    ++e;
  }
  const DD s = Div(DD{m - 1.0, 0.0}, TwoSum(m, 1.0));
  const DD lnM = Scale(Mul(s, Series(Mul(s, s), kAtanhSeries, 4)), 2.0);
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
