// Str text to real: a double from a bounded string, read by the library's own scanner.
//
// The text is an optional sign, digits, an optional '.' with digits, and an optional
// exponent ('E' or 'e', never first, an optional sign and at least one digit); every part of
// the mantissa may be empty, so "", "-" and "." read as zero. Nothing else may stand in the
// text, blanks included. The digits are gathered in one double and scaled by one power of
// ten built by repeated multiplication, so results may differ from a correctly rounded
// conversion in the last bits and at the ends of the range. `*ok` is set to 1, and to 0 with
// the result 0.0 when the text is no number; overflow and underflow are no failure.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// The number in the text of (high, src).
BRELT_API double StrToRealA(unsigned int high, const char* src, unsigned char* ok);
BRELT_API double StrToRealW(unsigned int high, const WChar* src, unsigned char* ok);

}  // namespace Str
