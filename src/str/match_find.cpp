// Str: the wildcard sub-string walk. One start, one forward pass, no second try: the first
// place a star's follower is seen is final, and the walk only reports where wildcards landed.
#include "brelt/lib.h"
#include "brelt/str/match.h"
#include "bounded.h"
#include "case_fold.h"

namespace {

using brelt::WChar;
using brelt::str::MeasuredLength;
using Str::PosLen;

// First index at or behind i holding q by exact code, stopping at a NUL or behind the bound.
template <class T>
std::uint64_t FindFrom(unsigned int high, const T* s, std::uint64_t i, T q) {
  for (; i <= high && s[i] != T{0}; ++i) {
    if (s[i] == q) return i;
  }
  return ~std::uint64_t{0};
}

template <class T>
unsigned char FindSubStr(unsigned int high, const T* s, unsigned int patHigh, const T* pat,
                         unsigned int resHigh, PosLen* res) {
  // The fill size is formed in 32 bits.
  const std::uint32_t fillBytes = (resHigh + 1u) * 8u;
  Lib::Fill(res, fillBytes, 0xFF);

  const std::uint64_t n = MeasuredLength(high, s);
  if (n == 0) return 0;
  const std::uint64_t m = MeasuredLength(patHigh, pat);
  if (m == 0) {
    res[0] = {0, 0};
    return 1;
  }

  std::uint64_t i = 0;
  const bool wild = pat[0] == T{'*'} || pat[0] == T{'?'};
  if (!wild) {
    // The first character is looked for by its exact code, unlike the ones behind it.
    i = FindFrom(high, s, 0, pat[0]);
    if (i == ~std::uint64_t{0}) return 0;
    if (m == 1) return 1;
  } else if (m == 1) {
    res[0] = {0, pat[0] == T{'*'} ? static_cast<unsigned int>(n) : 1u};
    return 1;
  }
  // A leading wildcard of a longer pattern takes exactly the character at 0, unreported.

  std::uint64_t k = 0, j = 1;
  for (;;) {
    ++i;
    if (i > high || s[i] == T{0}) return 0;
    const T c = pat[j];
    if (c == T{'?'}) {
      if (k <= resHigh) res[k++] = {static_cast<unsigned int>(i), 1};
      ++j;
    } else if (c == T{'*'} && k > resHigh) {
      // Out of records: the star takes one character and its follower goes unseen.
      j += 2;
    } else if (c == T{'*'}) {
      res[k].pos = static_cast<unsigned int>(i);
      if (j >= patHigh || pat[j + 1] == T{0}) return 1;
      const std::uint64_t r = FindFrom(high, s, i, pat[j + 1]);
      if (r == ~std::uint64_t{0}) return 0;
      res[k].len = static_cast<unsigned int>(r - i);
      i = r;
      ++k;
      j += 2;
    } else if (!brelt::str::SameFolded(c, s[i])) {
      return 0;
    } else {
      ++j;
    }
    if (j >= m) return 1;
  }
}

}  // namespace

namespace Str {

unsigned char FindSubStrA(unsigned int high, const char* s, unsigned int patHigh,
                          const char* pat, unsigned int resHigh, PosLen* res) {
  return FindSubStr(high, s, patHigh, pat, resHigh, res);
}
unsigned char FindSubStrW(unsigned int high, const WChar* s, unsigned int patHigh,
                          const WChar* pat, unsigned int resHigh, PosLen* res) {
  return FindSubStr(high, s, patHigh, pat, resHigh, res);
}

}  // namespace Str
