#include "platform/text_fold.h"

#include <windows.h>

#include <cwctype>
#include <string.h>
#include <wchar.h>

namespace brelt::platform {
namespace {

// The user's fold takes a 32-bit count; longer texts go in slices.
template <class Fold>
void InSlices(char* s, std::uint64_t n, Fold fold) {
  constexpr std::uint64_t kSlice = 0x40000000;
  while (n > 0) {
    const std::uint64_t part = n < kSlice ? n : kSlice;
    fold(s, static_cast<DWORD>(part));
    s += part;
    n -= part;
  }
}

}  // namespace

void UpperBuffA(char* s, std::uint64_t n) { InSlices(s, n, CharUpperBuffA); }
void LowerBuffA(char* s, std::uint64_t n) { InSlices(s, n, CharLowerBuffA); }

char UpperCharA(char ch) {
  CharUpperBuffA(&ch, 1);
  return ch;
}
char LowerCharA(char ch) {
  CharLowerBuffA(&ch, 1);
  return ch;
}

WChar UpperW(WChar ch) { return static_cast<WChar>(std::towupper(ch)); }
WChar LowerW(WChar ch) { return static_cast<WChar>(std::towlower(ch)); }

void UpperStringW(WChar* s) { _wcsupr(s); }
void LowerStringW(WChar* s) { _wcslwr(s); }

}  // namespace brelt::platform
