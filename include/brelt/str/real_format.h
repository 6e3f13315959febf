// Str reals as text: scientific, engineering and fixed notation, the user's decimal point,
// and the corrected display forms.
//
// The digits come from the library's own print engine, the same on every target: the exact
// decimal expansion of the double, rounded on its first dropped digit, 5 and up away from
// zero (2.5 at 0 decimals is "3", 0.125 at 2 is "0.13"). Exponents have at least two digits
// as printed. Infinities print as "INF" in scientific notation and "inf" in fixed notation,
// with '-' in front when negative. A NaN, where one is printed at all (FixRealToStrW and
// LocaleFixRealToStr), is "nan", whatever its sign bit and payload.
//
// Two ways of storing the printed text into (high, dst), named below:
// - strict: the text and its NUL must fit in high + 1 elements; if not, dst becomes the empty
//   string and *ok is 0;
// - cutting: at most high + 1 characters are stored and the rest dropped, with a NUL only if
//   room is left; no failure is reported.
// Elements behind a final NUL may hold anything. `ok` is always written unless said otherwise.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// Scientific notation with d = min(digits, 17) significant digits, printed strictly as
// "%{d+1}.{d-1}E". A NaN clears *ok and leaves dst untouched; digits 0 gives "" and *ok 0.
// A text with a point is then rewritten: the exponent loses its leading zeros (a '+' is always
// written) and the mantissa its trailing zeros and, if none are left, its point: 1234.5 gives
// "1.2345E+3". With eng non-zero the point first moves right, so that the exponent is a
// multiple of 3 ("12.345678E+3", "10E-6"). A text without a point (digits 1, infinities) is
// final as printed: "2E+00", blanks and "INF". The room needed is that of the printed text:
// high of d + 7 always suffices.
BRELT_API void RealToStrA(double value, unsigned int digits, unsigned char eng,
                          unsigned int high, char* dst, unsigned char* ok);
BRELT_API void RealToStrW(double value, unsigned int digits, unsigned char eng,
                          unsigned int high, WChar* dst, unsigned char* ok);

// Fixed notation with `digits` decimals (any number), printed with cutting. *ok is 1. The A
// twin clears *ok for a NaN and leaves dst untouched; the W twin prints "nan".
BRELT_API void FixRealToStrA(double value, unsigned int digits, unsigned int high, char* dst,
                             unsigned char* ok);
BRELT_API void FixRealToStrW(double value, unsigned int digits, unsigned int high, WChar* dst,
                             unsigned char* ok);

// Fixed notation with d decimals, d being `digits` clamped to 1..15, printed strictly as
// "%{d}.{d}f" with the decimal point of the user's default locale ("1,50" under a German one).
// The process's numeric locale is neither read nor changed. NaN prints as "nan".
BRELT_API void LocaleFixRealToStrA(double value, int digits, unsigned int high, char* dst,
                                   unsigned char* ok);
BRELT_API void LocaleFixRealToStrW(double value, int digits, unsigned int high, WChar* dst,
                                   unsigned char* ok);

// The shortest readable text with d = digits (0 and above 15 mean 15; an array shorter than
// d elements lowers d to high - 2, at least 1). A NaN clears *ok and leaves dst untouched.
// With eng non-zero it is RealToStr with d. Otherwise, for 1e-14 < |value| < 1.0 where
// trunc(|log10 |value|| + 2e-51 + 0.2) is below d, it is FixRealToStr with d decimals, stripped
// of trailing zeros and of a point left bare: 0.1 + 0.2 gives "0.3". Every other value is
// printed strictly as "%{d+1}.{d-1}G" without the blanks in front, and an exponent behind a
// mantissa with a point loses its leading zeros: "1.5E+20", "1E+20", "1.2E+4", "INF".
BRELT_API void CorrectedRealToStrA(double value, unsigned int digits, unsigned char eng,
                                   unsigned int high, char* dst, unsigned char* ok);
BRELT_API void CorrectedRealToStrW(double value, unsigned int digits, unsigned char eng,
                                   unsigned int high, WChar* dst, unsigned char* ok);

// Fixed notation with min(digits, 17) decimals, rounded half away from zero on the text of
// FixRealToStr with 17 decimals: 0.015 gives "0.02" where FixRealToStr gives "0.01". A carry
// out of the first digit puts a "1" in front, behind a '-' ("-10"). The 17-decimal print is
// cut by the array, and the rounding works on the decimals it holds. A NaN clears *ok and
// leaves dst untouched; otherwise *ok is 1.
BRELT_API void CorrFixRealToStrA(double value, unsigned int digits, unsigned int high,
                                 char* dst, unsigned char* ok);
BRELT_API void CorrFixRealToStrW(double value, unsigned int digits, unsigned int high,
                                 WChar* dst, unsigned char* ok);

}  // namespace Str
