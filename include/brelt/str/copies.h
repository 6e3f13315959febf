// Str copies out of the bounded form: into a NUL-terminated string, or into a counted string
// whose element 0 holds the length. The source comes first. The result is 1 when the whole
// text fitted, 0 when it did not. No character is changed.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// Success needs room for the text and a NUL. On failure `dst` is full and unterminated.
BRELT_API unsigned char StrToCA(unsigned int srcHigh, const char* src, unsigned int dstHigh,
                                char* dst);
BRELT_API unsigned char StrToCW(unsigned int srcHigh, const WChar* src, unsigned int dstHigh,
                                WChar* dst);

// The count goes to dst[0] (one byte, modulo 256, in StrToPasA), the text behind it, no NUL.
// The last element is never used: a text of dstHigh characters fails. On failure the count
// is 0.
BRELT_API unsigned char StrToPasA(unsigned int srcHigh, const char* src, unsigned int dstHigh,
                                  char* dst);
BRELT_API unsigned char StrToPasW(unsigned int srcHigh, const WChar* src, unsigned int dstHigh,
                                  WChar* dst);

}  // namespace Str
