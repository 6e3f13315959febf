// x = n pi/2 + r with |r| <= pi/4, for any finite x, from the bits of 2/pi: no rounding of a
// multiple of pi/2 spoils r, however large x is or however near to a multiple.
#pragma once

#include "mathlib/double_double.h"

namespace brelt::mathlib {

struct Reduced {
  int quadrant;  // n mod 4
  DD r;
};

// |x| = n pi/2 + r, for |x| at least pi/4 and finite; the sign of x is the caller's.
Reduced ReduceHalfPi(double x);

}  // namespace brelt::mathlib
