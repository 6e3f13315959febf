// Str core in both twins at the array's edge. Destinations sit against a guard page; in the
// rows a destination afterwards reads '0' for a NUL and '#' for an untouched element.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string_view>

#include "guarded_array.h"

namespace {

using brelt::kNotFound;
using brelt::WChar;
using brelt::test::GuardedArray;
using SV = std::string_view;
constexpr unsigned kOnes = 0xFFFFFFFFu, kNo = kNotFound;

#define BRELT_CORE_OPS(X)                                                                \
  X(Length) X(Pos) X(Copy) X(Append) X(CharPos) X(RCharPos) X(Count) X(Concat) X(NextPos) \
  X(NextCharPos)
#define BRELT_A_OP(name) static constexpr auto name = Str::name##A;
#define BRELT_W_OP(name) static constexpr auto name = Str::name##W;
template <class T> struct Twin;
template <> struct Twin<char> { BRELT_CORE_OPS(BRELT_A_OP) };
template <> struct Twin<WChar> { BRELT_CORE_OPS(BRELT_W_OP) };

// `text` ("\0" spells a NUL) at the front of an array of `size` ('#' behind it); size 0 means
// exactly the text, and an empty text then is one NUL.
template <class T> GuardedArray<T> Arr(SV text, std::size_t size = 0) {
  if (size == 0 && text.empty()) text = SV("\0", 1);
  GuardedArray<T> a(size != 0 ? size : text.size());
  for (std::size_t i = 0; i < text.size(); ++i) a[i] = static_cast<T>(text[i]);  // ASCII only
  return a;
}

template <class T> class StrCore : public testing::Test, public Twin<T> {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(StrCore, Twins);

// Source (exactly its array), dst size, dst afterwards; 's'/'d' give that bound as all ones.
TYPED_TEST(StrCore, Copy) {
  const struct { SV src; std::size_t dstSize; SV after; char ones; } rows[] = {
      {"abcd", 4, "abcd", 0}, {"abc", 4, "abc0", 0}, {"abcde", 4, "abcd", 0}, {"", 3, "0##", 0},
      {SV("abc\0zz", 6), 6, "abc0##", 0}, {SV("xy\0", 3), 4, "xy0#", 's'},
      {"abc", 4, "####", 'd'}};  // all ones wraps to capacity 0: nothing is written
  for (const auto& r : rows) {
    auto src = Arr<TypeParam>(r.src), dst = Arr<TypeParam>("", r.dstSize);
    this->Copy(r.ones == 'd' ? kOnes : dst.high(), dst.data(),
               r.ones == 's' ? kOnes : src.high(), src.data());
    EXPECT_EQ(dst.Raw(), r.after) << r.src;
  }
  auto a = Arr<TypeParam>(SV("abcdef\0", 7), 8), b = Arr<TypeParam>(SV("abcdef\0", 7), 8);
  this->Copy(5, a.data() + 2, 6, a.data());  // overlap upwards and downwards in one array
  this->Copy(5, b.data(), 5, b.data() + 2);
  EXPECT_EQ(a.Raw() + " " + b.Raw(), "ababcdef cdef0f0#");
}

// Already full, exact fit (no NUL), room for the NUL, cut, empty onto empty, source NULs, and
// a source bound of all ones, which is compared, not wrapped.
TYPED_TEST(StrCore, Append) {
  const SV abc("abc\0", 4), a("a\0", 2);
  const struct { SV dst; std::size_t dstSize; SV src, after; bool onesSrc; } rows[] = {
      {"abc", 3, "de", "abc", 0},    {abc, 5, "de", "abcde", 0},  {abc, 6, "de", "abcde0", 0},
      {abc, 4, "de", "abcd", 0},     {SV("\0", 1), 3, "", "0##", 0},
      {a, 4, SV("b\0c", 3), "ab0#", 0}, {a, 5, SV("bc\0", 3), "abc0#", 1}};
  for (const auto& r : rows) {
    auto dst = Arr<TypeParam>(r.dst, r.dstSize), src = Arr<TypeParam>(r.src);
    this->Append(dst.high(), dst.data(), r.onesSrc ? kOnes : src.high(), src.data());
    EXPECT_EQ(dst.Raw(), r.after) << r.dst << " + " << r.src;
  }
}

// a and b fill their arrays without a NUL unless the row spells one; dst may be a itself.
TYPED_TEST(StrCore, Concat) {
  const struct { SV a, b; std::size_t dstSize; SV after; } rows[] = {
      {"ab", "cd", 3, "abc"}, {"ab", "cd", 4, "abcd"}, {"ab", "c", 4, "abc0"}, {"ab", "c", 1, "a"},
      {"ab", "cd", 2, "ab"}, {"", "", 2, "0#"}, {SV("ab\0x", 4), SV("c\0y", 3), 6, "abc0##"}};
  for (const auto& r : rows) {
    auto a = Arr<TypeParam>(r.a), b = Arr<TypeParam>(r.b), dst = Arr<TypeParam>("", r.dstSize);
    this->Concat(dst.high(), dst.data(), a.high(), a.data(), b.high(), b.data());
    EXPECT_EQ(dst.Raw(), r.after) << r.a << " + " << r.b;
  }
  auto same = Arr<TypeParam>(SV("ab\0", 3), 6), b = Arr<TypeParam>("cde");
  this->Concat(same.high(), same.data(), same.high(), same.data(), b.high(), b.data());
  EXPECT_EQ(same.Raw(), "abcde0");
}

TYPED_TEST(StrCore, PosAndNextPos) {
  const SV abNul("ab\0ab", 5), term("xxabxx\0", 7);
  const struct { SV s, pat; unsigned start, want; bool ones; } rows[] = {
      {"abc", "c", 0, 2, 0},        {"abc", "cd", 0, kNo, 0},  // would run past the full array
      {"abc", "", 0, 0, 0},         {SV("\0bc", 3), "", 0, kNo, 0},  {"abcabc", "bc", 2, 4, 0},
      {"abcabc", "", 3, 3, 0},      {"abcabc", "c", 6, kNo, 0},  // start = high + 1: no read
      {abNul, "ab", 1, kNo, 0},     // the NUL at a candidate start ends it ...
      {abNul, "ab", 3, 3, 0},       // ... but a start behind it is taken as given
      {abNul, "abc", 3, kNo, 0},    {"aaab", "aab", 0, 1, 0},  {"abc", SV("bc\0zz", 5), 0, 1, 0},
      {term, "ab", 0, 2, 1},        {term, "zz", 0, kNo, 1}};  // the NUL alone ends the text
  for (const auto& r : rows) {
    auto s = Arr<TypeParam>(r.s), pat = Arr<TypeParam>(r.pat);
    const unsigned high = r.ones ? kOnes : s.high();
    EXPECT_EQ(this->NextPos(high, s.data(), pat.high(), pat.data(), r.start), r.want)
        << r.s << " / " << r.pat << " from " << r.start;
    if (r.start == 0) {
      EXPECT_EQ(this->Pos(high, s.data(), pat.high(), pat.data()), r.want) << r.s;
    }
  }
}

// Length and the character searches: a full array without NUL, NULs inside and first, a
// high bit (a plain code, not a negative number), all ones as a bound, not an empty array, and
// texts longer than the first look at their start.
TYPED_TEST(StrCore, LengthCharSearchesAndCount) {
  using T = TypeParam;
  const struct { SV s; unsigned char ch; unsigned len, pos, rPos, count; bool ones; } rows[] = {
      {"abcabc", 'b', 6, 1, 4, 2, 0},          {"abcabc", 'z', 6, kNo, kNo, 0, 0},
      {"abc", 0, 3, kNo, kNo, 0, 0},           {SV("ab\0b#x", 6), 'b', 2, 1, 1, 1, 0},
      {SV("\0b", 2), 'b', 0, kNo, kNo, 0, 0}, {"a\xE9z", 0xE9, 3, 1, 1, 1, 0},
      {SV("abb\0", 4), 'b', 3, 1, 2, 2, 1},  {"cbc", 'c', 3, 0, 2, 2, 0},
      // Past the first 16 elements, and a b behind the NUL of a long text.
      {"abcdefghijklmnopqrstuvwxyzb", 'b', 27, 1, 26, 2, 0},
      {SV("abcdefghijklmnopqrb\0b", 21), 'b', 19, 1, 18, 2, 0}};
  for (const auto& r : rows) {
    GuardedArray<T> s(r.s);
    const unsigned high = r.ones ? kOnes : s.high();
    EXPECT_EQ(this->Length(high, s.data()), r.len) << r.s;
    EXPECT_EQ(this->CharPos(high, s.data(), T(r.ch)), r.pos) << r.s;
    EXPECT_EQ(this->RCharPos(high, s.data(), T(r.ch)), r.rPos) << r.s;
    EXPECT_EQ(this->Count(high, s.data(), T(r.ch)), r.count) << r.s;
  }
  GuardedArray<T> s(SV("abcab"));
  for (const auto& [start, want] : {std::pair{2u, 4u}, {1u, 1u}, {5u, kNo}})
    EXPECT_EQ(this->NextCharPos(s.high(), s.data(), T('b'), start), want) << start;
}

}  // namespace
