// Str encodings: 8-bit text of the system's code page to 16-bit text and back, and a test of
// whether bytes have the form of UTF-8.
//
// Bounded forms: a conversion that does not fit gives the empty string, not a cut text; one
// that just fills `dst` has no NUL. The C_ forms take the destination pair first.
//
// Pointer forms: `srcLen` counts source units, NUL included; `*dstLen` is the capacity of
// `dst` in destination units on entry and the count produced (without terminator) on exit,
// 0 meaning failure. With `*dstLen` 0 nothing is written and the size needed comes back.
// A NUL follows the result when there is room for it. `dst` may be null for sizing.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// Bounded forms: the code page's text to 16-bit text (A2U) and back (U2A).
BRELT_API void A2U(unsigned int srcHigh, const char* src, unsigned int dstHigh, WChar* dst);
BRELT_API void U2A(unsigned int srcHigh, const WChar* src, unsigned int dstHigh, char* dst);
BRELT_API void C_A2U(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const char* src);
BRELT_API void C_U2A(unsigned int dstHigh, char* dst, unsigned int srcHigh, const WChar* src);

// Pointer forms of the same two conversions.
BRELT_API void A2UP(const void* src, unsigned int srcLen, void* dst, unsigned int* dstLen);
BRELT_API void U2AP(const void* src, unsigned int srcLen, void* dst, unsigned int* dstLen);

// A test of form only: overlong forms and surrogate code points pass. Empty or null gives 0.
BRELT_API unsigned char IsUTF8(const void* buf, unsigned int size);

}  // namespace Str
