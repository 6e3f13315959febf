// MATHLIB::IntPow: binary powering in doubles. For a negative power the reciprocal is taken
// first and then powered, which fixes the last bits callers see (0.1 cubed, not 1 / 1000).
#include <cstdint>

#include "brelt/mathlib.h"

namespace MATHLIB {

double IntPow(double x, int n) {
  if (n == 0) return 1.0;
  // The magnitude in 32 unsigned bits, so that -2147483648 gives 2147483648.
  std::uint32_t m = static_cast<std::uint32_t>(n);
  if (n < 0) {
    x = 1.0 / x;
    m = 0u - m;
  }
  double r = 1.0;
  for (;;) {
    if (m & 1u) r *= x;
    m >>= 1;
    if (m == 0) break;
    x *= x;
  }
  return r;
}

}  // namespace MATHLIB
