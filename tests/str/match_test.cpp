// Str wildcard matching and the sub-string walk in both twins. The matchers are also held
// against a literal recursive walk over many random texts and patterns.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::WChar;
using brelt::test::As;
using brelt::test::GuardedArray;
using Str::PosLen;
using SV = std::string_view;

constexpr unsigned kUnset = 0xFFFFFFFFu, kOwn = 0xFFFFFFFEu;  // kOwn: the array's own high
unsigned Bound(unsigned want, unsigned own) { return want == kOwn ? own : want; }
std::pair<unsigned, unsigned> At(const PosLen& r) { return {r.pos, r.len}; }

template <class T> struct Twin;
template <> struct Twin<char> {
  static constexpr auto Match = Str::MatchA, MatchCS = Str::MatchCSA;
  static constexpr auto FindSubStr = Str::FindSubStrA;
};
template <> struct Twin<WChar> {
  static constexpr auto Match = Str::MatchW, MatchCS = Str::MatchCSW;
  static constexpr auto FindSubStr = Str::FindSubStrW;
};

template <class T>
class Wildcards : public testing::Test, public Twin<T> {
 protected:
  // Exactly the stored text ("\0" marks a NUL, no NUL means full); an empty text is one NUL.
  static GuardedArray<T> Array(SV text) {
    if (text.empty()) text = SV("\0", 1);
    return GuardedArray<T>(std::basic_string_view<T>(As<T>(text)));
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Wildcards, Twins);

TYPED_TEST(Wildcards, MatchEdgeTable) {
  // What the random walk below never builds: folding, backslash, NULs inside either array,
  // bounds of all ones (no bound) and bounds below the NUL (the text ends there).
  const SV kAbc("abc\0", 4), kAStarC("a*c\0", 4);
  const struct Row { SV text, pat; int folded, exact; unsigned sHigh = kOwn, pHigh = kOwn; }
  rows[] = {{"ABC.TXT", "*.txt", 1, 0},       {"a*b", "a\\*b", 0, 0},
            {SV("ab\0zz", 5), "ab", 1, 1},    {SV("ab\0d", 4), "*d", 0, 0},
            {"ab", SV("ab\0?", 4), 1, 1},     {"abc", SV("a*\0c", 4), 1, 1},
            {kAbc, kAStarC, 1, 1, kUnset, kUnset}, {kAbc, kAStarC, 0, 0, 1, kUnset},
            {kAbc, kAStarC, 1, 1, 2, 1}};  // "a*" is trailing
  for (const Row& r : rows) {
    auto s = TestFixture::Array(r.text), p = TestFixture::Array(r.pat);
    const unsigned sh = Bound(r.sHigh, s.high()), ph = Bound(r.pHigh, p.high());
    EXPECT_EQ(this->Match(sh, s.data(), ph, p.data()), r.folded) << r.text << r.pat << sh;
    EXPECT_EQ(this->MatchCS(sh, s.data(), ph, p.data()), r.exact) << r.text << r.pat << sh;
  }
}

// The walk as first described: a star tries every rest of the text, recursing (exponential).
template <class T, class Eq>
int Walk(const std::basic_string<T>& s, const std::basic_string<T>& p, std::size_t i,
         std::size_t j, Eq eq) {
  if (j == p.size()) return i == s.size();
  if (p[j] == T{'*'}) {
    for (std::size_t k = i; k <= s.size(); ++k) if (Walk(s, p, k, j + 1, eq)) return 1;
    return 0;
  }
  return i < s.size() && (p[j] == T{'?'} || eq(p[j], s[i])) && Walk(s, p, i + 1, j + 1, eq);
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
    // Alternately full arrays and terminated ones. An empty pattern matches anything.
    std::basic_string<T> ss = s, pp = p;
    if (round % 2 == 0 || ss.empty()) ss.push_back(T{0});
    if (round % 2 == 0 || pp.empty()) pp.push_back(T{0});
    GuardedArray<T> sa{std::basic_string_view<T>(ss)}, pa{std::basic_string_view<T>(pp)};
    const int exact = p.empty() || Walk(s, p, 0, 0, [](T a, T b) { return a == b; });
    const int folded = p.empty() || Walk(s, p, 0, 0, [&](T a, T b) { return fold(a) == fold(b); });
    ASSERT_EQ(this->MatchCS(sa.high(), sa.data(), pa.high(), pa.data()), exact) << sa.Raw();
    ASSERT_EQ(this->Match(sa.high(), sa.data(), pa.high(), pa.data()), folded) << sa.Raw();
    matches += exact;
  }
  EXPECT_TRUE(matches > 1000 && matches < 19000) << matches << ": one answer too rare";
  // Ten thousand 'a' against many stars: the recursive walk would not finish.
  auto s = TestFixture::Array(std::string(10000, 'a'));
  auto p = TestFixture::Array("*a*a*a*a*a*a*a*a*b");
  EXPECT_EQ(this->Match(s.high(), s.data(), p.high(), p.data()), 0);
}

// A record array flush against a guard page, as pairs of 32-bit fields.
struct Records {
  explicit Records(std::size_t count) : words(2 * count) {}
  PosLen& operator[](std::size_t k) { return data()[k]; }
  PosLen* data() { return reinterpret_cast<PosLen*>(words.data()); }
  GuardedArray<unsigned int> words;
};

TYPED_TEST(Wildcards, FindSubStrEdgeTable) {
  // Records not listed must be left at all ones; the first character is exact, the rest fold.
  // A star's follower is looked for only up to the text's bound; all ones is no bound.
  const struct Row { SV text, pat; unsigned resHigh; int want; std::vector<PosLen> records;
                     unsigned sHigh = kOwn, pHigh = kOwn; } rows[] = {
      {"abcabd", "abd", 3, 0, {}},             {"Abc", "abc", 3, 0, {}},
      {"aBC", "abc", 3, 1, {}},                {"abbcd", "a*c", 3, 1, {{1, 2}}},
      {"abXbd", "a*b", 3, 1, {{1, 0}}},        {"abcBd", "b*b", 3, 0, {{2, kUnset}}},
      {"xxaYYY", "a*", 3, 1, {{3, kUnset}}},   {"xxa", "a*", 3, 0, {}},
      {"abc", "*", 3, 1, {{0, 3}}},            {"abc", "?", 3, 1, {{0, 1}}},
      {"abc", "", 3, 1, {{0, 0}}},             {"", "", 3, 0, {}},
      {"abc", "*c", 3, 0, {}},                 {"aXbcd", "a*?", 3, 0, {{1, kUnset}}},
      {"abcdefg", "a*c*e*g", 1, 1, {{1, 1}, {3, 1}}},  // resHigh below the wildcards
      {"abcd", "a???", 1, 1, {{1, 1}, {2, 1}}},  {"abc", "a*c", 1, 0, {{1, kUnset}}, 1},
      {"abcd", "a???x", 3, 0, {{1, 1}, {2, 1}, {3, 1}}},
      {SV("xaYc\0", 5), SV("ay?\0", 4), 1, 1, {{3, 1}}, kUnset, kUnset}};
  for (const Row& r : rows) {
    SCOPED_TRACE(std::string(r.text) + " / " + std::string(r.pat));
    auto s = TestFixture::Array(r.text), p = TestFixture::Array(r.pat);
    Records res(r.resHigh + 1);
    for (unsigned k = 0; k <= r.resHigh; ++k) res[k] = {0x12345678u, 0x12345678u};
    const unsigned sh = Bound(r.sHigh, s.high()), ph = Bound(r.pHigh, p.high());
    EXPECT_EQ(this->FindSubStr(sh, s.data(), ph, p.data(), r.resHigh, res.data()), r.want);
    for (unsigned k = 0; k <= r.resHigh; ++k) {
      const PosLen expect = k < r.records.size() ? r.records[k] : PosLen{kUnset, kUnset};
      EXPECT_EQ(At(res[k]), At(expect)) << "record " << k;
    }
  }
  // resHigh of all ones makes a fill of 0 bytes, formed in 32 bits: the record stays.
  auto s = TestFixture::Array("abc");
  Records one(1);
  one[0] = {7, 9};
  EXPECT_EQ(this->FindSubStr(s.high(), s.data(), s.high(), s.data(), kUnset, one.data()), 1);
  EXPECT_EQ(At(one[0]), std::make_pair(7u, 9u));
}

TEST(WildcardsW, FoldBeyondAsciiButNotTheFirstCharacterOfFindSubStr) {
  const std::basic_string<WChar> text = {0x00E9, 0x00E9, 0x044F}, pat = {0x00E9, 0x00C9, 0x042F};
  GuardedArray<WChar> s{std::basic_string_view<WChar>(text)}, p{std::basic_string_view<WChar>(pat)};
  Records res(1);
  EXPECT_EQ(Str::MatchW(s.high(), s.data(), p.high(), p.data()), 1);
  EXPECT_EQ(Str::MatchCSW(s.high(), s.data(), p.high(), p.data()), 0);
  EXPECT_EQ(Str::FindSubStrW(s.high(), s.data(), p.high(), p.data(), 0, res.data()), 1);
  EXPECT_EQ(Str::FindSubStrW(1, s.data() + 1, 1, p.data() + 1, 0, res.data()), 0);
}

}  // namespace
