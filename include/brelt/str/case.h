// Str case folding and ordering.
//
// The 8-bit folds go through the system's 8-bit code page and count characters rather than
// stop at a NUL; the 16-bit folds follow the runtime's character locale. Orderings give
// exactly -1, 0 or +1 and compare codes as unsigned values. The locale orderings exist for
// 8-bit text only and give -2 when the system cannot order the texts.
#pragma once

#include <brelt/config.h>

namespace Str {

using brelt::WChar;

// One character as capital (Cap) or small (Low) letter.
BRELT_API char CapA(char ch);
BRELT_API char LowA(char ch);
BRELT_API WChar CapW(WChar ch);
BRELT_API WChar LowW(WChar ch);

// In place over the text of (high, s); a full array is folded to its last element.
BRELT_API void CapsA(unsigned int high, char* s);
BRELT_API void LowsA(unsigned int high, char* s);
BRELT_API void CapsW(unsigned int high, WChar* s);
BRELT_API void LowsW(unsigned int high, WChar* s);

// Orderings by unsigned code, where a text that ends first comes first: Compare gives -1, 0
// or +1, Same 1 for equal texts and else 0.
BRELT_API int CompareA(unsigned int aHigh, const char* a, unsigned int bHigh, const char* b);
BRELT_API int CompareW(unsigned int aHigh, const WChar* a, unsigned int bHigh, const WChar* b);
BRELT_API unsigned char SameA(unsigned int aHigh, const char* a, unsigned int bHigh,
                              const char* b);
BRELT_API unsigned char SameW(unsigned int aHigh, const WChar* a, unsigned int bHigh,
                              const WChar* b);

// Orderings by the user's locale, with and without case: -1, 0 or +1, and -2 when the
// system cannot order the texts.
BRELT_API int LocaleCompareA(unsigned int aHigh, const char* a, unsigned int bHigh,
                             const char* b);
BRELT_API int LocaleCompareCaseInsensitiveA(unsigned int aHigh, const char* a,
                                            unsigned int bHigh, const char* b);

// Replaces entries 0 to 127 of the module's two case tables; both arrays need 128 entries.
BRELT_API void SetTabs(unsigned short* cap, unsigned short* low);

// Module start-up: the process locale (system default, numbers in "C").
BRELT_API void InitModule();

}  // namespace Str
