// Str: upper-casing and lower-casing of characters and strings. The 8-bit folds count
// characters; the 16-bit folds go through the runtime's terminated-string fold.
#include "brelt/str/case.h"
#include "bounded.h"
#include "case_fold.h"

namespace {

namespace platform = brelt::platform;
using brelt::WChar;
using brelt::str::Capacity;
using brelt::str::MeasuredLength;

// The runtime's string fold needs a NUL and a full array has none: the last character is
// taken out of the walk and folded on its own.
void FoldW(unsigned int high, WChar* s, void (*foldString)(WChar*), WChar (*foldChar)(WChar)) {
  const std::uint64_t len = MeasuredLength(high, s);
  if (len < Capacity(high)) {
    foldString(s);
    return;
  }
  const WChar last = s[len - 1];
  s[len - 1] = WChar{0};
  foldString(s);
  s[len - 1] = foldChar(last);
}

}  // namespace

namespace Str {

char CapA(char ch) { return brelt::str::FoldUpper(ch); }
char LowA(char ch) { return platform::LowerCharA(ch); }
WChar CapW(WChar ch) { return platform::UpperW(ch); }
WChar LowW(WChar ch) { return platform::LowerW(ch); }

void CapsA(unsigned int high, char* s) { platform::UpperBuffA(s, MeasuredLength(high, s)); }
void LowsA(unsigned int high, char* s) { platform::LowerBuffA(s, MeasuredLength(high, s)); }

void CapsW(unsigned int high, WChar* s) {
  FoldW(high, s, platform::UpperStringW, platform::UpperW);
}
void LowsW(unsigned int high, WChar* s) {
  FoldW(high, s, platform::LowerStringW, platform::LowerW);
}

}  // namespace Str
