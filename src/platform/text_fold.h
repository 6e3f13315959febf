// Case folding of text under the system's settings: 8-bit text under the system's 8-bit code
// page, 16-bit text under the runtime's character locale.
#pragma once

#include <cstdint>

#include "brelt/config.h"

namespace brelt::platform {

// Fold exactly n 8-bit characters in place. A NUL is one more character, not an end, and no
// length ever changes: a character whose partner would need another byte count stays.
void UpperBuffA(char* s, std::uint64_t n);
void LowerBuffA(char* s, std::uint64_t n);

// One 8-bit character, as the counted folds would fold a buffer holding only it.
char UpperCharA(char ch);
char LowerCharA(char ch);

// One 16-bit character; a character without a partner comes back unchanged.
WChar UpperW(WChar ch);
WChar LowerW(WChar ch);

// A NUL-terminated 16-bit string, in place.
void UpperStringW(WChar* s);
void LowerStringW(WChar* s);

}  // namespace brelt::platform
