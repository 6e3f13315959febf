// The cores that exp, log, pow and the hyperbolic functions share, in double-double.
#pragma once

#include "mathlib/double_double.h"

namespace brelt::mathlib {

// e^r - 1 for |r| up to ln 2 / 2, with a relative error far below 2^-60.
DD ExpM1Small(DD r);

// e^x as m * 2^k with m in [1, 2) or a hair beyond, for |x| up to about 1100.
struct Scaled {
  DD m;
  int k;
};
Scaled ExpScaled(DD x);

// ln x for a finite x above 0, with a relative error far below 2^-70.
DD LogOf(double x);

// m * 2^k rounded to double once: overflow to infinity, underflow through the subnormals
// with the low part taken into account. For a normal, non-zero m.hi and |k| up to 2000.
double ToDouble(DD m, int k);

}  // namespace brelt::mathlib
