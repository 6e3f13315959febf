// Str editing: insert, delete, slice, prepend, replace, trim and pad bounded strings in place.
//
// Nothing is written behind the array: text that does not fit is dropped at the right end, in
// silence, and a result that fills the array holds no NUL. Blanks, for the trims, are TAB,
// LF, CR and space only.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// Inserts the text of src before element pos of dst; a pos behind the end means the end.
BRELT_API void InsertA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
                       unsigned int pos);
BRELT_API void InsertW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
                       unsigned int pos);

// Removes count characters from pos on; a pos at or behind the end changes nothing.
BRELT_API void DeleteA(unsigned int high, char* s, unsigned int pos, unsigned int count);
BRELT_API void DeleteW(unsigned int high, WChar* s, unsigned int pos, unsigned int count);

// dst becomes the count characters of src from pos on (0xFFFFFFFF: to the end).
BRELT_API void SliceA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
                      unsigned int pos, unsigned int count);
BRELT_API void SliceW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
                      unsigned int pos, unsigned int count);

// Puts the text of src in front of the text of dst.
BRELT_API void PrependA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src);
BRELT_API void PrependW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh,
                        const WChar* src);

// Replaces the first occurrence of pat in s by repl, once, without scanning again.
BRELT_API void SubstA(unsigned int high, char* s, unsigned int patHigh, const char* pat,
                      unsigned int replHigh, const char* repl);
BRELT_API void SubstW(unsigned int high, WChar* s, unsigned int patHigh, const WChar* pat,
                      unsigned int replHigh, const WChar* repl);

// Blanks go from the left end (LTrim), the right end (RTrim) or both (Trim).
BRELT_API void LTrimA(unsigned int high, char* s);
BRELT_API void LTrimW(unsigned int high, WChar* s);
BRELT_API void RTrimA(unsigned int high, char* s);
BRELT_API void RTrimW(unsigned int high, WChar* s);
BRELT_API void TrimA(unsigned int high, char* s);
BRELT_API void TrimW(unsigned int high, WChar* s);

// Pads with ch on the left (right) up to width characters in all, capped by the capacity.
BRELT_API void LPadChA(unsigned int high, char* s, unsigned int width, char ch);
BRELT_API void LPadChW(unsigned int high, WChar* s, unsigned int width, WChar ch);
BRELT_API void RPadChA(unsigned int high, char* s, unsigned int width, char ch);
BRELT_API void RPadChW(unsigned int high, WChar* s, unsigned int width, WChar ch);

}  // namespace Str
