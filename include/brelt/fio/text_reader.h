// FIO text reader: characters, lines and items straight from a handle, and numbers and
// booleans read as items. `A` readers take one byte a character, `W` readers two bytes, low
// byte first; no byte-order mark is skipped (IsUnicodeFile does that).
//
// The handle's position is the reader's whole state: after every call it stands right behind
// the characters the call consumed, so reading, writing and Seek mix freely on one handle.
// Every read clears the last error first; IOresult gives 0 after reading at the end of a file.
#pragma once

#include <brelt/config.h>

namespace FIO {

using brelt::FileHandle;
using brelt::WChar;

// Item separators: bit c % 8 of byte c / 8 set for a member c. Start: 9, 10, 13, 26 and 32.
// The W set covers the characters 0 to 127; a W character above 127 never separates.
BRELT_API extern unsigned char SeparatorsA[32];
BRELT_API extern unsigned char SeparatorsW[16];
// The character that ends a line for RdStrA / RdStrW. Start: 10.
BRELT_API extern char EOLA;
BRELT_API extern WChar EOLW;

// Gives the variables of the reader and the writer their start values; run at load.
BRELT_API void InitModule();

// The next character; 0 at the end of the file. A W read with one byte left gives that byte.
BRELT_API char RdCharA(FileHandle file);
BRELT_API WChar RdCharW(FileHandle file);

// A line up to EOLA (or 26), which is consumed; CR and LF elsewhere are dropped. A full array
// ends the read without a NUL and leaves the rest of the line in the file. At the end of the
// file the array is filled with NULs behind the text.
BRELT_API void RdStrA(FileHandle file, unsigned int high, char* dst);
BRELT_API void RdStrW(FileHandle file, unsigned int high, WChar* dst);

// An item: separators are skipped, then characters collected up to the next separator, 26,
// or CR (which takes the character behind it along), each consumed. A full array ends the
// read without a NUL; the rest comes as the next item. Empty only when nothing but separators
// is left in the file.
BRELT_API void RdItemA(FileHandle file, unsigned int high, char* dst);
BRELT_API void RdItemW(FileHandle file, unsigned int high, WChar* dst);

// "TRUE" gives 1 and "FALSE" 0, exactly in that case; anything else 0 with *ok cleared.
BRELT_API unsigned char RdBoolA(FileHandle file, unsigned char* ok);
BRELT_API unsigned char RdBoolW(FileHandle file, unsigned char* ok);

// Numbers: one item of at most 80 characters, through Str's conversion (decimal, or hex for
// RdHex), then the range of the result. *ok is 0 for a text that is no number, for a value
// out of range and at the end of the file (the real readers read that as 0.0 with *ok 1). The
// value comes back in every case, cut to the result's width (rounded to 32 bits for RdReal).
BRELT_API unsigned char RdCard8A(FileHandle file, unsigned char* ok);
BRELT_API unsigned char RdCard8W(FileHandle file, unsigned char* ok);
BRELT_API unsigned short RdCard16A(FileHandle file, unsigned char* ok);
BRELT_API unsigned short RdCard16W(FileHandle file, unsigned char* ok);
BRELT_API brelt::ULong RdCard32A(FileHandle file, unsigned char* ok);
BRELT_API brelt::ULong RdCard32W(FileHandle file, unsigned char* ok);
BRELT_API unsigned char RdHex8A(FileHandle file, unsigned char* ok);
BRELT_API unsigned char RdHex8W(FileHandle file, unsigned char* ok);
BRELT_API unsigned short RdHex16A(FileHandle file, unsigned char* ok);
BRELT_API unsigned short RdHex16W(FileHandle file, unsigned char* ok);
BRELT_API brelt::ULong RdHex32A(FileHandle file, unsigned char* ok);
BRELT_API brelt::ULong RdHex32W(FileHandle file, unsigned char* ok);
BRELT_API signed char RdInt8A(FileHandle file, unsigned char* ok);
BRELT_API signed char RdInt8W(FileHandle file, unsigned char* ok);
BRELT_API short RdInt16A(FileHandle file, unsigned char* ok);
BRELT_API short RdInt16W(FileHandle file, unsigned char* ok);
BRELT_API brelt::Long RdInt32A(FileHandle file, unsigned char* ok);
BRELT_API brelt::Long RdInt32W(FileHandle file, unsigned char* ok);
// |value| at most 3.4E38, so a NaN fails too.
BRELT_API float RdRealA(FileHandle file, unsigned char* ok);
BRELT_API float RdRealW(FileHandle file, unsigned char* ok);
BRELT_API double RdLngRealA(FileHandle file, unsigned char* ok);
BRELT_API double RdLngRealW(FileHandle file, unsigned char* ok);

}  // namespace FIO
