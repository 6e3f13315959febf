// The process locale that the library sets while it loads, and the user's own numeric
// conventions, which only the locale form of fixed notation uses.
#pragma once

#include "brelt/config.h"

namespace brelt::platform {

// All categories to the system's default, then the numeric category back to "C", so that
// reals are always written and read with '.'. On POSIX this also fixes the 8-bit code page
// that 8-bit text is taken to be in from then on.
void SetStartupLocale();

// The decimal point of the user's default numeric conventions: one character, which may take
// several 8-bit units in a multi-byte code page. It is read without changing the process's
// locale; where none can be read, it is '.'. Answers the number of units stored.
inline constexpr unsigned kMaxPointUnits = 4;
unsigned UserDecimalPointA(char (&point)[kMaxPointUnits]);
unsigned UserDecimalPointW(WChar (&point)[kMaxPointUnits]);

}  // namespace brelt::platform
