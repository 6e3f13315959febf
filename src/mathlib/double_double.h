// Double-double arithmetic: a value held as the unevaluated sum hi + lo of two doubles, with
// lo no bigger than half a unit in the last place of hi, so about 106 bits. The elementary
// functions work in it so that their one rounding to double at the end is nearly the only
// error. Every step is plain IEEE double arithmetic in a fixed order, with nothing fused, so
// that each target gets the same bits; the products split their factors (no fused
// multiply-add is assumed), which holds for factors below 2^995.
#pragma once

#include <emmintrin.h>

namespace brelt::mathlib {

struct DD {
  double hi, lo;
};

// a + b exactly.
constexpr DD TwoSum(double a, double b) {
  const double s = a + b;
  const double bb = s - a;
  return {s, (a - (s - bb)) + (b - bb)};
}

// a + b exactly, where |a| >= |b| or a is 0.
constexpr DD QuickTwoSum(double a, double b) {
  const double s = a + b;
  return {s, b - (s - a)};
}

// a as two halves of 26 significant bits each.
constexpr DD Split(double a) {
  const double t = 134217729.0 * a;  // 2^27 + 1
  const double hi = t - (t - a);
  return {hi, a - hi};
}

// a * b exactly.
constexpr DD TwoProd(double a, double b) {
  const double p = a * b;
  const DD x = Split(a), y = Split(b);
  return {p, ((x.hi * y.hi - p) + x.hi * y.lo + x.lo * y.hi) + x.lo * y.lo};
}

constexpr DD Neg(DD a) { return {-a.hi, -a.lo}; }

constexpr DD Add(DD a, DD b) {
  DD s = TwoSum(a.hi, b.hi);
  const DD t = TwoSum(a.lo, b.lo);
  s.lo += t.hi;
  s = QuickTwoSum(s.hi, s.lo);
  s.lo += t.lo;
  return QuickTwoSum(s.hi, s.lo);
}

constexpr DD Add(DD a, double b) {
  DD s = TwoSum(a.hi, b);
  s.lo += a.lo;
  return QuickTwoSum(s.hi, s.lo);
}

constexpr DD Sub(DD a, DD b) { return Add(a, Neg(b)); }

constexpr DD Mul(DD a, DD b) {
  DD p = TwoProd(a.hi, b.hi);
  p.lo += a.hi * b.lo + a.lo * b.hi;
  return QuickTwoSum(p.hi, p.lo);
}

constexpr DD Mul(DD a, double b) {
  DD p = TwoProd(a.hi, b);
  p.lo += a.lo * b;
  return QuickTwoSum(p.hi, p.lo);
}

// a * 2^k for a power of two given as a double: exact while nothing leaves the normal range.
constexpr DD Scale(DD a, double powerOfTwo) { return {a.hi * powerOfTwo, a.lo * powerOfTwo}; }

// Long division, three quotient digits.
constexpr DD Div(DD a, DD b) {
  const double q1 = a.hi / b.hi;
  DD r = Sub(a, Mul(b, q1));
  const double q2 = r.hi / b.hi;
  r = Sub(r, Mul(b, q2));
  const double q3 = r.hi / b.hi;
  return Add(QuickTwoSum(q1, q2), q3);
}

// The square root of one double, correctly rounded (the processor's own instruction).
inline double SqrtRounded(double x) {
  return _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(x)));
}

// For a > 0: one Newton step from the rounded root of hi.
inline DD Sqrt(DD a) {
  const double s = SqrtRounded(a.hi);
  const DD s2 = TwoProd(s, s);
  const double e = ((a.hi - s2.hi) - s2.lo + a.lo) / (2.0 * s);
  return QuickTwoSum(s, e);
}

}  // namespace brelt::mathlib
