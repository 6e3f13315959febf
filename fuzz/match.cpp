// Wildcard matching: MatchA/W, MatchCSA/W and FindSubStrA/W over any text and pattern, under either
// 8-bit code page.
// Invariants: MatchCS gives the result of the backtracking definition (a star takes no character
// first, then one more at a time), here as a table over all (text, pattern) suffixes; Match agrees
// with MatchCS over the text and pattern upper-cased one character at a time (CapA/CapW);
// FindSubStr gives the result and records of its single forward pass, written plainly, and writes
// no record behind `resHigh`.
//
// Input: the text and the pattern; then from the back the twin, the scan width, the code page, the
// flags of text and pattern, the record count and the records' flags.
#include <brelt/str/case.h>
#include <brelt/str/match.h>

#include <vector>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr auto Match = Str::MatchA, MatchCS = Str::MatchCSA;
  static constexpr auto Find = Str::FindSubStrA;
  static char Cap(char c) { return Str::CapA(c); }
};
template <>
struct Twin<WChar> {
  static constexpr auto Match = Str::MatchW, MatchCS = Str::MatchCSW;
  static constexpr auto Find = Str::FindSubStrW;
  static WChar Cap(WChar c) { return Str::CapW(c); }
};

// fits(i, j): the text from i on fits the pattern from j on.
template <class T>
bool MatchRef(const String<T>& s, const String<T>& p) {
  const std::size_t n = s.size(), m = p.size();
  if (m == 0) return true;
  std::vector<char> table((n + 2) * (m + 1));
  auto fits = [&](std::size_t i, std::size_t j) -> char& { return table[i * (m + 1) + j]; };
  for (std::size_t i = n + 1; i-- > 0;) {
    fits(i, m) = i == n;
    for (std::size_t j = m; j-- > 0;) {
      if (p[j] == T('*')) {
        fits(i, j) = j + 1 == m || fits(i, j + 1) || (i < n && fits(i + 1, j));
      } else {
        fits(i, j) = i < n && (p[j] == T('?') || p[j] == s[i]) && fits(i + 1, j + 1);
      }
    }
  }
  return fits(0, 0);
}

// One forward pass from the first place of the pattern's first character.
template <class T>
bool FindRef(const String<T>& s, const String<T>& p, std::vector<Str::PosLen>& res) {
  using Ops = Twin<T>;
  const unsigned n = static_cast<unsigned>(s.size()), m = static_cast<unsigned>(p.size());
  res.assign(res.size(), {kAll, kAll});
  if (n == 0) return false;
  const bool wild = m > 0 && (p[0] == T('*') || p[0] == T('?'));
  if (m == 0 || (wild && m == 1)) {
    res[0] = {0, m == 0 ? 0 : p[0] == T('*') ? n : 1};
    return true;
  }
  std::size_t i = wild ? 0 : s.find(p[0]);
  if (i == String<T>::npos) return false;
  for (std::size_t j = 1, k = 0; j < m;) {
    if (++i >= n) return false;
    const T c = p[j];
    if (c == T('?')) {
      if (k < res.size()) res[k++] = {static_cast<unsigned>(i), 1};
      ++j;
    } else if (c == T('*') && k >= res.size()) {
      j += 2;
    } else if (c == T('*')) {
      res[k].pos = static_cast<unsigned>(i);
      if (j + 1 >= m) return true;
      const std::size_t r = s.find(p[j + 1], i);
      if (r == String<T>::npos) return false;
      res[k++].len = static_cast<unsigned>(r - i);
      i = r;
      j += 2;
    } else {
      if (c != s[i] && Ops::Cap(c) != Ops::Cap(s[i])) return false;
      ++j;
    }
  }
  return true;
}

template <class T>
void Check(const Text<T>& s, const Text<T>& p, unsigned records, unsigned resFlags) {
  using Ops = Twin<T>;
  const auto exact = Ops::MatchCS(s.high, s.array.data(), p.high, p.array.data());
  const auto folded = Ops::Match(s.high, s.array.data(), p.high, p.array.data());
  BRELT_FUZZ_CHECK(exact == MatchRef(s.text, p.text));

  // Both sides upper-cased element by element, with the arrays' shapes and bounds kept.
  auto upper = [](const Text<T>& t) {
    String<T> all = t.Now();
    for (T& c : all) c = Ops::Cap(c);
    Text<T> u = Place<T>(all, kNoNul);
    u.high = t.high;
    return u;
  };
  const Text<T> us = upper(s), up = upper(p);
  BRELT_FUZZ_CHECK(folded == Ops::MatchCS(us.high, us.array.data(), up.high, up.array.data()));

  // The records against the plain pass; one spare record behind resHigh must stay as it was.
  Guarded<unsigned> words(2 * (records + 1),
                               resFlags & kFrontGuard ? GuardSide::kFront : GuardSide::kBack);
  auto* res = reinterpret_cast<Str::PosLen*>(words.data());
  const unsigned char found = Ops::Find(s.high, s.array.data(), p.high, p.array.data(),
                                        records - 1, res);
  std::vector<Str::PosLen> want(records);
  BRELT_FUZZ_CHECK(found == FindRef(s.text, p.text, want));
  for (unsigned k = 0; k < records; ++k) {
    BRELT_FUZZ_CHECK(res[k].pos == want[k].pos && res[k].len == want[k].len);
  }
  BRELT_FUZZ_CHECK(words[2 * records] == '#' && words[2 * records + 1] == '#');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string text = in.ConsumeRandomLengthString(300);
  const std::string pattern = in.ConsumeRandomLengthString(64);
  ForTwin(in, [&](auto twin) {
    using T = decltype(twin);
    TakeCodePage(in);
    const Text<T> s = Make<T>(in, text), p = Make<T>(in, pattern);
    const unsigned records = in.ConsumeIntegralInRange(1, 6);
    Check(s, p, records, in.ConsumeIntegral<std::uint8_t>());
  });
  return 0;
}
