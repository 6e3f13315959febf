// Str copies into terminated and counted strings in both twins: the room rules at the edge of
// dst, sources that fill their arrays, all-ones bounds, and a copy onto its own array. Every
// dst sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;

template <class T>
struct Twin {
  static constexpr auto ToC = Str::StrToCA;
  static constexpr auto ToPas = Str::StrToPasA;
};
template <>
struct Twin<WChar> {
  static constexpr auto ToC = Str::StrToCW;
  static constexpr auto ToPas = Str::StrToPasW;
};

template <class T>
class Copies : public testing::Test {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Copies, Twins);

// dst afterwards: '0' for a NUL, '#' untouched; a count below 10 is shown as its digit.
template <class T>
std::string Shown(const GuardedArray<T>& a, bool counted) {
  std::string raw = a.Raw();
  if (counted && a[0] < 10) raw[0] = static_cast<char>('0' + a[0]);
  return raw;
}

// 'C' StrToC, 'P' StrToPas; the source fills its array ("\0" marks a NUL); srcHigh and
// dstHigh of all ones stand for the array's own bounds when `allOnes` says so.
TYPED_TEST(Copies, RoomRulesAndBounds) {
  struct Row { char op; std::string_view src; std::size_t dstSize; unsigned char result;
               std::string_view after; char allOnes = ' '; };
  const std::string_view abcNul("abc\0", 4), abNul("ab\0\0", 4), nuls("\0\0\0\0", 4);
  const Row rows[] = {
      {'C', abcNul, 4, 1, "abc0"}, {'C', abcNul, 3, 0, "abc"}, {'C', "abc", 5, 1, "abc0#"},
      {'C', "abc", 3, 0, "abc"},   {'C', "abc", 4, 1, "abc0"}, {'C', nuls, 1, 1, "0"},
      {'C', "a", 1, 0, "a"},       {'P', abNul, 4, 1, "2ab#"}, {'P', abcNul, 4, 0, "0abc"},
      {'P', "abc", 5, 1, "3abc#"}, {'P', "abc", 4, 0, "0abc"}, {'P', nuls, 1, 0, "0"},
      {'P', nuls, 2, 1, "0#"},     {'P', "a", 1, 0, "0"},      {'P', "a", 3, 1, "1a#"},
      {'C', abcNul, 4, 1, "abc0", 's'},  // an all-ones source bound is no bound
      {'P', abcNul, 3, 1, "0##", 's'},   // ... but srcHigh + 1 wraps to 0 in the counted copy
      {'C', abcNul, 5, 1, "abc0#", 'd'}, {'P', abcNul, 5, 1, "3abc#", 'd'},
  };
  for (const Row& r : rows) {
    const GuardedArray<TypeParam> src(r.src);
    GuardedArray<TypeParam> dst(r.dstSize);
    const unsigned sh = r.allOnes == 's' ? 0xFFFFFFFF : src.high();
    const unsigned dh = r.allOnes == 'd' ? 0xFFFFFFFF : dst.high();
    const auto op = r.op == 'C' ? Twin<TypeParam>::ToC : Twin<TypeParam>::ToPas;
    EXPECT_EQ(op(sh, src.data(), dh, dst.data()), r.result) << r.op << " " << r.src;
    EXPECT_EQ(Shown(dst, r.op == 'P'), r.after) << r.op << " " << r.src << " " << r.dstSize;
  }
}

// In place: each element is read and stored where it stands.
TYPED_TEST(Copies, TerminatedOntoItsOwnArray) {
  struct Row {
    std::string_view text;
    unsigned srcHigh;
    unsigned char result;
    std::string_view after;
  };
  const Row rows[] = {{"abc", 2, 0, "abc"}, {std::string_view("ab\0#", 4), 3, 1, "ab0#"},
                      {"abcd", 1, 1, "ab0d"}};
  for (const Row& r : rows) {
    GuardedArray<TypeParam> a(r.text);
    EXPECT_EQ(Twin<TypeParam>::ToC(r.srcHigh, a.data(), a.high(), a.data()), r.result);
    EXPECT_EQ(a.Raw(), r.after);
  }
}

// The 8-bit count is one byte, modulo 256; the 16-bit count holds 300.
TYPED_TEST(Copies, CountOfALongText) {
  const std::string text(300, 'x');
  const GuardedArray<TypeParam> src{std::string_view(text)};
  GuardedArray<TypeParam> dst(302);
  EXPECT_EQ(Twin<TypeParam>::ToPas(src.high(), src.data(), dst.high(), dst.data()), 1);
  EXPECT_EQ(static_cast<unsigned>(static_cast<std::make_unsigned_t<TypeParam>>(dst[0])),
            sizeof(TypeParam) == 1 ? 300u % 256 : 300u);
  EXPECT_EQ(dst[300], TypeParam('x'));
  EXPECT_EQ(dst[301], TypeParam('#'));
}

}  // namespace
