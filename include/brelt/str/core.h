// Str core: measure, copy, append, concatenate and search bounded strings.
//
// A bounded string is (high, s): `high` is the index of the last element, so the array holds
// high + 1 characters. Text ends at the first NUL or at the end of the array; a NUL is written
// only where an element is left for it. Positions count from 0; brelt::kNotFound means none.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// The characters before the first NUL, or high + 1 when the array holds none.
BRELT_API unsigned int LengthA(unsigned int high, const char* s);
BRELT_API unsigned int LengthW(unsigned int high, const WChar* s);

// The text of src into dst, cut to the array.
BRELT_API void CopyA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src);
BRELT_API void CopyW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src);

// The text of src behind the text of dst, cut to the array.
BRELT_API void AppendA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src);
BRELT_API void AppendW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src);

// The texts of a and b one behind the other into dst, cut to the array; dst may be a.
BRELT_API void ConcatA(unsigned int dstHigh, char* dst, unsigned int aHigh, const char* a,
                       unsigned int bHigh, const char* b);
BRELT_API void ConcatW(unsigned int dstHigh, WChar* dst, unsigned int aHigh, const WChar* a,
                       unsigned int bHigh, const WChar* b);

// Where pat first stands in the text (NextPos: at or behind `start`).
BRELT_API unsigned int PosA(unsigned int high, const char* s, unsigned int patHigh,
                            const char* pat);
BRELT_API unsigned int PosW(unsigned int high, const WChar* s, unsigned int patHigh,
                            const WChar* pat);
BRELT_API unsigned int NextPosA(unsigned int high, const char* s, unsigned int patHigh,
                                const char* pat, unsigned int start);
BRELT_API unsigned int NextPosW(unsigned int high, const WChar* s, unsigned int patHigh,
                                const WChar* pat, unsigned int start);

// Where ch first stands in the text (NextCharPos: at or behind `start`); a NUL is never
// found.
BRELT_API unsigned int CharPosA(unsigned int high, const char* s, char ch);
BRELT_API unsigned int CharPosW(unsigned int high, const WChar* s, WChar ch);
BRELT_API unsigned int NextCharPosA(unsigned int high, const char* s, char ch, unsigned int start);
BRELT_API unsigned int NextCharPosW(unsigned int high, const WChar* s, WChar ch,
                                    unsigned int start);
// Where ch last stands in the text.
BRELT_API unsigned int RCharPosA(unsigned int high, const char* s, char ch);
BRELT_API unsigned int RCharPosW(unsigned int high, const WChar* s, WChar ch);

// How often ch stands in the text.
BRELT_API unsigned int CountA(unsigned int high, const char* s, char ch);
BRELT_API unsigned int CountW(unsigned int high, const WChar* s, WChar ch);

}  // namespace Str
