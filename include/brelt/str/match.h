// Str wildcard matching and the wildcard sub-string walk. `*` and `?` are the only special
// characters; there is no escape.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// Where a wildcard of FindSubStr landed in the text; a field of all ones was not set.
struct PosLen {
  unsigned int pos;
  unsigned int len;
};
static_assert(sizeof(PosLen) == 8);

// 1 when the whole text (high, s) fits the pattern: ignoring case, or (CS) by exact codes.
BRELT_API unsigned char MatchA(unsigned int high, const char* s, unsigned int patHigh,
                               const char* pat);
BRELT_API unsigned char MatchW(unsigned int high, const WChar* s, unsigned int patHigh,
                               const WChar* pat);
BRELT_API unsigned char MatchCSA(unsigned int high, const char* s, unsigned int patHigh,
                                 const char* pat);
BRELT_API unsigned char MatchCSW(unsigned int high, const WChar* s, unsigned int patHigh,
                                 const WChar* pat);

// One forward pass of the pattern over the text from a single start, without backtracking.
// 1 when the pattern was walked to its end; (resHigh, res) receives the wildcards' places.
BRELT_API unsigned char FindSubStrA(unsigned int high, const char* s, unsigned int patHigh,
                                    const char* pat, unsigned int resHigh, PosLen* res);
BRELT_API unsigned char FindSubStrW(unsigned int high, const WChar* s, unsigned int patHigh,
                                    const WChar* pat, unsigned int resHigh, PosLen* res);

}  // namespace Str
