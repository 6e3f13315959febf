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
  static constexpr auto Match = Str::MatchA, MatchCS = Str::MatchCSA;
  static constexpr auto FindSubStr = Str::FindSubStrA;
};
template <>
struct Twin<WChar> {
  static constexpr auto Match = Str::MatchW, MatchCS = Str::MatchCSW;
  static constexpr auto FindSubStr = Str::FindSubStrW;
};

template <class T>
class Wildcards : public testing::Test {
 protected:
  using Ops = Twin<T>;
  // Exactly the stored text ("\0" marks a NUL, no NUL means full); an empty text is one NUL.
  static GuardedArray<T> Array(std::string_view text) {
    if (text.empty()) text = std::string_view("\0", 1);
    return GuardedArray<T>(std::basic_string_view<T>(As<T>(text)));
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Wildcards, Twins);

TYPED_TEST(Wildcards, MatchEdgeTable) {
  using Ops = typename TestFixture::Ops;
  const struct Row {
    std::string_view text, pat;
    int folded, exact;
  } rows[] = {
      // The random walk below covers the plain cases; these are what it never builds.
      {"ABC.TXT", "*.txt", 1, 0},
      {"a*b", "a\\*b", 0, 0},  // no escape: the backslash is a plain character
      {std::string_view("ab\0zz", 5), "ab", 1, 1},
      {std::string_view("ab\0d", 4), "*d", 0, 0},  // a star takes nothing behind the NUL
      {"ab", std::string_view("ab\0?", 4), 1, 1},
      {"abc", "a*", 1, 1},  // the star in the last element of a full pattern is trailing
      {"abc", std::string_view("a*\0c", 4), 1, 1},
  };
  for (const Row& r : rows) {
    auto s = TestFixture::Array(r.text);
    auto p = TestFixture::Array(r.pat);
    EXPECT_EQ(Ops::Match(s.high(), s.data(), p.high(), p.data()), r.folded) << r.text << r.pat;
    EXPECT_EQ(Ops::MatchCS(s.high(), s.data(), p.high(), p.data()), r.exact) << r.text << r.pat;
  }
  // Bounds of all ones are no bound; a bound below the NUL ends the text there.
  auto s = TestFixture::Array(std::string_view("abc\0", 4));
  auto p = TestFixture::Array(std::string_view("a*c\0", 4));
  EXPECT_EQ(Ops::Match(kUnset, s.data(), kUnset, p.data()), 1);
  EXPECT_EQ(Ops::Match(1, s.data(), kUnset, p.data()), 0);
  EXPECT_EQ(Ops::MatchCS(2, s.data(), 1, p.data()), 1);  // "a*" is trailing
}

// The walk as first described: a star takes nothing, then one more character each round,
// recursing for the rest of the pattern. Exponential in the number of stars.
template <class T, class Eq>
int ReferenceMatch(const std::basic_string<T>& s, const std::basic_string<T>& p, std::size_t i,
                   std::size_t j, Eq eq) {
  for (;; ++i, ++j) {
    if (j >= p.size()) return i >= s.size() ? 1 : 0;
    if (p[j] == T{'*'}) {
      if (j + 1 == p.size()) return 1;
      for (;; ++i) {
        if (ReferenceMatch(s, p, i, j + 1, eq)) return 1;
        if (i >= s.size()) return 0;
      }
    }
    if (i >= s.size() || (p[j] != T{'?'} && !eq(p[j], s[i]))) return 0;
  }
}

TYPED_TEST(Wildcards, MatchAgreesWithTheRecursiveWalk) {
  using T = TypeParam;
  std::mt19937 rng(20261123);
  auto fold = [](T c) { return (c >= T{'a'} && c <= T{'z'}) ? static_cast<T>(c - 32) : c; };
  int matches = 0;
  for (int round = 0; round < 20000; ++round) {
    std::basic_string<T> s, p;
    for (int k = static_cast<int>(rng() % 11); k > 0; --k) s.push_back(T("abA"[rng() % 3]));
    for (int k = static_cast<int>(rng() % 9); k > 0; --k) p.push_back(T("abA*?"[rng() % 5]));
    // Alternately full arrays and terminated ones.
    std::basic_string<T> ss = s, pp = p;
    if (round % 2 == 0 || ss.empty()) ss.push_back(T{0});
    if (round % 2 == 0 || pp.empty()) pp.push_back(T{0});
    GuardedArray<T> sa{std::basic_string_view<T>(ss)}, pa{std::basic_string_view<T>(pp)};
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
  // Ten thousand 'a' against many stars: the recursive walk would not finish.
  auto s = TestFixture::Array(std::string(10000, 'a'));
  auto p = TestFixture::Array("*a*a*a*a*a*a*a*a*b");
  EXPECT_EQ(TestFixture::Ops::Match(s.high(), s.data(), p.high(), p.data()), 0);
}

// A record array flush against a guard page, as pairs of 32-bit fields.
class Records {
 public:
  explicit Records(std::size_t count) : words_(2 * count) {}
  PosLen& operator[](std::size_t k) { return data()[k]; }
  PosLen* data() { return reinterpret_cast<PosLen*>(words_.data()); }
  std::size_t size() const { return words_.size() / 2; }

 private:
  GuardedArray<unsigned int> words_;
};

TYPED_TEST(Wildcards, FindSubStrEdgeTable) {
  using Ops = typename TestFixture::Ops;
  const struct Row {
    std::string_view text, pat;
    unsigned resHigh;
    int want;
    std::vector<PosLen> records;  // the rest of the array is left at all ones
  } rows[] = {
      {"abcabd", "abd", 3, 0, {}},  // only the first "a" is tried
      {"Abc", "abc", 3, 0, {}},     // the first character is exact
      {"aBC", "abc", 3, 1, {}},     // the later ones are folded
      {"abbcd", "a*c", 3, 1, {{1, 2}}},
      {"abXbd", "a*b", 3, 1, {{1, 0}}},  // first place is final
      {"abcBd", "b*b", 3, 0, {{2, kUnset}}},  // the star's follower is exact
      {"xxaYYY", "a*", 3, 1, {{3, kUnset}}},
      {"xxa", "a*", 3, 0, {}},
      {"abc", "*", 3, 1, {{0, 3}}},
      {"abc", "?", 3, 1, {{0, 1}}},
      {"abc", "", 3, 1, {{0, 0}}},
      {"", "", 3, 0, {}},
      {"abc", "*c", 3, 0, {}},  // a leading star takes exactly one character
      {"aXbcd", "a*?", 3, 0, {{1, kUnset}}},  // the ? behind a star is a plain character
      {"abcdefg", "a*c*e*g", 1, 1, {{1, 1}, {3, 1}}},
      {"abcd", "a???", 1, 1, {{1, 1}, {2, 1}}},  // records used up: ? goes on unnoted
      {"abcd", "a???x", 3, 0, {{1, 1}, {2, 1}, {3, 1}}},  // the text ends first; records stand
  };
  for (const Row& r : rows) {
    auto s = TestFixture::Array(r.text);
    auto p = TestFixture::Array(r.pat);
    Records res(r.resHigh + 1);
    for (std::size_t k = 0; k < res.size(); ++k) res[k] = {0x12345678u, 0x12345678u};
    const std::string what = std::string(r.text) + " / " + std::string(r.pat);
    const int got = Ops::FindSubStr(s.high(), s.data(), p.high(), p.data(), r.resHigh, res.data());
    EXPECT_EQ(got, r.want) << what;
    for (std::size_t k = 0; k < res.size(); ++k) {
      const PosLen expect = k < r.records.size() ? r.records[k] : PosLen{kUnset, kUnset};
      EXPECT_EQ(res[k].pos, expect.pos) << what << " record " << k;
      EXPECT_EQ(res[k].len, expect.len) << what << " record " << k;
    }
  }
}

TYPED_TEST(Wildcards, FindSubStrBoundsAndFillSize) {
  using Ops = typename TestFixture::Ops;
  Records res(2);
  // The star's follower is looked for only up to the bound: "c" lies behind it.
  auto s = TestFixture::Array("abc");
  auto p = TestFixture::Array("a*c");
  EXPECT_EQ(Ops::FindSubStr(1, s.data(), p.high(), p.data(), 1, res.data()), 0);
  EXPECT_EQ(res[0].pos, 1u);
  EXPECT_EQ(res[0].len, kUnset);
  // Bounds of all ones on text and pattern are no bound.
  auto ts = TestFixture::Array(std::string_view("xaYc\0", 5));
  auto tp = TestFixture::Array(std::string_view("ay?\0", 4));
  EXPECT_EQ(Ops::FindSubStr(kUnset, ts.data(), kUnset, tp.data(), 1, res.data()), 1);
  EXPECT_EQ(res[0].pos, 3u);
  EXPECT_EQ(res[0].len, 1u);
  // resHigh of all ones makes a fill of 0 bytes, formed in 32 bits: the record stays.
  Records one(1);
  one[0] = {7, 9};
  EXPECT_EQ(Ops::FindSubStr(s.high(), s.data(), s.high(), s.data(), kUnset, one.data()), 1);
  EXPECT_EQ(one[0].pos, 7u);
  EXPECT_EQ(one[0].len, 9u);
}

TEST(WildcardsW, FoldBeyondAsciiButNotTheFirstCharacterOfFindSubStr) {
  const std::basic_string<WChar> text = {0x00E9, 0x00E9, 0x044F}, pat = {0x00E9, 0x00C9, 0x042F};
  GuardedArray<WChar> s{std::basic_string_view<WChar>(text)};
  GuardedArray<WChar> p{std::basic_string_view<WChar>(pat)};
  Records res(1);
  EXPECT_EQ(Str::MatchW(s.high(), s.data(), p.high(), p.data()), 1);
  EXPECT_EQ(Str::MatchCSW(s.high(), s.data(), p.high(), p.data()), 0);
  EXPECT_EQ(Str::FindSubStrW(s.high(), s.data(), p.high(), p.data(), 0, res.data()), 1);
  EXPECT_EQ(Str::FindSubStrW(1, s.data() + 1, 1, p.data() + 1, 0, res.data()), 0);
}

}  // namespace
