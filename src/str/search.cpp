// Str: search bounded strings for a character or a sub-string.
#include "brelt/str/core.h"
#include "bounded.h"

namespace {

using brelt::kNotFound;
using brelt::str::Capacity;
using brelt::str::MeasuredLength;
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

// First ch at or behind start, stopping at the first NUL; NUL itself is never found.
template <class T>
unsigned int NextCharPos(unsigned int high, const T* s, T ch, std::uint64_t start) {
  const std::uint64_t n = Capacity(high);
  if (start >= n) return kNotFound;
  const std::uint64_t i = start + scan::FindEither(s + start, n - start, T{0}, ch);
  if (i >= n || s[i] == T{0}) return kNotFound;
  return static_cast<unsigned int>(i);
}

// One walk to the first ch or the end: a text without ch is read once. From the first ch
// on, the end is found and the walk goes back from it to the last ch.
template <class T>
unsigned int RCharPos(unsigned int high, const T* s, T ch) {
  if (ch == T{0}) return kNotFound;
  const std::uint64_t n = Capacity(high);
  // A short text is answered from one look at its start.
  if (const std::uint64_t i = scan::FrontLastBeforeEnd(s, n, ch); i != scan::kLong) {
    return i == n ? kNotFound : static_cast<unsigned int>(i);
  }
  const std::uint64_t first = scan::FindEither(s, n, T{0}, ch);
  if (first >= n || s[first] == T{0}) return kNotFound;
  const std::uint64_t len = first + 1 + scan::FindEq(s + first + 1, n - first - 1, T{0});
  const std::uint64_t back = scan::FindEqBackward(s + len - 1, len - first, ch);
  return static_cast<unsigned int>(len - 1 - back);
}

template <class T>
unsigned int Count(unsigned int high, const T* s, T ch) {
  return static_cast<unsigned int>(scan::CountEq(s, MeasuredLength(high, s), ch));
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

unsigned int CharPosA(unsigned int high, const char* s, char ch) {
  return NextCharPos(high, s, ch, 0);
}
unsigned int CharPosW(unsigned int high, const WChar* s, WChar ch) {
  return NextCharPos(high, s, ch, 0);
}
unsigned int NextCharPosA(unsigned int high, const char* s, char ch, unsigned int start) {
  return NextCharPos(high, s, ch, start);
}
unsigned int NextCharPosW(unsigned int high, const WChar* s, WChar ch, unsigned int start) {
  return NextCharPos(high, s, ch, start);
}

unsigned int RCharPosA(unsigned int high, const char* s, char ch) { return RCharPos(high, s, ch); }
unsigned int RCharPosW(unsigned int high, const WChar* s, WChar ch) {
  return RCharPos(high, s, ch);
}

unsigned int CountA(unsigned int high, const char* s, char ch) { return Count(high, s, ch); }
unsigned int CountW(unsigned int high, const WChar* s, WChar ch) { return Count(high, s, ch); }

}  // namespace Str
