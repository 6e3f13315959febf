// Lib: block operations over raw memory in units of 8, 16 and 32 bits; with the sorts, the
// random generator and the process services of the headers below.
//
// Moves take the source first and the destination second. Counts are in elements of the
// operation's unit. Scans and compares give a count: the number of elements passed over before
// the first one that meets the condition, or `n` when none does.
#pragma once

#include <brelt/config.h>
#include <brelt/lib/process.h>
#include <brelt/lib/random.h>
#include <brelt/lib/sort.h>

namespace Lib {

// Copies n elements from src to dst; the areas may overlap.
BRELT_API void Move(const void* src, void* dst, brelt::UInt64 n);
BRELT_API void WordMove(const void* src, void* dst, brelt::UInt64 n);
BRELT_API void LongWordMove(const void* src, void* dst, brelt::UInt64 n);

// Sets n elements of dst to value.
BRELT_API void Fill(void* dst, brelt::UInt64 n, unsigned char value);
BRELT_API void WordFill(void* dst, brelt::UInt64 n, unsigned short value);
BRELT_API void LongWordFill(void* dst, brelt::UInt64 n, brelt::ULong value);

// The number of leading elements that are equal in both areas; n when all are.
BRELT_API brelt::UInt64 Compare(const void* a, const void* b, brelt::UInt64 n);
BRELT_API brelt::UInt64 WordCompare(const void* a, const void* b, brelt::UInt64 n);

// R scans walk up from `p`; L scans walk down from `p`, which is the highest element.
BRELT_API brelt::UInt64 ScanR(const void* p, brelt::UInt64 n, unsigned char value);
BRELT_API brelt::UInt64 ScanL(const void* p, brelt::UInt64 n, unsigned char value);
BRELT_API brelt::UInt64 ScanNeR(const void* p, brelt::UInt64 n, unsigned char value);
BRELT_API brelt::UInt64 ScanNeL(const void* p, brelt::UInt64 n, unsigned char value);
BRELT_API brelt::UInt64 WordScanR(const void* p, brelt::UInt64 n, unsigned short value);
BRELT_API brelt::UInt64 WordScanL(const void* p, brelt::UInt64 n, unsigned short value);
BRELT_API brelt::UInt64 WordScanNeR(const void* p, brelt::UInt64 n, unsigned short value);
BRELT_API brelt::UInt64 WordScanNeL(const void* p, brelt::UInt64 n, unsigned short value);

}  // namespace Lib
