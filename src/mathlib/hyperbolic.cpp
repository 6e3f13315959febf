// MATHLIB::SinH, CosH, TanH from e^|x| in double-double; near 0 from e^x - 1, so that
// nothing cancels.
#include "brelt/mathlib.h"
#include "mathlib/exp_log_kernels.h"
#include "mathlib/float_bits.h"

namespace {

using namespace brelt::mathlib;

constexpr double kHalfLn2 = 0.34657359027997264;  // below ln 2 / 2
constexpr double kBeyondRange = 1000.0;            // e^x overflows long before

bool IsNaN(double x) { return x != x; }

// e^x - e^-x or e^x + e^-x, halved, for x from kHalfLn2 up to kBeyondRange: with
// e^x = m 2^k, the sum is (m + sign 2^-2k / m) 2^(k-1). Beyond k = 40 the second part is
// below every bit that counts.
double HalfSumOfExps(double x, double sign) {
  const Scaled e = ExpScaled({x, 0.0});
  DD sum = e.m;
  if (e.k <= 40) sum = Add(sum, Scale(Div({sign, 0.0}, e.m), Pow2(-2 * e.k)));
  return ToDouble(sum, e.k - 1);
}

}  // namespace

namespace MATHLIB {

double SinH(double x) {
  if (IsNaN(x)) return x + x;
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-28) return x;  // x^3 / 6 is below half a unit of x
  double s;
  if (ax < kHalfLn2) {
    // (e^x - e^-x) / 2 = (E + E / (E + 1)) / 2 with E = e^x - 1.
    const DD em1 = ExpM1Small({ax, 0.0});
    s = Scale(Add(em1, Div(em1, Add(em1, 1.0))), 0.5).hi;
  } else {
    s = ax > kBeyondRange ? ax * 0x1p1023 : HalfSumOfExps(ax, -1.0);
  }
  return x < 0 ? -s : s;
}

double CosH(double x) {
  if (IsNaN(x)) return x + x;
  const double ax = x < 0 ? -x : x;
  if (ax < 0x1p-27) return 1.0;  // x^2 / 2 is below half a unit of 1
  if (ax > kBeyondRange) return ax * 0x1p1023;
  return HalfSumOfExps(ax, 1.0);
}

double TanH(double x) {
  if (IsNaN(x)) return x + x;
  const double ax = x < 0 ? -x : x;
  double t;
  if (ax < 0x1p-28) {
    t = ax;  // x^3 / 3 is below half a unit of x
  } else if (ax > 22.0) {
    t = 1.0;  // 1 - tanh x is below 2^-62
  } else if (ax < kHalfLn2 / 2) {
    // (e^2x - 1) / (e^2x + 1) = E / (E + 2) with E = e^2x - 1.
    const DD em1 = ExpM1Small({2.0 * ax, 0.0});
    t = Div(em1, Add(em1, 2.0)).hi;
  } else {
    const Scaled e = ExpScaled({2.0 * ax, 0.0});  // k at most 64: e^2x is m 2^k exactly
    const DD e2x = Scale(e.m, Pow2(e.k));
    t = Div(Add(e2x, -1.0), Add(e2x, 1.0)).hi;
  }
  return x < 0 ? -t : t;
}

}  // namespace MATHLIB
