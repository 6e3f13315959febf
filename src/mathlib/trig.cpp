// MATHLIB::Sin, Cos, Tan: the argument reduced exactly to r in [-pi/4, pi/4] and a quadrant,
// then the series of sin and cos in double-double.
#include "brelt/mathlib.h"
#include "mathlib/reduce_half_pi.h"
#include "mathlib/series.h"

namespace {

using namespace brelt::mathlib;

constexpr double kQuarterPi = 0.78539816339744828;  // below pi/4

struct SinCos {
  DD sin, cos;
};

SinCos SinCosReduced(DD r) {
  const DD z = Mul(r, r);
  return {Mul(r, Series(z, kSinSeries, 4)), Series(z, kCosSeries, 4)};
}

// sin and cos of |x| with the quadrant already applied.
SinCos SinCosOf(double ax) {
  if (ax <= kQuarterPi) return SinCosReduced({ax, 0.0});
  const Reduced red = ReduceHalfPi(ax);
  const SinCos sc = SinCosReduced(red.r);
  switch (red.quadrant) {
    case 0: return sc;
    case 1: return {sc.cos, Neg(sc.sin)};
    case 2: return {Neg(sc.sin), Neg(sc.cos)};
    default: return {Neg(sc.cos), sc.sin};
  }
}

bool Finite(double x) { return x - x == 0.0; }

}  // namespace

namespace MATHLIB {

double Sin(double x) {
  if (!Finite(x)) return x - x;  // NaN, or the invalid result for an infinity
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-26) return x;  // x^3 / 6 is below half a unit of x
  const double s = SinCosOf(ax).sin.hi;
  return x < 0 ? -s : s;
}

double Cos(double x) {
  if (!Finite(x)) return x - x;
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-27) return 1.0;  // x^2 / 2 is below half a unit of 1
  return SinCosOf(ax).cos.hi;
}

double Tan(double x) {
  if (!Finite(x)) return x - x;
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-27) return x;  // x^3 / 3 is below half a unit of x
  const SinCos sc = SinCosOf(ax);
  const double t = Div(sc.sin, sc.cos).hi;
  return x < 0 ? -t : t;
}

}  // namespace MATHLIB
