// Str items: the n-th run of non-separator characters of a text, counted from 0.
//
// Runs of separators count as one gap, and separators at either end produce nothing, so an
// item is never empty. There is no quoting. An index past the last item gives the empty string;
// an item longer than `dst` is cut and fills it without NUL. `dst` may be the array of `src`.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// `set` is a bit set of 32 bytes: code c is bit c % 8 of byte c / 8.
BRELT_API void ItemA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
                     const unsigned char* set, unsigned int index);
// `set` is a bit set of 16 bytes for the codes 0..127; no character from 128 up separates.
BRELT_API void ItemW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
                     const unsigned char* set, unsigned int index);

// Each character of the text of (sepHigh, seps) is a separator; any 16-bit code in ItemSW.
BRELT_API void ItemSA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
                      unsigned int sepHigh, const char* seps, unsigned int index);
BRELT_API void ItemSW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
                      unsigned int sepHigh, const WChar* seps, unsigned int index);

}  // namespace Str
