// FIO text writer: characters, strings, fields and line ends straight to a handle, with no
// buffer: a token is in the file when the call returns. `A` writers put out one byte a
// character, `W` writers two bytes, low byte first. Failures show only in IOresult.
//
// A field has a signed width: positive right-adjusts the text behind PrefixChar fill,
// negative left-adjusts it before SuffixChar fill, 0 is no field. A text wider than its field
// goes out whole, or, with ChopOff not 0, as |width| question marks. Numbers and booleans go
// through the field; a number whose conversion fails writes nothing at all.
#pragma once

#include <brelt/config.h>

namespace FIO {

using brelt::FileHandle;
using brelt::WChar;

// Engineering notation for WrReal and WrLngReal when not 0. Start: 0.
BRELT_API extern unsigned char Eng;
// Not 0: a text longer than its field is replaced by question marks. Start: 0.
BRELT_API extern unsigned char ChopOff;
// Fill in front of right-adjusted text and behind left-adjusted text. Start: blanks.
BRELT_API extern char PrefixCharA;
BRELT_API extern WChar PrefixCharW;
BRELT_API extern char SuffixCharA;
BRELT_API extern WChar SuffixCharW;

// One character at the position. With more than one character behind the position, the file
// is first cut one character further on, so that it ends right behind the character written.
BRELT_API void WrCharA(FileHandle file, char ch);
BRELT_API void WrCharW(FileHandle file, WChar ch);
BRELT_API void WrCharRepA(FileHandle file, char ch, brelt::ULong count);
BRELT_API void WrCharRepW(FileHandle file, WChar ch, brelt::ULong count);
// The whole string, without a limit.
BRELT_API void WrStrA(FileHandle file, unsigned int high, const char* src);
BRELT_API void WrStrW(FileHandle file, unsigned int high, const WChar* src);
// The first 256 characters of the string in a field of `width`.
BRELT_API void WrStrAdjA(FileHandle file, unsigned int high, const char* src, brelt::Long width);
BRELT_API void WrStrAdjW(FileHandle file, unsigned int high, const WChar* src, brelt::Long width);
// CR LF, whatever EOLA and EOLW say.
BRELT_API void WrLnA(FileHandle file);
BRELT_API void WrLnW(FileHandle file);
// "FALSE" for 0, "TRUE" for anything else.
BRELT_API void WrBoolA(FileHandle file, unsigned char value, brelt::Long width);
BRELT_API void WrBoolW(FileHandle file, unsigned char value, brelt::Long width);

// Numbers in a field: decimal, or hexadecimal digits in capitals without prefix for WrHex.
BRELT_API void WrCard8A(FileHandle file, unsigned char value, brelt::Long width);
BRELT_API void WrCard8W(FileHandle file, unsigned char value, brelt::Long width);
BRELT_API void WrCard16A(FileHandle file, unsigned short value, brelt::Long width);
BRELT_API void WrCard16W(FileHandle file, unsigned short value, brelt::Long width);
BRELT_API void WrCard32A(FileHandle file, brelt::ULong value, brelt::Long width);
BRELT_API void WrCard32W(FileHandle file, brelt::ULong value, brelt::Long width);
BRELT_API void WrHex8A(FileHandle file, unsigned char value, brelt::Long width);
BRELT_API void WrHex8W(FileHandle file, unsigned char value, brelt::Long width);
BRELT_API void WrHex16A(FileHandle file, unsigned short value, brelt::Long width);
BRELT_API void WrHex16W(FileHandle file, unsigned short value, brelt::Long width);
BRELT_API void WrHex32A(FileHandle file, brelt::ULong value, brelt::Long width);
BRELT_API void WrHex32W(FileHandle file, brelt::ULong value, brelt::Long width);
BRELT_API void WrInt8A(FileHandle file, signed char value, brelt::Long width);
BRELT_API void WrInt8W(FileHandle file, signed char value, brelt::Long width);
BRELT_API void WrInt16A(FileHandle file, short value, brelt::Long width);
BRELT_API void WrInt16W(FileHandle file, short value, brelt::Long width);
BRELT_API void WrInt32A(FileHandle file, brelt::Long value, brelt::Long width);
BRELT_API void WrInt32W(FileHandle file, brelt::Long value, brelt::Long width);
// Reals by Str::RealToStr with `digits` and Eng, or by Str::FixRealToStr with `digits`
// decimals (the Fix forms).
BRELT_API void WrRealA(FileHandle file, float value, unsigned int digits, brelt::Long width);
BRELT_API void WrRealW(FileHandle file, float value, unsigned int digits, brelt::Long width);
BRELT_API void WrLngRealA(FileHandle file, double value, unsigned int digits, brelt::Long width);
BRELT_API void WrLngRealW(FileHandle file, double value, unsigned int digits, brelt::Long width);
BRELT_API void WrFixRealA(FileHandle file, float value, unsigned int digits, brelt::Long width);
BRELT_API void WrFixRealW(FileHandle file, float value, unsigned int digits, brelt::Long width);
BRELT_API void WrFixLngRealA(FileHandle file, double value, unsigned int digits,
                             brelt::Long width);
BRELT_API void WrFixLngRealW(FileHandle file, double value, unsigned int digits,
                             brelt::Long width);

}  // namespace FIO
