// Str editing in both twins: cuts at the array's edge, positions behind the end, and bytes
// behind a terminator that must stay. Rows spell arrays as stored, flush against a guard page:
// "\0" is a NUL and '#' an element the operation must not touch.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using namespace std::string_view_literals;
using SV = std::string_view;
using brelt::WChar;
using brelt::test::GuardedArray;

// The operations of one width under one name, so that each typed test serves both twins.
#define BRELT_EDIT_OPS(X) \
  X(Insert) X(Delete) X(Slice) X(Prepend) X(Subst) X(LTrim) X(RTrim) X(Trim) X(LPadCh) X(RPadCh) \
  X(Append)
#define BRELT_A_OP(name) static constexpr auto name = Str::name##A;
#define BRELT_W_OP(name) static constexpr auto name = Str::name##W;
template <class T> struct Twin;
template <> struct Twin<char> { BRELT_EDIT_OPS(BRELT_A_OP) };
template <> struct Twin<WChar> { BRELT_EDIT_OPS(BRELT_W_OP) };

template <class T>
class StrEdit : public testing::Test {
 protected:
  using Ops = Twin<T>;
  // `size` elements holding `text`, '#' behind it. A size of 0 means exactly the text.
  static GuardedArray<T> Array(SV text, std::size_t size = 0) {
    GuardedArray<T> a(size == 0 ? text.size() : size);
    for (std::size_t i = 0; i < text.size(); ++i) a[i] = static_cast<unsigned char>(text[i]);
    return a;
  }
  static GuardedArray<T> Source(SV text) { return Array(text.empty() ? "\0"sv : text); }
  static std::string Stored(const GuardedArray<T>& a) {
    std::string out;
    for (std::size_t i = 0; i < a.size(); ++i) out += unsigned(a[i]) < 0x80 ? char(a[i]) : '?';
    return out;
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(StrEdit, Twins);

// Insert at 0 and Prepend give the same array, so rows at 0 check both.
TYPED_TEST(StrEdit, InsertAndPrepend) {
  struct Row { SV dst; std::size_t size; SV src; unsigned pos; SV after; } rows[] = {
      {"abc\0"sv, 4, "XY", 1, "aXYb"},            // tail cut, no NUL left
      {"abc\0"sv, 6, "XY", 9, "abcXY\0"sv},       // behind the end means the end
      {"abcd\0"sv, 5, "XYZ", 2, "abXYZ"},         // the whole old tail is lost
      {"ab\0"sv, 3, "VWXYZ", 1, "aVW"},           // the new text itself is cut
      {"ab\0"sv, 4, "XY", 2, "abXY"},             // exact fit: the terminator is dropped
      {"abc", 3, "X", 1, "aXb"},                  // full array: the last character goes
      {"abc\0"sv, 4, "XY", 0, "XYab"},
      {"abc\0"sv, 6, "XY", 0, "XYabc\0"sv},
      {"abc", 3, "WXYZ", 0, "WXY"},               // the new text alone fills the array
      {"abc\0uvw"sv, 8, "XY", 0, "XYabc\0w#"sv},  // nothing behind the terminator moves
      {"abc\0"sv, 5, "", 0, "abc\0#"sv},          // empty text changes nothing
      {"abc\0"sv, 6, "X\0Y"sv, 0, "Xabc\0#"sv},   // src ends at its own NUL
  };
  for (const auto& r : rows) {
    auto src = TestFixture::Source(r.src);
    auto dst = TestFixture::Array(r.dst, r.size);
    TestFixture::Ops::Insert(dst.high(), dst.data(), src.high(), src.data(), r.pos);
    EXPECT_EQ(TestFixture::Stored(dst), r.after) << "Insert " << r.src << " at " << r.pos;
    if (r.pos != 0) continue;
    auto pre = TestFixture::Array(r.dst, r.size);
    TestFixture::Ops::Prepend(pre.high(), pre.data(), src.high(), src.data());
    EXPECT_EQ(TestFixture::Stored(pre), r.after) << "Prepend " << r.src << " to " << r.dst;
  }
}

TYPED_TEST(StrEdit, Delete) {
  struct Row { SV s; unsigned pos, count; SV after; } rows[] = {
      {"abcdef\0"sv, 2, 2, "abef\0f\0"sv},
      {"abcdef", 4, 99, "abcd\0f"sv},           // a full array comes out terminated
      {"abcdef\0"sv, 6, 1, "abcdef\0"sv},       // at the end: unchanged
      {"abcdef", 1, 0, "abcdef"},               // count 0: no NUL either
      {"abcdef", 0, 6, "\0bcdef"sv},            // exactly the rest
      {"abcdef", 1, 0xFFFFFFFFu, "a\0cdef"sv},  // pos + count wraps
  };
  for (const auto& r : rows) {
    auto s = TestFixture::Array(r.s);
    TestFixture::Ops::Delete(s.high(), s.data(), r.pos, r.count);
    EXPECT_EQ(TestFixture::Stored(s), r.after) << r.s << " at " << r.pos << " count " << r.count;
  }
}

TYPED_TEST(StrEdit, Slice) {
  struct Row { SV src; std::size_t dstSize; unsigned pos, count; SV after; } rows[] = {
      {"abcdef", 5, 2, 0xFFFFFFFFu, "cdef\0"sv},
      {"abcdef", 3, 1, 99, "bcd"},
      {"abcdef", 4, 6, 1, "\0###"sv},
      {"abcdef", 7, 0, 6, "abcdef\0"sv},
      {"abcdef", 6, 3, 2, "de\0###"sv},
  };
  for (const auto& r : rows) {
    auto src = TestFixture::Source(r.src);
    auto dst = TestFixture::Array("", r.dstSize);
    TestFixture::Ops::Slice(dst.high(), dst.data(), src.high(), src.data(), r.pos, r.count);
    EXPECT_EQ(TestFixture::Stored(dst), r.after) << r.src << " at " << r.pos;
  }
  // The one overlap allowed: the same array from 0, which only cuts the text.
  auto same = TestFixture::Array("abcdef");
  TestFixture::Ops::Slice(same.high(), same.data(), same.high(), same.data(), 0, 3);
  EXPECT_EQ(TestFixture::Stored(same), "abc\0ef"sv);
}

TYPED_TEST(StrEdit, Subst) {
  struct Row { SV s; std::size_t size; SV pat, repl; SV after; } rows[] = {
      {"abcabc\0"sv, 8, "bc", "XYZ", "aXYZabc\0"sv},  // only the first occurrence
      {"abcdef\0"sv, 7, "c", "XYZ", "abXYZde"},       // cut at the right end
      {"abc\0"sv, 4, "", "XY", "XYab"},               // empty pattern: found at 0
      {"\0"sv, 4, "", "XY", "\0###"sv},               // ... but never in an empty string
      {"abcdef", 6, "cd", "", "abef\0f"sv},           // a full array gets its NUL
      {"abc\0"sv, 4, "zz", "XY", "abc\0"sv},
      {"abcabc\0"sv, 7, "abc", "abcabc", "abcabca"},  // no second look at the result
      {"abcd\0"sv, 5, "cde", "X", "abcd\0"sv},        // pattern runs past the text
  };
  for (const auto& r : rows) {
    auto s = TestFixture::Array(r.s, r.size);
    auto pat = TestFixture::Source(r.pat);
    auto repl = TestFixture::Source(r.repl);
    TestFixture::Ops::Subst(s.high(), s.data(), pat.high(), pat.data(), repl.high(), repl.data());
    EXPECT_EQ(TestFixture::Stored(s), r.after) << r.pat << " by " << r.repl << " in " << r.s;
  }
}

TYPED_TEST(StrEdit, Trims) {
  using Ops = typename TestFixture::Ops;
  const char* const names[] = {"LTrim", "RTrim", "Trim"};
  void (*const trims[])(unsigned, TypeParam*) = {Ops::LTrim, Ops::RTrim, Ops::Trim};
  struct Row { SV s, after[3]; } rows[] = {  // after LTrim, RTrim, Trim
      {"  ab  ", {"ab  \0 "sv, "  ab\0 "sv, "ab\0 \0 "sv}},  // old characters stay behind
      {"\t\n\r a\r\n\t", {"a\r\n\t\0\r\n\t"sv, "\t\n\r a\0\n\t"sv, "a\0\n\t\0\r\n\t"sv}},
      {"\x0b a\0"sv, {"\x0b a\0"sv, "\x0b a\0"sv, "\x0b a\0"sv}},  // 11 is not blank
      {"   \0"sv, {"\0  \0"sv, "\0  \0"sv, "\0  \0"sv}},
      {"\0  "sv, {"\0  "sv, "\0  "sv, "\0  "sv}},
      {"abcd", {"abcd", "abcd", "abcd"}},  // full stays full
  };
  for (const auto& r : rows) {
    for (int op = 0; op < 3; ++op) {
      auto s = TestFixture::Array(r.s);
      trims[op](s.high(), s.data());
      EXPECT_EQ(TestFixture::Stored(s), r.after[op]) << names[op] << " of '" << r.s << "'";
    }
  }
}

TYPED_TEST(StrEdit, Pads) {
  struct Row { SV s; std::size_t size; unsigned width; char ch; SV lPad, rPad; } rows[] = {
      {"7\0"sv, 6, 4, '0', "0007\0#"sv, "7000\0#"sv},
      {"7\0"sv, 4, 9, '0', "0007", "7000"},         // the capacity caps the width
      {"7\0"sv, 4, 4, '\0', "7\0##"sv, "7\0##"sv},  // NUL pads nothing
  };
  for (const auto& r : rows) {
    const auto ch = static_cast<TypeParam>(r.ch);
    auto l = TestFixture::Array(r.s, r.size);
    TestFixture::Ops::LPadCh(l.high(), l.data(), r.width, ch);
    EXPECT_EQ(TestFixture::Stored(l), r.lPad) << "LPadCh of " << r.s << " to " << r.width;
    auto rp = TestFixture::Array(r.s, r.size);
    TestFixture::Ops::RPadCh(rp.high(), rp.data(), r.width, ch);
    EXPECT_EQ(TestFixture::Stored(rp), r.rPad) << "RPadCh of " << r.s << " to " << r.width;
  }
}

// The pads give what padding one character at a time with Prepend and Append gives, over
// every text length, width and array size up to 6, bytes behind the text included.
TYPED_TEST(StrEdit, PadsMatchOneCharacterAtATime) {
  auto pad = TestFixture::Source("*");
  for (std::size_t size = 1; size <= 6; ++size) {
    for (std::size_t len = 0; len < size; ++len) {
      for (unsigned width = 0; width <= size + 1; ++width) {
        const std::string text = std::string(len, 'a') + '\0' + std::string(size - len - 1, 'z');
        auto l = TestFixture::Array(text), lWant = TestFixture::Array(text);
        auto r = TestFixture::Array(text), rWant = TestFixture::Array(text);
        TestFixture::Ops::LPadCh(l.high(), l.data(), width, TypeParam{'*'});
        TestFixture::Ops::RPadCh(r.high(), r.data(), width, TypeParam{'*'});
        for (std::size_t n = len; n < width && n < size; ++n) {
          TestFixture::Ops::Prepend(lWant.high(), lWant.data(), pad.high(), pad.data());
          TestFixture::Ops::Append(rWant.high(), rWant.data(), pad.high(), pad.data());
        }
        EXPECT_EQ(TestFixture::Stored(l), TestFixture::Stored(lWant)) << len << "/" << width;
        EXPECT_EQ(TestFixture::Stored(r), TestFixture::Stored(rWant)) << len << "/" << width;
      }
    }
  }
}

// A high bound of 0xFFFFFFFF is no bound where an operation only compares with it, and a
// capacity of 0 (32-bit wrap) for Slice and the pads.
TYPED_TEST(StrEdit, HighBoundOfAllOnes) {
  using Ops = typename TestFixture::Ops;
  constexpr unsigned kAll = 0xFFFFFFFFu;
  auto xy = TestFixture::Source("XY");
  auto a = TestFixture::Array("abc\0##"sv);
  Ops::Insert(kAll, a.data(), xy.high(), xy.data(), 1);
  EXPECT_EQ(TestFixture::Stored(a), "aXYbc\0"sv);
  Ops::Delete(kAll, a.data(), 1, 2);
  EXPECT_EQ(TestFixture::Stored(a), "abc\0c\0"sv);
  Ops::Prepend(kAll, a.data(), xy.high(), xy.data());
  EXPECT_EQ(TestFixture::Stored(a), "XYabc\0"sv);
  auto b = TestFixture::Source("b"), xyz = TestFixture::Source("XYZ");
  auto sub = TestFixture::Array("abc\0##"sv);
  Ops::Subst(kAll, sub.data(), b.high(), b.data(), xyz.high(), xyz.data());
  EXPECT_EQ(TestFixture::Stored(sub), "aXYZc\0"sv);
  auto trim = TestFixture::Array(" a \0"sv);
  Ops::Trim(kAll, trim.data());
  EXPECT_EQ(TestFixture::Stored(trim), "a\0\0\0"sv);
  auto slice = TestFixture::Array("", 3);
  Ops::Slice(kAll, slice.data(), xy.high(), xy.data(), 0, 2);
  EXPECT_EQ(TestFixture::Stored(slice), "\0##"sv);
  auto pad = TestFixture::Array("7\0#"sv);
  Ops::LPadCh(kAll, pad.data(), 3, TypeParam{'0'});
  Ops::RPadCh(kAll, pad.data(), 3, TypeParam{'0'});
  EXPECT_EQ(TestFixture::Stored(pad), "7\0#"sv);
}

// 16-bit characters are compared whole: a unit whose low byte is a blank or matches the
// pattern is still another character.
TEST(StrEditW, WholeUnitsNotLowBytes) {
  GuardedArray<WChar> s(3), pat(1), repl(1);
  s[0] = 0x0120;  // low byte 32
  s[1] = 0x0109;  // low byte 9
  s[2] = u'b';
  Str::TrimW(s.high(), s.data());
  EXPECT_EQ(s[0], 0x0120);
  EXPECT_EQ(s[1], 0x0109);
  pat[0] = 0x0162;  // low byte 'b'
  repl[0] = u'X';
  Str::SubstW(s.high(), s.data(), 0, pat.data(), 0, repl.data());
  EXPECT_EQ(s[2], u'b');
  pat[0] = u'b';
  Str::SubstW(s.high(), s.data(), 0, pat.data(), 0, repl.data());
  EXPECT_EQ(s[2], u'X');
  GuardedArray<WChar> p(2);
  p[0] = u'7';
  p[1] = 0;
  Str::LPadChW(p.high(), p.data(), 2, 0x2007);
  EXPECT_EQ(p[0], 0x2007);
  EXPECT_EQ(p[1], u'7');
}

}  // namespace
