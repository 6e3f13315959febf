// Str whole numbers as text and back, in any base from 2 to 16 (a base outside is clamped into
// that range). Negative numbers are a '-' and the magnitude in every base; digits above 9 are
// written in capitals and read in either case. No blanks are skipped, no prefix is written.
#pragma once

#include <cstdint>

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// Formatters: the text goes to the bounded string (high, dst). *ok is set to 1, and cleared
// when the digits do not fit; then dst keeps the sign and the lowest digits that fit, in
// order, with no NUL.
BRELT_API void IntToStrA(brelt::Long value, unsigned int high, char* dst, unsigned int base,
                         unsigned char* ok);
BRELT_API void IntToStrW(brelt::Long value, unsigned int high, WChar* dst, unsigned int base,
                         unsigned char* ok);
BRELT_API void Int64ToStrA(brelt::Int64 value, unsigned int high, char* dst, unsigned int base,
                           unsigned char* ok);
BRELT_API void Int64ToStrW(brelt::Int64 value, unsigned int high, WChar* dst, unsigned int base,
                           unsigned char* ok);
BRELT_API void IntPtrToStrA(std::intptr_t value, unsigned int high, char* dst, unsigned int base,
                            unsigned char* ok);
BRELT_API void IntPtrToStrW(std::intptr_t value, unsigned int high, WChar* dst,
                            unsigned int base, unsigned char* ok);
BRELT_API void CardToStrA(brelt::ULong value, unsigned int high, char* dst, unsigned int base,
                          unsigned char* ok);
BRELT_API void CardToStrW(brelt::ULong value, unsigned int high, WChar* dst, unsigned int base,
                          unsigned char* ok);
BRELT_API void Card64ToStrA(brelt::UInt64 value, unsigned int high, char* dst,
                            unsigned int base, unsigned char* ok);
BRELT_API void Card64ToStrW(brelt::UInt64 value, unsigned int high, WChar* dst,
                            unsigned int base, unsigned char* ok);
BRELT_API void CardPtrToStrA(std::uintptr_t value, unsigned int high, char* dst,
                             unsigned int base, unsigned char* ok);
BRELT_API void CardPtrToStrW(std::uintptr_t value, unsigned int high, WChar* dst,
                             unsigned int base, unsigned char* ok);

// Parsers: read (high, src), an optional '+' or '-' at index 0 and digits up to a NUL or the
// end of the array. *ok is set to 1 and cleared for no digit, a character that is no digit, a
// digit too large for the base, overflow, a magnitude beyond the signed range or '-' before
// an unsigned number. A value is returned in every case: a digit too large or an overflow
// does not stop the walk, which goes on with the value wrapped; any other character ends it.
BRELT_API brelt::Long StrToIntA(unsigned int high, const char* src, unsigned int base,
                                unsigned char* ok);
BRELT_API brelt::Long StrToIntW(unsigned int high, const WChar* src, unsigned int base,
                                unsigned char* ok);
BRELT_API brelt::Int64 StrToInt64A(unsigned int high, const char* src, unsigned int base,
                                   unsigned char* ok);
BRELT_API brelt::Int64 StrToInt64W(unsigned int high, const WChar* src, unsigned int base,
                                   unsigned char* ok);
BRELT_API std::intptr_t StrToIntPtrA(unsigned int high, const char* src, unsigned int base,
                                     unsigned char* ok);
BRELT_API std::intptr_t StrToIntPtrW(unsigned int high, const WChar* src, unsigned int base,
                                     unsigned char* ok);
BRELT_API brelt::ULong StrToCardA(unsigned int high, const char* src, unsigned int base,
                                  unsigned char* ok);
BRELT_API brelt::ULong StrToCardW(unsigned int high, const WChar* src, unsigned int base,
                                  unsigned char* ok);
BRELT_API brelt::UInt64 StrToCard64A(unsigned int high, const char* src, unsigned int base,
                                     unsigned char* ok);
BRELT_API brelt::UInt64 StrToCard64W(unsigned int high, const WChar* src, unsigned int base,
                                     unsigned char* ok);
BRELT_API std::uintptr_t StrToCardPtrA(unsigned int high, const char* src, unsigned int base,
                                       unsigned char* ok);
BRELT_API std::uintptr_t StrToCardPtrW(unsigned int high, const WChar* src, unsigned int base,
                                       unsigned char* ok);

}  // namespace Str
