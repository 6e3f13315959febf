// Str copies into terminated and counted strings in both twins: the room rules at the edge of
// dst, sources that fill their arrays, the all-ones bounds, and a copy onto its own array.
// Every dst sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr auto ToC = Str::StrToCA;
  static constexpr auto ToPas = Str::StrToPasA;
};
template <>
struct Twin<WChar> {
  static constexpr auto ToC = Str::StrToCW;
  static constexpr auto ToPas = Str::StrToPasW;
};

template <class T>
class Copies : public testing::Test {
 protected:
  using Ops = Twin<T>;
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Copies, Twins);

// Source as stored ("\0" for a NUL; it fills its array), dst size, result, and dst afterwards
// ('0' for NUL, '#' untouched; for counted strings the count is shown as a digit).
struct Row {
  std::string_view src;
  std::size_t dstSize;
  unsigned char result;
  std::string_view after;
};

template <class T>
std::string Shown(const GuardedArray<T>& a, bool counted) {
  std::string raw = a.Raw();
  if (counted && a[0] < 10) raw[0] = static_cast<char>('0' + a[0]);
  return raw;
}

TYPED_TEST(Copies, TerminatedNeedsRoomForTheNul) {
  const Row rows[] = {
      {std::string_view("abc\0", 4), 4, 1, "abc0"},
      {std::string_view("abc\0", 4), 3, 0, "abc"},
      {"abc", 5, 1, "abc0#"},
      {"abc", 3, 0, "abc"},
      {"abc", 4, 1, "abc0"},
      {std::string_view("\0xyz", 4), 1, 1, "0"},
      {"a", 1, 0, "a"},
      {std::string_view("ab\0d", 4), 8, 1, "ab0#####"},
  };
  for (const Row& r : rows) {
    const GuardedArray<TypeParam> src(r.src);
    GuardedArray<TypeParam> dst(r.dstSize);
    EXPECT_EQ(TestFixture::Ops::ToC(src.high(), src.data(), dst.high(), dst.data()), r.result)
        << r.src << " into " << r.dstSize;
    EXPECT_EQ(dst.Raw(), r.after) << r.src << " into " << r.dstSize;
  }
}

TYPED_TEST(Copies, CountedNeverUsesTheLastElement) {
  const Row rows[] = {
      {std::string_view("ab\0\0", 4), 4, 1, "2ab#"},
      {std::string_view("abc\0", 4), 4, 0, "0abc"},
      {"abc", 5, 1, "3abc#"},
      {"abc", 4, 0, "0abc"},
      {std::string_view("\0\0\0\0", 4), 1, 0, "0"},
      {std::string_view("\0\0\0\0", 4), 2, 1, "0#"},
      {"a", 1, 0, "0"},
      {"a", 3, 1, "1a#"},
  };
  for (const Row& r : rows) {
    const GuardedArray<TypeParam> src(r.src);
    GuardedArray<TypeParam> dst(r.dstSize);
    EXPECT_EQ(TestFixture::Ops::ToPas(src.high(), src.data(), dst.high(), dst.data()), r.result)
        << r.src << " into " << r.dstSize;
    EXPECT_EQ(Shown(dst, true), r.after) << r.src << " into " << r.dstSize;
  }
}

// An all-ones source bound is no bound for the terminated copy; the counted copy forms
// srcHigh + 1 in 32 bits and stops at once. An all-ones dst bound is only compared.
TYPED_TEST(Copies, AllOnesBounds) {
  const GuardedArray<TypeParam> src(std::string_view("abc\0", 4));
  GuardedArray<TypeParam> c(4);
  EXPECT_EQ(TestFixture::Ops::ToC(0xFFFFFFFF, src.data(), c.high(), c.data()), 1);
  EXPECT_EQ(c.Raw(), "abc0");
  GuardedArray<TypeParam> p(3);
  EXPECT_EQ(TestFixture::Ops::ToPas(0xFFFFFFFF, src.data(), p.high(), p.data()), 1);
  EXPECT_EQ(Shown(p, true), "0##");
  GuardedArray<TypeParam> wide(5);
  EXPECT_EQ(TestFixture::Ops::ToC(src.high(), src.data(), 0xFFFFFFFF, wide.data()), 1);
  EXPECT_EQ(wide.Raw(), "abc0#");
  EXPECT_EQ(TestFixture::Ops::ToPas(src.high(), src.data(), 0xFFFFFFFF, wide.data()), 1);
  EXPECT_EQ(Shown(wide, true), "3abc#");
}

// In place: each element is read and stored where it stands.
TYPED_TEST(Copies, TerminatedOntoItsOwnArray) {
  const Row rows[] = {
      {"abc", 3, 0, "abc"},
      {std::string_view("ab\0#", 4), 4, 1, "ab0#"},
  };
  for (const Row& r : rows) {
    GuardedArray<TypeParam> a(r.src);
    EXPECT_EQ(TestFixture::Ops::ToC(a.high(), a.data(), a.high(), a.data()), r.result);
    EXPECT_EQ(a.Raw(), r.after);
  }
  // A source bound shorter than the array: the NUL lands just behind it.
  GuardedArray<TypeParam> a(std::string_view("abcd"));
  EXPECT_EQ(TestFixture::Ops::ToC(1, a.data(), a.high(), a.data()), 1);
  EXPECT_EQ(a.Raw(), "ab0d");
}

// The 8-bit count is one byte, modulo 256; the 16-bit count holds 300.
TYPED_TEST(Copies, CountOfALongText) {
  const std::string text(300, 'x');
  const GuardedArray<TypeParam> src{std::string_view(text)};
  GuardedArray<TypeParam> dst(302);
  EXPECT_EQ(TestFixture::Ops::ToPas(src.high(), src.data(), dst.high(), dst.data()), 1);
  const unsigned want = sizeof(TypeParam) == 1 ? 300 % 256 : 300;
  EXPECT_EQ(static_cast<unsigned>(static_cast<std::make_unsigned_t<TypeParam>>(dst[0])), want);
  EXPECT_EQ(dst[300], TypeParam('x'));
  EXPECT_EQ(dst[301], TypeParam('#'));
}

}  // namespace
