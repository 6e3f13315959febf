// Power series of the elementary functions, summed by Horner's rule: the small high terms in
// plain doubles, the leading terms in double-double, so that the sum is good to far more bits
// than a double holds at little cost.
#pragma once

#include <array>
#include <cstddef>

#include "mathlib/double_double.h"

namespace brelt::mathlib {

// sum of c[k] * z^k: the terms from `exactFrom` on in doubles on z.hi, those before it in
// double-double. Worth it where those terms are far below the first.
template <std::size_t N>
DD Series(DD z, const std::array<DD, N>& c, std::size_t exactFrom) {
  double tail = c[N - 1].hi;
  for (std::size_t k = N - 1; k-- > exactFrom;) tail = c[k].hi + z.hi * tail;
  DD sum{tail, 0.0};
  for (std::size_t k = exactFrom; k-- > 0;) sum = Add(c[k], Mul(z, sum));
  return sum;
}

// Coefficients 1 / d(k) with alternating signs where asked, d(k) a whole number built up by
// `next` from d(0) = 1, all in double-double at compile time.
template <std::size_t N, class Next>
constexpr std::array<DD, N> Reciprocals(Next next, bool alternate) {
  std::array<DD, N> c{};
  DD d{1.0, 0.0};
  for (std::size_t k = 0; k < N; ++k) {
    if (k > 0) d = next(d, k);
    c[k] = Div(DD{(alternate && k % 2 == 1) ? -1.0 : 1.0, 0.0}, d);
  }
  return c;
}

// e^r - 1 = r * sum r^k / (k + 1)!
inline constexpr auto kExpM1Series = Reciprocals<19>(
    [](DD d, std::size_t k) { return Mul(d, static_cast<double>(k + 1)); }, false);
// sin r = r * sum (-1)^k z^k / (2k + 1)!, z = r^2
inline constexpr auto kSinSeries = Reciprocals<15>(
    [](DD d, std::size_t k) { return Mul(Mul(d, 2.0 * k), 2.0 * k + 1); }, true);
// cos r = sum (-1)^k z^k / (2k)!, z = r^2
inline constexpr auto kCosSeries = Reciprocals<15>(
    [](DD d, std::size_t k) { return Mul(Mul(d, 2.0 * k - 1), 2.0 * k); }, true);
// ln(1 + r) = r * sum (-1)^k r^k / (k + 1)
inline constexpr auto kLog1pSeries = Reciprocals<13>(
    [](DD, std::size_t k) { return DD{k + 1.0, 0.0}; }, true);
// atan u = u * sum (-1)^k z^k / (2k + 1), z = u^2
inline constexpr auto kAtanSeries = Reciprocals<12>(
    [](DD, std::size_t k) { return DD{2.0 * k + 1, 0.0}; }, true);

}  // namespace brelt::mathlib
