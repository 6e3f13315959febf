// Str: whole-text wildcard matching.
//
// A star first takes no character, then one more each round, and the first way that fits
// wins. Only the most recent star ever needs to take more: whatever an earlier star could
// take instead, the later one can take as well. So the walk keeps one resume point and never
// recurses, and the cost stays near the product of the two lengths whatever the star count.
#include "brelt/str/match.h"
#include "case_fold.h"

namespace {

using brelt::WChar;

struct Exact {
  template <class T>
  bool operator()(T a, T b) const { return a == b; }
};
struct Folded {
  template <class T>
  bool operator()(T a, T b) const { return brelt::str::SameFolded(a, b); }
};

// Both ends are found by the walk: an index behind the bound or a NUL ends a side.
template <class T, class Eq>
unsigned char Match(unsigned int high, const T* s, unsigned int patHigh, const T* pat, Eq eq) {
  if (pat[0] == T{0}) return 1;
  std::uint64_t i = 0, j = 0;
  bool haveStar = false;
  std::uint64_t starJ = 0, starI = 0;  // the latest star, and where its take ends
  for (;;) {
    const bool textEnded = i > high || s[i] == T{0};
    const bool patEnded = j > patHigh || pat[j] == T{0};
    if (patEnded) {
      if (textEnded) return 1;
    } else if (pat[j] == T{'*'}) {
      if (j == patHigh || pat[j + 1] == T{0}) return 1;  // a trailing star takes the rest
      haveStar = true;
      starJ = j;
      starI = i;
      ++j;
      continue;
    } else if (!textEnded && (pat[j] == T{'?'} || eq(pat[j], s[i]))) {
      ++i;
      ++j;
      continue;
    }
    // This way fails: the latest star takes one more character, if the text has one.
    if (!haveStar || starI > high || s[starI] == T{0}) return 0;
    i = ++starI;
    j = starJ + 1;
  }
}

}  // namespace

namespace Str {

unsigned char MatchA(unsigned int high, const char* s, unsigned int patHigh, const char* pat) {
  return Match(high, s, patHigh, pat, Folded{});
}
unsigned char MatchW(unsigned int high, const WChar* s, unsigned int patHigh, const WChar* pat) {
  return Match(high, s, patHigh, pat, Folded{});
}
unsigned char MatchCSA(unsigned int high, const char* s, unsigned int patHigh, const char* pat) {
  return Match(high, s, patHigh, pat, Exact{});
}
unsigned char MatchCSW(unsigned int high, const WChar* s, unsigned int patHigh,
                       const WChar* pat) {
  return Match(high, s, patHigh, pat, Exact{});
}

}  // namespace Str
