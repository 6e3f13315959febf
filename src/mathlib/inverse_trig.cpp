// MATHLIB::ATan, ATan2, ASin, ACos: all as the angle of a point (d, n) with n >= 0, worked in
// double-double: atan of the smaller over the larger coordinate, taken from the nearest of
// the angles atan(j/8) by the series of atan, then turned into the right octant.
#include <cmath>
#include <limits>

#include "brelt/mathlib.h"
#include "mathlib/constants_table.h"
#include "mathlib/float_bits.h"
#include "mathlib/series.h"

namespace {

using namespace brelt::mathlib;

// atan(a / b) for 0 <= a <= b: atan c + atan((a - c b) / (b + c a)) with c = j/8 nearest to
// a / b, so that the series runs on at most 1/16, all from one division.
DD AtanOfRatio(DD a, DD b) {
  const int j = static_cast<int>(a.hi / b.hi * 8.0 + 0.5);
  const double c = j / 8.0;
  const DD u = Div(Sub(a, Mul(b, c)), Add(b, Mul(a, c)));
  return Add(kAtanEighths[j], Mul(u, Series(Mul(u, u), kAtanSeries, 2)));
}

// The angle of the point (d, n) for n >= 0, in [0, pi]; n and d not both 0.
DD Angle(DD n, DD d) {
  const bool left = d.hi < 0;
  const DD ad = left ? Neg(d) : d;
  const DD a = n.hi <= ad.hi ? AtanOfRatio(n, ad) : Sub(kHalfPi, AtanOfRatio(ad, n));
  return left ? Sub(kPi, a) : a;
}

// sqrt(1 - x^2) for |x| < 1: x^2 is exact in double-double, and so is 1 less it near 1.
DD Cosine(double x) { return Sqrt(Sub(DD{1.0, 0.0}, TwoProd(x, x))); }

double WithSign(double magnitude, bool negative) { return negative ? -magnitude : magnitude; }
bool IsNaN(double x) { return x != x; }
double Invalid(double x) { return (x - x) / (x - x); }

}  // namespace

namespace MATHLIB {

double ATan(double x) {
  if (IsNaN(x)) return x + x;
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-27) return x;  // x^3 / 3 is below half a unit of x
  if (ax > 0x1p60) return WithSign(kHalfPi.hi, x < 0);
  return WithSign(Angle({ax, 0.0}, {1.0, 0.0}).hi, x < 0);
}

double ASin(double x) {
  if (IsNaN(x)) return x + x;
  const double ax = x < 0 ? -x : x;
  if (ax > 1.0) return Invalid(x);
  if (ax < 0x1p-27) return x;  // x^3 / 6 is below half a unit of x
  if (ax == 1.0) return WithSign(kHalfPi.hi, x < 0);
  return WithSign(Angle({ax, 0.0}, Cosine(x)).hi, x < 0);
}

double ACos(double x) {
  if (IsNaN(x)) return x + x;
  if (x > 1.0 || x < -1.0) return Invalid(x);
  if (x == 1.0) return 0.0;
  if (x == -1.0) return kPi.hi;
  return Angle(Cosine(x), {x, 0.0}).hi;
}

// The angle of (x, y): atan2(y, x) of the C library, signed zeros and infinities included.
double ATan2(double x, double y) {
  if (IsNaN(x) || IsNaN(y)) return x + y;
  const bool below = std::signbit(y), left = std::signbit(x);
  const double ay = below ? -y : y, ax = left ? -x : x;
  constexpr double kInf = std::numeric_limits<double>::infinity();
  if (ay == 0) return WithSign(left ? kPi.hi : 0.0, below);
  if (ax == 0) return WithSign(kHalfPi.hi, below);
  if (ay == kInf) {
    if (ax == kInf) return WithSign(Mul(kPi, left ? 0.75 : 0.25).hi, below);
    return WithSign(kHalfPi.hi, below);
  }
  if (ax == kInf) return WithSign(left ? kPi.hi : 0.0, below);
  // Far apart in size: pi/2, or the quotient, or pi, each less a part too small to show.
  // (A subnormal counts as 2^-1023 here; the reckoning still holds.)
  const int ex = ExponentOf(ax), ey = ExponentOf(ay);
  if (ey - ex > 60) return WithSign(kHalfPi.hi, below);
  if (ex - ey > 60) return WithSign(left ? kPi.hi : ay / ax, below);
  // Near in size: both scaled by the same power of two to about 1, which is exact.
  const double s1 = Pow2(-ex / 2), s2 = Pow2(-ex - (-ex / 2));
  return WithSign(Angle({ay * s1 * s2, 0.0}, {(left ? -ax : ax) * s1 * s2, 0.0}).hi, below);
}

}  // namespace MATHLIB
