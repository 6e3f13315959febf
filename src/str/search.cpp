// Str: search bounded strings for a character or a sub-string.
#include "brelt/str/core.h"
#include "bounded.h"
#include "platform/bound_at_load.h"
#include "text_scans.h"

namespace {

using brelt::kNotFound;
using brelt::str::Capacity;
namespace scan = brelt::scan;

// Candidate starts are found by a vector scan for the pattern's first character or a NUL;
// a NUL at a candidate start ends the search, as in the plain walk.
template <class T>
unsigned int NextPos(unsigned int high, const T* s, unsigned int patHigh, const T* pat,
                     std::uint64_t start) {
  const std::uint64_t n = Capacity(high);
  const T first = pat[0];
  while (start < n) {
    if (first == T{0}) return s[start] == T{0} ? kNotFound : static_cast<unsigned int>(start);
    start += scan::FindEither(s + start, n - start, T{0}, first);
    if (start >= n || s[start] == T{0}) return kNotFound;
    for (std::uint64_t i = 1;; ++i) {
      if (i > patHigh || pat[i] == T{0}) return static_cast<unsigned int>(start);
      if (start + i > high) return kNotFound;
      if (s[start + i] != pat[i]) break;
    }
    ++start;
  }
  return kNotFound;
}

}  // namespace

namespace Str {

unsigned int PosA(unsigned int high, const char* s, unsigned int patHigh, const char* pat) {
  return NextPos(high, s, patHigh, pat, 0);
}
unsigned int PosW(unsigned int high, const WChar* s, unsigned int patHigh, const WChar* pat) {
  return NextPos(high, s, patHigh, pat, 0);
}
unsigned int NextPosA(unsigned int high, const char* s, unsigned int patHigh, const char* pat,
                      unsigned int start) {
  return NextPos(high, s, patHigh, pat, start);
}
unsigned int NextPosW(unsigned int high, const WChar* s, unsigned int patHigh, const WChar* pat,
                      unsigned int start) {
  return NextPos(high, s, patHigh, pat, start);
}

unsigned int NextCharPosA(unsigned int high, const char* s, char ch, unsigned int start) {
  return static_cast<unsigned int>(
      brelt::str::CharPosOp::Run<scan::Dispatched>(high, s, ch, start));
}
unsigned int NextCharPosW(unsigned int high, const WChar* s, WChar ch, unsigned int start) {
  return static_cast<unsigned int>(
      brelt::str::CharPosOp::Run<scan::Dispatched>(high, s, ch, start));
}

}  // namespace Str

BRELT_BOUND_AT_LOAD(Str, CharPosA, unsigned int, (unsigned int high, const char* s, char ch),
                    (high, s, ch), BRELT_TEXT_SCAN_FOR_CPU(CharPosA))
BRELT_BOUND_AT_LOAD(Str, CharPosW, unsigned int, (unsigned int high, const WChar* s, WChar ch),
                    (high, s, ch), BRELT_TEXT_SCAN_FOR_CPU(CharPosW))
BRELT_BOUND_AT_LOAD(Str, RCharPosA, unsigned int, (unsigned int high, const char* s, char ch),
                    (high, s, ch), BRELT_TEXT_SCAN_FOR_CPU(RCharPosA))
BRELT_BOUND_AT_LOAD(Str, RCharPosW, unsigned int, (unsigned int high, const WChar* s, WChar ch),
                    (high, s, ch), BRELT_TEXT_SCAN_FOR_CPU(RCharPosW))
BRELT_BOUND_AT_LOAD(Str, CountA, unsigned int, (unsigned int high, const char* s, char ch),
                    (high, s, ch), BRELT_TEXT_SCAN_FOR_CPU(CountA))
BRELT_BOUND_AT_LOAD(Str, CountW, unsigned int, (unsigned int high, const WChar* s, WChar ch),
                    (high, s, ch), BRELT_TEXT_SCAN_FOR_CPU(CountW))
