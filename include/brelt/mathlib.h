// MATHLIB: elementary functions on doubles under the library's names, a whole-number power,
// the error hook variable, and packed decimal integers.
//
// The elementary functions hand their arguments to the runtime's functions unchanged and add
// no check: a domain error or overflow gives what the runtime gives. Nothing is reported.
#pragma once

#include <brelt/config.h>

namespace MATHLIB {

// The record an application's error hook receives. The library never fills one in; the
// fields are those that math error handlers conventionally look at.
struct Exception {
  int type;
  char* name;
  double arg1;
  double arg2;
  double retval;
};

// The type of MathError.
using MathErrorHook = int (*)(Exception*);

// A slot for the application, null as loaded. No operation of the library reads, writes or
// calls it.
BRELT_API extern MathErrorHook MathError;

// The trigonometric functions and their inverses, in radians.
BRELT_API double Sin(double x);
BRELT_API double Cos(double x);
BRELT_API double Tan(double x);
BRELT_API double ASin(double x);
BRELT_API double ACos(double x);
BRELT_API double ATan(double x);
// The angle of the point (x, y): the horizontal coordinate comes first.
BRELT_API double ATan2(double x, double y);
// Hyperbolic functions, e to the x, logarithms, the square root and x to the power y.
BRELT_API double SinH(double x);
BRELT_API double CosH(double x);
BRELT_API double TanH(double x);
BRELT_API double Exp(double x);
BRELT_API double Log(double x);  // natural logarithm
BRELT_API double Log10(double x);
BRELT_API double Sqrt(double x);
BRELT_API double Pow(double x, double y);
// The remainder of x / y with the sign of x.
BRELT_API double Mod(double x, double y);

// x to the power n by binary powering. n 0 gives 1.0 for every x, NaN included; a negative n
// powers the reciprocal of x, so IntPow(10.0, -3) is 0.1 cubed, not 1 / 1000.
BRELT_API double IntPow(double x, int n);

// A signed decimal integer of 18 digits in 10 bytes: bytes 0 to 8 hold two digits each, least
// significant byte first and the higher digit in the upper four bits; bit 7 of byte 9 is the
// sign. All digits 0 with the sign set is negative zero.
struct PackedBcd {
  unsigned char bytes[10];
};
static_assert(sizeof(PackedBcd) == 10);

// The whole part of `value`, cut toward zero. Magnitudes from 1.15e18 up, infinities and NaN
// give all nines; magnitudes below 1 give zero digits under their sign. Only digits below
// 10^18 are kept.
BRELT_API PackedBcd LongToBcd(double value);
// The digits summed from the lowest, two additions of double arithmetic per byte, a digit
// above 9 counting with its value; exact below 2^53. Only bit 7 of byte 9 is read of it.
BRELT_API double BcdToLong(PackedBcd bcd);

}  // namespace MATHLIB
