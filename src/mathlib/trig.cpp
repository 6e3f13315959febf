// MATHLIB::Sin, Cos, Tan: the argument reduced exactly to r in [-pi/4, pi/4] and a quadrant,
// then the series of sin and cos in double-double.
#include "brelt/mathlib.h"
#include "mathlib/reduce_half_pi.h"
#include "mathlib/series.h"

namespace {

using namespace brelt::mathlib;

constexpr double kQuarterPi = 0.78539816339744828;  // below pi/4

DD SinReduced(DD r) { return Mul(r, Series(Mul(r, r), kSinSeries, 3)); }
DD CosReduced(DD r) { return Series(Mul(r, r), kCosSeries, 3); }

// |x| = n pi/2 + r.
Reduced Reduce(double ax) {
  return ax <= kQuarterPi ? Reduced{0, {ax, 0.0}} : ReduceHalfPi(ax);
}

// sin(n pi/2 + r): the series of sin r or of cos r, as the quadrant asks.
DD SinOfQuadrant(const Reduced& red) {
  const DD v = red.quadrant % 2 == 0 ? SinReduced(red.r) : CosReduced(red.r);
  return red.quadrant >= 2 ? Neg(v) : v;
}

bool Finite(double x) { return x - x == 0.0; }

}  // namespace

namespace MATHLIB {

double Sin(double x) {
  if (!Finite(x)) return x - x;  // NaN, or the invalid result for an infinity
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-26) return x;  // x^3 / 6 is below half a unit of x
  const double s = SinOfQuadrant(Reduce(ax)).hi;
  return x < 0 ? -s : s;
}

double Cos(double x) {
  if (!Finite(x)) return x - x;
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-27) return 1.0;  // x^2 / 2 is below half a unit of 1
  Reduced red = Reduce(ax);
  red.quadrant = (red.quadrant + 1) & 3;  // cos a = sin(a + pi/2)
  return SinOfQuadrant(red).hi;
}

double Tan(double x) {
  if (!Finite(x)) return x - x;
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-27) return x;  // x^3 / 3 is below half a unit of x
  const Reduced red = Reduce(ax);
  const DD s = SinReduced(red.r), c = CosReduced(red.r);
  // tan(r + pi/2) = -cos r / sin r
  const double t = red.quadrant % 2 == 0 ? Div(s, c).hi : -Div(c, s).hi;
  return x < 0 ? -t : t;
}

}  // namespace MATHLIB
