// MATHLIB::Exp, Log, Log10, Pow in double-double, rounded to double once at the end.
#include <cmath>
#include <limits>

#include "brelt/mathlib.h"
#include "mathlib/constants_table.h"
#include "mathlib/exp_log_kernels.h"

namespace {

using namespace brelt::mathlib;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kBeyondRange = 1000.0;  // e^x over- or underflows long before

bool IsNaN(double x) { return x != x; }
double Invalid(double x) { return (x - x) / (x - x); }

// e^t for a double-double t, overflowing and underflowing as the result does.
double ExpOf(DD t) {
  if (t.hi > kBeyondRange) return t.hi * 0x1p1023;
  if (t.hi < -kBeyondRange) return 0x1p-1074 * 0.0;
  const Scaled e = ExpScaled(t);
  return ToDouble(e.m, e.k);
}

// y is a whole number; an odd one. From 2^52 on every double is whole, and from 2^53 even.
bool IsWhole(double y) {
  return !(std::fabs(y) < 0x1p52) || y == static_cast<double>(static_cast<long long>(y));
}
bool IsOdd(double y) {
  return std::fabs(y) < 0x1p53 && IsWhole(y) && (static_cast<long long>(y) & 1) != 0;
}

}  // namespace

namespace MATHLIB {

double Exp(double x) {
  if (IsNaN(x)) return x + x;
  return ExpOf({x, 0.0});
}

double Log(double x) {
  if (IsNaN(x)) return x + x;
  if (x < 0) return Invalid(x);
  if (x == 0) return -1.0 / (x * x);  // minus infinity, with the division-by-zero flag
  if (x == kInf) return x;
  return LogOf(x).hi;
}

double Log10(double x) {
  if (IsNaN(x)) return x + x;
  if (x < 0) return Invalid(x);
  if (x == 0) return -1.0 / (x * x);
  if (x == kInf) return x;
  return Mul(LogOf(x), kInvLn10).hi;
}

double Pow(double x, double y) {
  // The cases that the C library fixes, in its order of precedence.
  if (y == 0 || x == 1.0) return 1.0;
  if (IsNaN(x) || IsNaN(y)) return x + y;
  const double ax = std::fabs(x), ay = std::fabs(y);
  if (ay == kInf) {
    if (ax == 1.0) return 1.0;
    return (ax > 1.0) == (y > 0) ? kInf : 0.0;
  }
  const bool odd = IsOdd(y);
  const bool negative = x < 0 && odd;
  if (x == 0 || ax == kInf) {
    // 0 and infinity to a power: 0 or infinity, with the sign of x for an odd power.
    const bool big = (x == 0) == (y < 0);
    const double r = big ? kInf : 0.0;
    return std::signbit(x) && odd ? -r : r;
  }
  if (x < 0 && !IsWhole(y)) return Invalid(x);
  double r;
  if (ay >= 0x1p64) {
    // x is not 1, so |ln x| is at least 2^-53 and y ln x beyond any range.
    r = (ax > 1.0) == (y > 0) ? 0x1p1023 * 2.0 : 0x1p-1074 * 0.0;
  } else {
    const DD lnX = LogOf(ax);
    DD t = TwoProd(y, lnX.hi);
    t.lo += y * lnX.lo;
    r = ExpOf(QuickTwoSum(t.hi, t.lo));
  }
  return negative ? -r : r;
}

}  // namespace MATHLIB
