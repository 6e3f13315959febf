// Str core in both twins: measured length, copy, append and concatenation at the array's edge,
// and the searches, with every destination flush against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::kNotFound;
using brelt::WChar;
using brelt::test::As;
using brelt::test::GuardedArray;

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr auto Length = Str::LengthA;
  static constexpr auto Copy = Str::CopyA;
  static constexpr auto Append = Str::AppendA;
  static constexpr auto Concat = Str::ConcatA;
  static constexpr auto Pos = Str::PosA;
  static constexpr auto NextPos = Str::NextPosA;
  static constexpr auto CharPos = Str::CharPosA;
  static constexpr auto NextCharPos = Str::NextCharPosA;
  static constexpr auto RCharPos = Str::RCharPosA;
  static constexpr auto Count = Str::CountA;
};
template <>
struct Twin<WChar> {
  static constexpr auto Length = Str::LengthW;
  static constexpr auto Copy = Str::CopyW;
  static constexpr auto Append = Str::AppendW;
  static constexpr auto Concat = Str::ConcatW;
  static constexpr auto Pos = Str::PosW;
  static constexpr auto NextPos = Str::NextPosW;
  static constexpr auto CharPos = Str::CharPosW;
  static constexpr auto NextCharPos = Str::NextCharPosW;
  static constexpr auto RCharPos = Str::RCharPosW;
  static constexpr auto Count = Str::CountW;
};

template <class T>
class StrCore : public testing::Test {
 protected:
  using Ops = Twin<T>;
  // An array holding exactly `text` ("\0" marks a NUL; '#' fills what is left), guarded.
  static GuardedArray<T> Array(std::string_view text, std::size_t size) {
    GuardedArray<T> a(size);
    for (std::size_t i = 0; i < text.size(); ++i) a[i] = static_cast<T>(text[i]);  // ASCII
    return a;
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(StrCore, Twins);

// Rows read: source text as stored (with '\0' for a NUL), array size, then what the
// destination holds afterwards ('0' for a NUL, '#' for an untouched element).
struct EditRow {
  std::string_view src;
  std::size_t srcSize;
  std::size_t dstSize;
  std::string_view after;
};

TYPED_TEST(StrCore, LengthStopsAtNulOrBound) {
  struct Row {
    std::string_view text;
    unsigned want;
  } rows[] = {{std::string_view("abc\0#####x", 10), 3}, {"abcd", 4}, {std::string_view("\0", 1), 0},
              {"abc", 3}, {"a", 1}};
  for (const Row& r : rows) {
    GuardedArray<TypeParam> s(std::basic_string_view<char>(r.text));
    EXPECT_EQ(TestFixture::Ops::Length(s.high(), s.data()), r.want) << r.text;
  }
  // 0xFFFFFFFF is a bound, not a wrap to an empty array: the terminator ends the text.
  GuardedArray<TypeParam> s(std::string_view("hello\0", 6));
  EXPECT_EQ(TestFixture::Ops::Length(0xFFFFFFFFu, s.data()), 5u);
}

TYPED_TEST(StrCore, CopyCutsToCapacityAndTerminatesOnlyWhenRoomIsLeft) {
  const EditRow rows[] = {
      {"abcd", 4, 4, "abcd"},   {"abc", 3, 4, "abc0"},    {"abcde", 5, 4, "abcd"},
      {"", 0, 3, "0##"},        {"ab", 2, 1, "a"},        {std::string_view("abc\0zz", 6), 6, 6, "abc0##"},
  };
  for (const EditRow& r : rows) {
    auto src = TestFixture::Array(r.src, r.srcSize == 0 ? 1 : r.srcSize);
    if (r.srcSize == 0) src[0] = 0;
    auto dst = TestFixture::Array("", r.dstSize);
    TestFixture::Ops::Copy(dst.high(), dst.data(), src.high(), src.data());
    EXPECT_EQ(dst.Raw(), r.after) << "copy of " << r.src;
  }
}

TYPED_TEST(StrCore, CopyCapacityWrapsAndOverlapIsSafe) {
  // dstHigh 0xFFFFFFFF gives capacity 0 in 32 bits: nothing is written at all.
  auto src = TestFixture::Array("abc", 3);
  auto dst = TestFixture::Array("", 4);
  TestFixture::Ops::Copy(0xFFFFFFFFu, dst.data(), src.high(), src.data());
  EXPECT_EQ(dst.Raw(), "####");
  // srcHigh 0xFFFFFFFF just reads up to the terminator.
  auto term = TestFixture::Array(std::string_view("xy\0", 3), 3);
  TestFixture::Ops::Copy(dst.high(), dst.data(), 0xFFFFFFFFu, term.data());
  EXPECT_EQ(dst.Raw(), "xy0#");

  // Overlap in both directions inside one array.
  auto a = TestFixture::Array(std::string_view("abcdef\0", 7), 8);
  TestFixture::Ops::Copy(5, a.data() + 2, 6, a.data());
  EXPECT_EQ(a.Raw(), "ababcdef");
  auto b = TestFixture::Array(std::string_view("abcdef\0", 7), 8);
  TestFixture::Ops::Copy(5, b.data(), 5, b.data() + 2);
  EXPECT_EQ(b.Raw(), "cdef0f0#");
}

TYPED_TEST(StrCore, AppendFillsUpAndNeverWritesPastTheBound) {
  struct Row {
    std::string_view dst;
    std::size_t dstSize;
    std::string_view src;
    std::string_view after;
  } rows[] = {
      {"abc", 3, "de", "abc"},                                  // already full
      {std::string_view("abc\0", 4), 5, "de", "abcde"},          // exact fit: no NUL
      {std::string_view("abc\0", 4), 6, "de", "abcde0"},         // room for the NUL
      {std::string_view("abc\0", 4), 4, "de", "abcd"},           // cut
      {std::string_view("\0", 1), 3, "", "0##"},                // empty onto empty
      {std::string_view("a\0", 2), 4, std::string_view("b\0c", 3), "ab0#"},
  };
  for (const auto& r : rows) {
    auto dst = TestFixture::Array(r.dst, r.dstSize);
    GuardedArray<TypeParam> src(r.src.empty() ? std::string_view("\0", 1) : r.src);
    TestFixture::Ops::Append(dst.high(), dst.data(), src.high(), src.data());
    EXPECT_EQ(dst.Raw(), r.after) << r.dst << " + " << r.src;
  }
  // A source bound of 0xFFFFFFFF is only compared, never wrapped.
  auto dst = TestFixture::Array(std::string_view("a\0", 2), 5);
  auto src = TestFixture::Array(std::string_view("bc\0", 3), 3);
  TestFixture::Ops::Append(dst.high(), dst.data(), 0xFFFFFFFFu, src.data());
  EXPECT_EQ(dst.Raw(), "abc0#");
}

TYPED_TEST(StrCore, ConcatCutsAndTerminates) {
  struct Row {
    std::string_view a, b;
    std::size_t dstSize;
    std::string_view after;
  } rows[] = {
      {"ab", "cd", 3, "abc"},   {"ab", "cd", 4, "abcd"},  {"ab", "cd", 5, "abcd0"},
      {"ab", "cd", 1, "a"},     {"ab", "cd", 2, "ab"},    {"", "", 2, "0#"},
      {std::string_view("ab\0x", 4), std::string_view("c\0y", 3), 6, "abc0##"},
  };
  for (const auto& r : rows) {
    // a and b fill their arrays without a NUL unless the row spells one: the operation itself
    // writes the terminator behind a b that has none.
    GuardedArray<TypeParam> a(r.a.empty() ? std::string_view("\0", 1) : r.a);
    GuardedArray<TypeParam> b(r.b.empty() ? std::string_view("\0", 1) : r.b);
    auto dst = TestFixture::Array("", r.dstSize);
    TestFixture::Ops::Concat(dst.high(), dst.data(), a.high(), a.data(), b.high(), b.data());
    EXPECT_EQ(dst.Raw(), r.after) << r.a << " + " << r.b;
  }
  // dst may be a itself.
  auto same = TestFixture::Array(std::string_view("ab\0", 3), 6);
  GuardedArray<TypeParam> b(std::string_view("cde"));
  TestFixture::Ops::Concat(same.high(), same.data(), same.high(), same.data(), b.high(), b.data());
  EXPECT_EQ(same.Raw(), "abcde0");
}

TYPED_TEST(StrCore, PosAndNextPos) {
  struct Row {
    std::string_view s, pat;
    unsigned start;
    unsigned want;
  } rows[] = {
      {"abc", "c", 0, 2},
      {"abc", "cd", 0, kNotFound},  // would run past the end of the full array
      {"abc", "", 0, 0},
      {std::string_view("\0bc", 3), "", 0, kNotFound},
      {"abcabc", "bc", 0, 1},
      {"abcabc", "bc", 2, 4},
      {"abcabc", "", 3, 3},
      {"abcabc", "abc", 4, kNotFound},
      {"abcabc", "c", 6, kNotFound},  // start = high + 1: nothing is read
      {std::string_view("ab\0ab", 5), "ab", 1, kNotFound},  // the NUL at a candidate start ends it
      {std::string_view("ab\0ab", 5), "ab", 3, 3},          // behind the terminator, as given
      {std::string_view("ab\0ab", 5), "abc", 3, kNotFound},  // runs off the end of the array
      {std::string_view("ab\0ab", 5), "b", 3, 4},
      {"aaab", "aab", 0, 1},
      {std::string_view("abc", 3), std::string_view("bc\0zz", 5), 0, 1},
  };
  for (const auto& r : rows) {
    GuardedArray<TypeParam> s(r.s);
    GuardedArray<TypeParam> pat(r.pat.empty() ? std::string_view("\0", 1) : r.pat);
    EXPECT_EQ(TestFixture::Ops::NextPos(s.high(), s.data(), pat.high(), pat.data(), r.start),
              r.want)
        << r.s << " / " << r.pat << " from " << r.start;
    if (r.start == 0) {
      EXPECT_EQ(TestFixture::Ops::Pos(s.high(), s.data(), pat.high(), pat.data()), r.want);
    }
  }
  // A high bound of 0xFFFFFFFF: the NUL alone ends the text.
  GuardedArray<TypeParam> s(std::string_view("xxabxx\0", 7));
  GuardedArray<TypeParam> pat(std::string_view("ab"));
  EXPECT_EQ(TestFixture::Ops::Pos(0xFFFFFFFFu, s.data(), pat.high(), pat.data()), 2u);
  GuardedArray<TypeParam> miss(std::string_view("zz"));
  EXPECT_EQ(TestFixture::Ops::Pos(0xFFFFFFFFu, s.data(), miss.high(), miss.data()), kNotFound);
}

TYPED_TEST(StrCore, CharSearchesAndCount) {
  using T = TypeParam;
  struct Row {
    std::string_view s;
    char ch;
    unsigned charPos, rCharPos, count;
  } rows[] = {
      {"abcabc", 'b', 1, 4, 2},
      {"abcabc", 'z', kNotFound, kNotFound, 0},
      {"abc", '\0', kNotFound, kNotFound, 0},
      {std::string_view("ab\0b", 4), 'b', 1, 1, 1},
      {std::string_view("\0b", 2), 'b', kNotFound, kNotFound, 0},
      {"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", 'a', 0, 49, 50},
  };
  for (const auto& r : rows) {
    GuardedArray<T> s(r.s);
    const T ch = static_cast<T>(r.ch);
    EXPECT_EQ(TestFixture::Ops::CharPos(s.high(), s.data(), ch), r.charPos) << r.s;
    EXPECT_EQ(TestFixture::Ops::RCharPos(s.high(), s.data(), ch), r.rCharPos) << r.s;
    EXPECT_EQ(TestFixture::Ops::Count(s.high(), s.data(), ch), r.count) << r.s;
  }
  GuardedArray<T> s(std::string_view("abcab"));
  const T b = static_cast<T>('b');
  EXPECT_EQ(TestFixture::Ops::NextCharPos(s.high(), s.data(), b, 2), 4u);
  EXPECT_EQ(TestFixture::Ops::NextCharPos(s.high(), s.data(), b, 1), 1u);
  EXPECT_EQ(TestFixture::Ops::NextCharPos(s.high(), s.data(), b, 5), kNotFound);
  // Characters with the high bit set are plain codes, not negative numbers.
  GuardedArray<T> hi(std::string_view("a\xE9z"));
  EXPECT_EQ(TestFixture::Ops::CharPos(hi.high(), hi.data(), static_cast<T>(0xE9)), 1u);
  GuardedArray<T> term(std::string_view("abb\0", 4));
  EXPECT_EQ(TestFixture::Ops::Count(0xFFFFFFFFu, term.data(), b), 2u);
  EXPECT_EQ(TestFixture::Ops::RCharPos(0xFFFFFFFFu, term.data(), b), 2u);
}

// The vector searches against a character-by-character walk, over lengths around the block
// sizes and texts of a tiny alphabet with NULs mixed in.
TYPED_TEST(StrCore, SearchesAgreeWithPlainWalk) {
  using T = TypeParam;
  std::mt19937 rng(7);
  for (std::size_t size = 1; size < 80; ++size) {
    GuardedArray<T> s(size);
    for (int trial = 0; trial < 20; ++trial) {
      for (std::size_t i = 0; i < size; ++i) {
        const unsigned r = rng() % 16;
        s[i] = static_cast<T>(r == 0 ? 0 : 'a' + r % 3);
      }
      const T ch = static_cast<T>('a' + rng() % 3);
      std::size_t len = 0;
      while (len < size && s[len] != T{0}) ++len;
      unsigned first = kNotFound, last = kNotFound, count = 0;
      for (std::size_t i = 0; i < len; ++i) {
        if (s[i] != ch) continue;
        if (first == kNotFound) first = static_cast<unsigned>(i);
        last = static_cast<unsigned>(i);
        ++count;
      }
      ASSERT_EQ(TestFixture::Ops::Length(s.high(), s.data()), len);
      ASSERT_EQ(TestFixture::Ops::CharPos(s.high(), s.data(), ch), first);
      ASSERT_EQ(TestFixture::Ops::RCharPos(s.high(), s.data(), ch), last);
      ASSERT_EQ(TestFixture::Ops::Count(s.high(), s.data(), ch), count);
    }
  }
}

}  // namespace
