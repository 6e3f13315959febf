// Str copies into terminated and counted strings in both twins: the room rules at the edge of
// dst, all-ones bounds, and a copy onto its own array. Every dst sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;
using SV = std::string_view;

template <class T>
struct Twin {
  static constexpr auto ToC = Str::StrToCA, ToPas = Str::StrToPasA;
};
template <>
struct Twin<WChar> {
  static constexpr auto ToC = Str::StrToCW, ToPas = Str::StrToPasW;
};

template <class T>
class Copies : public testing::Test {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Copies, Twins);

// 'C' StrToC, 'P' StrToPas; the source fills its array ("\0" marks a NUL); 's' / 'd' pass that
// bound as all ones. dst afterwards: '0' for a NUL, '#' untouched, a count below 10 as a digit.
TYPED_TEST(Copies, RoomRulesAndBounds) {
  const SV abc0("abc\0", 4), ab("ab\0\0", 4), nuls("\0\0\0\0", 4);
  const struct { char op; SV src; std::size_t dstSize; unsigned char result; SV after; char ones; }
      rows[] = {
          {'C', abc0, 4, 1, "abc0", 0}, {'C', abc0, 3, 0, "abc", 0}, {'C', "abc", 5, 1, "abc0#", 0},
          {'C', "abc", 4, 1, "abc0", 0}, {'C', nuls, 1, 1, "0", 0}, {'C', "a", 1, 0, "a", 0},
          {'P', ab, 4, 1, "2ab#", 0}, {'P', abc0, 4, 0, "0abc", 0}, {'P', "abc", 5, 1, "3abc#", 0},
          {'P', nuls, 1, 0, "0", 0}, {'P', nuls, 2, 1, "0#", 0},
          {'C', abc0, 4, 1, "abc0", 's'},  // an all-ones source bound is no bound
          {'P', abc0, 3, 1, "0##", 's'},   // ... but srcHigh + 1 wraps to 0 in the counted copy
          {'C', abc0, 5, 1, "abc0#", 'd'}, {'P', abc0, 5, 1, "3abc#", 'd'}};
  for (const auto& r : rows) {
    const GuardedArray<TypeParam> src(r.src);
    GuardedArray<TypeParam> dst(r.dstSize);
    const auto op = r.op == 'C' ? Twin<TypeParam>::ToC : Twin<TypeParam>::ToPas;
    EXPECT_EQ(op(r.ones == 's' ? 0xFFFFFFFF : src.high(), src.data(),
                 r.ones == 'd' ? 0xFFFFFFFF : dst.high(), dst.data()),
              r.result) << r.op << " " << r.src;
    std::string shown = dst.Raw();
    if (r.op == 'P' && dst[0] < 10) shown[0] = static_cast<char>('0' + dst[0]);
    EXPECT_EQ(shown, r.after) << r.op << " " << r.src << " " << r.dstSize;
  }
}

// In place: each element is read and stored where it stands.
TYPED_TEST(Copies, TerminatedOntoItsOwnArray) {
  const struct { SV text; unsigned srcHigh; unsigned char result; SV after; } rows[] = {
      {"abc", 2, 0, "abc"}, {SV("ab\0#", 4), 3, 1, "ab0#"}, {"abcd", 1, 1, "ab0d"}};
  for (const auto& r : rows) {
    GuardedArray<TypeParam> a(r.text);
    EXPECT_EQ(Twin<TypeParam>::ToC(r.srcHigh, a.data(), a.high(), a.data()), r.result);
    EXPECT_EQ(a.Raw(), r.after);
  }
}

// The 8-bit count is one byte, modulo 256; the 16-bit count holds 300.
TYPED_TEST(Copies, CountOfALongText) {
  const GuardedArray<TypeParam> src{SV(std::string(300, 'x'))};
  GuardedArray<TypeParam> dst(302);
  EXPECT_EQ(Twin<TypeParam>::ToPas(src.high(), src.data(), dst.high(), dst.data()), 1);
  EXPECT_EQ(unsigned(std::make_unsigned_t<TypeParam>(dst[0])), sizeof(TypeParam) == 1 ? 44u : 300u);
  EXPECT_EQ(dst[300], TypeParam('x'));
  EXPECT_EQ(dst[301], TypeParam('#'));
}

}  // namespace
