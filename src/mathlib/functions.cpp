// MATHLIB::Sqrt and Mod, which are exact operations, and the error hook. The other elementary
// functions are the library's own (trig, inverse_trig, hyperbolic, exp_log), the same on every
// target rather than whatever each runtime links in.
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "brelt/mathlib.h"
#include "mathlib/double_double.h"
#include "mathlib/float_bits.h"

namespace MATHLIB {

MathErrorHook MathError = nullptr;

// The processor's square root, correctly rounded; NaN for x below 0.
double Sqrt(double x) { return brelt::mathlib::SqrtRounded(x); }

// The remainder of x / y with the sign of x, exact: the significands divided as whole
// numbers, the exponent difference shifted in 11 bits at a time.
double Mod(double x, double y) {
  using brelt::mathlib::Pow2;
  if (x != x || y != y) return x + y;
  const double ax = std::fabs(x), ay = std::fabs(y);
  if (ax == std::numeric_limits<double>::infinity() || ay == 0) return (x * y) / (x * y);
  if (ax < ay) return x;  // an infinite y included
  auto parts = [](double a, std::uint64_t* m, int* e) {
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(a);
    const int field = static_cast<int>(bits >> 52);
    *m = bits & 0x000FFFFFFFFFFFFFu;
    if (field == 0) {
      *e = -1074;  // subnormal
    } else {
      *m |= std::uint64_t{1} << 52;
      *e = field - 1075;
    }
  };
  std::uint64_t mx, my;
  int ex, ey;
  parts(ax, &mx, &ex);
  parts(ay, &my, &ey);
  std::uint64_t r = mx % my;
  for (int d = ex - ey; d > 0;) {
    const int s = d < 11 ? d : 11;
    r = (r << s) % my;
    d -= s;
  }
  // r 2^ey is exact: a multiple of the smaller unit below |y|.
  const double magnitude = ey >= -1022 ? static_cast<double>(r) * Pow2(ey)
                                       : static_cast<double>(r) * Pow2(ey + 1074) * 0x1p-1074;
  return std::signbit(x) ? -magnitude : magnitude;
}

}  // namespace MATHLIB
