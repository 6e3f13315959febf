// Str wildcard matching and the sub-string walk in both twins. The matchers are also held
// against a literal recursive walk over many random texts and patterns.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::WChar;
using brelt::test::As;
using brelt::test::GuardedArray;
using Str::PosLen;

constexpr unsigned kUnset = 0xFFFFFFFFu;

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr auto Match = Str::MatchA;
  static constexpr auto MatchCS = Str::MatchCSA;
  static constexpr auto FindSubStr = Str::FindSubStrA;
};
template <>
struct Twin<WChar> {
  static constexpr auto Match = Str::MatchW;
  static constexpr auto MatchCS = Str::MatchCSW;
  static constexpr auto FindSubStr = Str::FindSubStrW;
};

template <class T>
class Wildcards : public testing::Test {
 protected:
  using Ops = Twin<T>;
  // Exactly the stored text ("\0" marks a NUL); an empty text is one NUL.
  static GuardedArray<T> Array(std::string_view text) {
    if (text.empty()) text = std::string_view("\0", 1);
    return GuardedArray<T>(std::basic_string_view<T>(As<T>(text)));
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Wildcards, Twins);

struct MatchRow {
  std::string_view text, pat;
  int folded, exact;
};

TYPED_TEST(Wildcards, MatchEdgeTable) {
  const MatchRow rows[] = {
      {"ABC.TXT", "*.txt", 1, 0},
      {"abc", "a?c", 1, 1},
      {"abc", "a?", 0, 0},
      {"abc", "a*", 1, 1},
      {"ab", "ab*", 1, 1},
      {"ab", "*a", 0, 0},
      {"aXbXc", "a*X*c", 1, 1},
      {"abcabd", "*abd", 1, 1},
      {"x", "", 1, 1},
      {"", "", 1, 1},
      {"", "*", 1, 1},
      {"", "?", 0, 0},
      {"?", "?", 1, 1},
      {"aBc", "A?C", 1, 0},
      {"abc", "abc?", 0, 0},
      {"abc", "ab", 0, 0},
      {"abc", "**c", 1, 1},
      {"abc", "*?*?*?*", 1, 1},
      {"ab", "*?*?*?*", 0, 0},
      {"mississippi", "m*iss*ppi", 1, 1},
      {"mississippi", "m*iss*ippx", 0, 0},
      {"a*b", "a\\*b", 0, 0},  // no escape: the backslash is a plain character
      // Text and pattern that fill their arrays end behind their last element.
      {"ab", "a*", 1, 1},
      {"ab", "ab?", 0, 0},
      {std::string_view("ab\0zz", 5), "ab", 1, 1},
      {"ab", std::string_view("ab\0?", 4), 1, 1},
      {"abc", "a*", 1, 1},  // the star in the last element of a full pattern is trailing
      {"abc", std::string_view("a*\0c", 4), 1, 1},
  };
  for (const MatchRow& r : rows) {
    auto s = TestFixture::Array(r.text);
    auto p = TestFixture::Array(r.pat);
    EXPECT_EQ(TestFixture::Ops::Match(s.high(), s.data(), p.high(), p.data()), r.folded)
        << r.text << " ~ " << r.pat;
    EXPECT_EQ(TestFixture::Ops::MatchCS(s.high(), s.data(), p.high(), p.data()), r.exact)
        << r.text << " ~ " << r.pat;
  }
}

TYPED_TEST(Wildcards, MatchBoundsOfAllOnesAreNoBound) {
  auto s = TestFixture::Array(std::string_view("abc\0", 4));
  auto p = TestFixture::Array(std::string_view("a*c\0", 4));
  auto q = TestFixture::Array(std::string_view("a*d\0", 4));
  EXPECT_EQ(TestFixture::Ops::Match(0xFFFFFFFFu, s.data(), 0xFFFFFFFFu, p.data()), 1);
  EXPECT_EQ(TestFixture::Ops::MatchCS(0xFFFFFFFFu, s.data(), 0xFFFFFFFFu, q.data()), 0);
  // A bound below the NUL ends the text (and the pattern) there.
  EXPECT_EQ(TestFixture::Ops::Match(1, s.data(), 0xFFFFFFFFu, p.data()), 0);
  auto ab = TestFixture::Array("ab");
  EXPECT_EQ(TestFixture::Ops::Match(1, s.data(), ab.high(), ab.data()), 1);
  EXPECT_EQ(TestFixture::Ops::MatchCS(2, s.data(), 1, p.data()), 1);  // "a*" is trailing
}

TEST(MatchW, FoldsBeyondAscii) {
  const std::basic_string<WChar> text = {0x00E9, 0x044F, 'x'};
  const std::basic_string<WChar> pat = {0x00C9, 0x042F, '?'};
  GuardedArray<WChar> s{std::basic_string_view<WChar>(text)};
  GuardedArray<WChar> p{std::basic_string_view<WChar>(pat)};
  EXPECT_EQ(Str::MatchW(s.high(), s.data(), p.high(), p.data()), 1);
  EXPECT_EQ(Str::MatchCSW(s.high(), s.data(), p.high(), p.data()), 0);
}

// The walk as first described: a star tries to take nothing, then one more character each
// round, recursing for the rest of the pattern. Exponential in the number of stars.
template <class T, class Eq>
int ReferenceMatch(const std::basic_string<T>& s, const std::basic_string<T>& p, std::size_t i,
                   std::size_t j, Eq eq) {
  for (;;) {
    const bool textEnded = i >= s.size();
    const bool patEnded = j >= p.size();
    if (textEnded && patEnded) return 1;
    if (patEnded) return 0;
    if (p[j] == T{'*'}) {
      if (j + 1 == p.size()) return 1;
      for (;; ++i) {
        if (ReferenceMatch(s, p, i, j + 1, eq)) return 1;
        if (i >= s.size()) return 0;
      }
    }
    if (textEnded) return 0;
    if (p[j] != T{'?'} && !eq(p[j], s[i])) return 0;
    ++i;
    ++j;
  }
}

TYPED_TEST(Wildcards, MatchAgreesWithTheRecursiveWalk) {
  using T = TypeParam;
  std::mt19937 rng(20261123);
  const std::string textAlphabet = "abA";
  const std::string patAlphabet = "abA*?";
  auto fold = [](T c) { return (c >= T{'a'} && c <= T{'z'}) ? static_cast<T>(c - 32) : c; };
  int matches = 0;
  for (int round = 0; round < 20000; ++round) {
    std::basic_string<T> s, p;
    const int ls = static_cast<int>(rng() % 11), lp = static_cast<int>(rng() % 9);
    for (int k = 0; k < ls; ++k) s.push_back(static_cast<T>(textAlphabet[rng() % 3]));
    for (int k = 0; k < lp; ++k) p.push_back(static_cast<T>(patAlphabet[rng() % 5]));
    // Alternately full arrays and terminated ones.
    const bool terminated = round % 2 == 0;
    std::basic_string<T> ss = s, pp = p;
    if (terminated || ss.empty()) ss.push_back(T{0});
    if (terminated || pp.empty()) pp.push_back(T{0});
    GuardedArray<T> sa{std::basic_string_view<T>(ss)};
    GuardedArray<T> pa{std::basic_string_view<T>(pp)};
    const int exact = p.empty() ? 1 : ReferenceMatch(s, p, 0, 0, [](T a, T b) { return a == b; });
    const int folded =
        p.empty() ? 1 : ReferenceMatch(s, p, 0, 0, [&](T a, T b) { return fold(a) == fold(b); });
    ASSERT_EQ(TestFixture::Ops::MatchCS(sa.high(), sa.data(), pa.high(), pa.data()), exact)
        << sa.Raw() << " ~ " << pa.Raw();
    ASSERT_EQ(TestFixture::Ops::Match(sa.high(), sa.data(), pa.high(), pa.data()), folded)
        << sa.Raw() << " ~ " << pa.Raw();
    matches += exact;
  }
  // Both answers must have been seen often, or the comparison proves little.
  EXPECT_GT(matches, 1000);
  EXPECT_LT(matches, 19000);
}

TYPED_TEST(Wildcards, MatchStaysFastOnManyStars) {
  // Ten thousand 'a' against a pattern that cannot fit: the recursive walk would not finish.
  std::string text(10000, 'a');
  auto s = TestFixture::Array(text);
  auto p = TestFixture::Array("*a*a*a*a*a*a*a*a*b");
  EXPECT_EQ(TestFixture::Ops::Match(s.high(), s.data(), p.high(), p.data()), 0);
  auto q = TestFixture::Array("*a*a*a*a*a*a*a*a*A");
  EXPECT_EQ(TestFixture::Ops::Match(s.high(), s.data(), q.high(), q.data()), 1);
}

// A record array flush against a guard page, as pairs of 32-bit fields.
class Records {
 public:
  explicit Records(std::size_t count) : words_(2 * count) {}
  PosLen* data() { return reinterpret_cast<PosLen*>(words_.data()); }
  PosLen& operator[](std::size_t k) { return data()[k]; }
  std::size_t size() const { return words_.size() / 2; }

 private:
  GuardedArray<unsigned int> words_;
};

struct FindRow {
  std::string_view text, pat;
  unsigned resHigh;
  int want;
  std::vector<PosLen> records;  // the rest of the array stays all ones
};

TYPED_TEST(Wildcards, FindSubStrEdgeTable) {
  const FindRow rows[] = {
      {"abcabd", "abd", 3, 0, {}},  // only the first "a" is tried
      {"Abc", "abc", 3, 0, {}},     // the first character is exact
      {"aBC", "abc", 3, 1, {}},     // the later ones are folded
      {"abc", "a?c", 3, 1, {{1, 1}}},
      {"abbcd", "a*c", 3, 1, {{1, 2}}},
      {"acd", "a*c", 3, 1, {{1, 0}}},
      {"abcd", "a*c?", 3, 1, {{1, 1}, {3, 1}}},
      {"xxaYYY", "a*", 3, 1, {{3, kUnset}}},
      {"xxa", "a*", 3, 0, {}},
      {"abc", "*", 3, 1, {{0, 3}}},
      {"abc", "?", 3, 1, {{0, 1}}},
      {"abc", "", 3, 1, {{0, 0}}},
      {"", "", 3, 0, {}},
      {"", "*", 3, 0, {}},
      {"abc", "?b", 3, 1, {}},
      {"abc", "*b", 3, 1, {}},
      {"abc", "*c", 3, 0, {}},      // a leading star takes exactly one character
      {"aXbcd", "a*?", 3, 0, {{1, kUnset}}},  // the ? behind a star is a plain character
      {"aX?cd", "a*?", 3, 1, {{1, 1}}},
      {"a**b", "a**", 3, 1, {{1, 0}}},
      {"abcdefg", "a*c*e*g", 1, 1, {{1, 1}, {3, 1}}},
      {"axbxc", "a*x*c", 0, 1, {{1, 0}}},
      {"abcd", "a???", 1, 1, {{1, 1}, {2, 1}}},  // records used up: ? goes on unnoted
      {"abcd", "a???x", 3, 0, {{1, 1}, {2, 1}, {3, 1}}},  // the text ends first; records stand
      {"abcabc", "bca", 3, 1, {}},  // prefix only: the text behind is not looked at
      {"abcBd", "b*b", 3, 0, {{2, kUnset}}},  // the star's follower is exact
      {"abXbd", "a*b", 3, 1, {{1, 0}}},  // first place is final
      {"ab", "a*c", 3, 0, {{1, kUnset}}},
  };
  for (const FindRow& r : rows) {
    auto s = TestFixture::Array(r.text);
    auto p = TestFixture::Array(r.pat);
    Records res(r.resHigh + 1);
    for (std::size_t k = 0; k < res.size(); ++k) res[k] = {0x12345678u, 0x12345678u};
    const std::string what = std::string(r.text) + " / " + std::string(r.pat);
    const int got =
        TestFixture::Ops::FindSubStr(s.high(), s.data(), p.high(), p.data(), r.resHigh, res.data());
    EXPECT_EQ(got, r.want) << what;
    for (std::size_t k = 0; k < res.size(); ++k) {
      const PosLen expect = k < r.records.size() ? r.records[k] : PosLen{kUnset, kUnset};
      EXPECT_EQ(res[k].pos, expect.pos) << what << " record " << k;
      EXPECT_EQ(res[k].len, expect.len) << what << " record " << k;
    }
  }
}

TYPED_TEST(Wildcards, FindSubStrAtTheEdgesOfFullArrays) {
  // The text ends behind its last element; a star in the pattern's last element is trailing.
  auto s = TestFixture::Array("abc");
  auto p = TestFixture::Array("b*");
  Records res(2);
  EXPECT_EQ(TestFixture::Ops::FindSubStr(s.high(), s.data(), p.high(), p.data(), 1, res.data()),
            1);
  EXPECT_EQ(res[0].pos, 2u);
  EXPECT_EQ(res[0].len, kUnset);
  // The star's follower is looked for only up to the bound: "c" lies behind it.
  auto cut = TestFixture::Array(std::string_view("abc", 3));
  auto pat = TestFixture::Array("a*c");
  EXPECT_EQ(TestFixture::Ops::FindSubStr(1, cut.data(), pat.high(), pat.data(), 1, res.data()), 0);
  EXPECT_EQ(res[0].pos, 1u);
  EXPECT_EQ(res[0].len, kUnset);
  EXPECT_EQ(res[1].pos, kUnset);
  // Bounds of all ones on text and pattern are no bound.
  auto ts = TestFixture::Array(std::string_view("xaYc\0", 5));
  auto tp = TestFixture::Array(std::string_view("ay?\0", 4));
  EXPECT_EQ(TestFixture::Ops::FindSubStr(0xFFFFFFFFu, ts.data(), 0xFFFFFFFFu, tp.data(), 1,
                                         res.data()),
            1);
  EXPECT_EQ(res[0].pos, 3u);
  EXPECT_EQ(res[0].len, 1u);
}

TYPED_TEST(Wildcards, FindSubStrFillSizeIsFormedIn32Bits) {
  // resHigh 0xFFFFFFFF gives a fill of 0 bytes: the one record behind the guard stays as it
  // was, and a walk that notes nothing writes nothing.
  Records res(1);
  res[0] = {7, 9};
  auto s = TestFixture::Array("abc");
  auto p = TestFixture::Array("abc");
  EXPECT_EQ(TestFixture::Ops::FindSubStr(s.high(), s.data(), p.high(), p.data(), 0xFFFFFFFFu,
                                         res.data()),
            1);
  EXPECT_EQ(res[0].pos, 7u);
  EXPECT_EQ(res[0].len, 9u);
  // A fill that was formed from a 32-bit high bound of 0 covers exactly one record.
  EXPECT_EQ(TestFixture::Ops::FindSubStr(s.high(), s.data(), p.high(), p.data(), 0, res.data()),
            1);
  EXPECT_EQ(res[0].pos, kUnset);
  EXPECT_EQ(res[0].len, kUnset);
}

TEST(FindSubStrW, FoldsLaterCharactersBeyondAscii) {
  const std::basic_string<WChar> text = {'x', 0x00E9, 0x044F};
  const std::basic_string<WChar> pat = {'x', 0x00C9, 0x042F};
  GuardedArray<WChar> s{std::basic_string_view<WChar>(text)};
  GuardedArray<WChar> p{std::basic_string_view<WChar>(pat)};
  Records res(1);
  EXPECT_EQ(Str::FindSubStrW(s.high(), s.data(), p.high(), p.data(), 0, res.data()), 1);
  // The first character is never folded.
  const std::basic_string<WChar> upperFirst = {0x00C9, 'x'};
  const std::basic_string<WChar> lowerFirst = {0x00E9, 'x'};
  GuardedArray<WChar> s2{std::basic_string_view<WChar>(lowerFirst)};
  GuardedArray<WChar> p2{std::basic_string_view<WChar>(upperFirst)};
  EXPECT_EQ(Str::FindSubStrW(s2.high(), s2.data(), p2.high(), p2.data(), 0, res.data()), 0);
}

}  // namespace
