// Str editing in both twins: the cut rules at the array's edge, positions behind the end, and
// the bytes behind a terminator that must stay as they were. Every edited array sits flush
// against a guard page.
//
// Rows spell arrays as stored: "\0" is a NUL and '#' an element the operation must not touch.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using namespace std::string_view_literals;
using brelt::WChar;
using brelt::test::GuardedArray;

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr auto Insert = Str::InsertA;
  static constexpr auto Delete = Str::DeleteA;
  static constexpr auto Slice = Str::SliceA;
  static constexpr auto Prepend = Str::PrependA;
  static constexpr auto Subst = Str::SubstA;
  static constexpr auto LTrim = Str::LTrimA;
  static constexpr auto RTrim = Str::RTrimA;
  static constexpr auto Trim = Str::TrimA;
  static constexpr auto LPadCh = Str::LPadChA;
  static constexpr auto RPadCh = Str::RPadChA;
  static constexpr auto Append = Str::AppendA;
};
template <>
struct Twin<WChar> {
  static constexpr auto Insert = Str::InsertW;
  static constexpr auto Delete = Str::DeleteW;
  static constexpr auto Slice = Str::SliceW;
  static constexpr auto Prepend = Str::PrependW;
  static constexpr auto Subst = Str::SubstW;
  static constexpr auto LTrim = Str::LTrimW;
  static constexpr auto RTrim = Str::RTrimW;
  static constexpr auto Trim = Str::TrimW;
  static constexpr auto LPadCh = Str::LPadChW;
  static constexpr auto RPadCh = Str::RPadChW;
  static constexpr auto Append = Str::AppendW;
};

template <class T>
class StrEdit : public testing::Test {
 protected:
  using Ops = Twin<T>;
  // `size` elements holding `text`, '#' behind it. A size of 0 means exactly the text.
  static GuardedArray<T> Array(std::string_view text, std::size_t size = 0) {
    GuardedArray<T> a(size == 0 ? text.size() : size);
    for (std::size_t i = 0; i < text.size(); ++i) {
      a[i] = static_cast<T>(static_cast<unsigned char>(text[i]));
    }
    return a;
  }
  // A source array: exactly its text, a lone NUL for the empty text.
  static GuardedArray<T> Source(std::string_view text) {
    return Array(text.empty() ? "\0"sv : text);
  }
  // The whole array as stored, NULs included, for comparison with a row.
  static std::string Stored(const GuardedArray<T>& a) {
    std::string out;
    for (std::size_t i = 0; i < a.size(); ++i) {
      const auto u = static_cast<unsigned>(a[i]);
      out += u < 0x80 ? static_cast<char>(u) : '?';
    }
    return out;
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(StrEdit, Twins);

TYPED_TEST(StrEdit, Insert) {
  struct Row {
    std::string_view dst;
    std::size_t size;
    std::string_view src;
    unsigned pos;
    std::string_view after;
  } rows[] = {
      {"abc\0"sv, 4, "XY", 1, "aXYb"},               // tail cut, no NUL left
      {"abc\0"sv, 6, "XY", 9, "abcXY\0"sv},          // behind the end means the end
      {"abcd\0"sv, 5, "XYZ", 2, "abXYZ"},            // the whole old tail is lost
      {"ab\0"sv, 3, "VWXYZ", 1, "aVW"},              // the new text itself is cut
      {"abc\0uvw"sv, 7, "XY", 0, "XYabc\0w"sv},      // nothing behind the terminator moves
      {"ab\0"sv, 4, "XY", 2, "abXY"},                // the terminator is dropped, not written
      {"abc", 3, "X", 1, "aXb"},                     // full array: the last character goes
      {"abc", 3, "X", 3, "abc"},                     // full array, at the end: no room at all
      {"abc\0"sv, 5, "", 1, "abc\0#"sv},             // empty text changes nothing
      {"abc\0"sv, 6, "X\0Y"sv, 1, "aXbc\0#"sv},      // src ends at its own NUL
      {"\0"sv, 3, "XYZ", 0, "XYZ"},
  };
  for (const auto& r : rows) {
    auto dst = TestFixture::Array(r.dst, r.size);
    auto src = TestFixture::Source(r.src);
    TestFixture::Ops::Insert(dst.high(), dst.data(), src.high(), src.data(), r.pos);
    EXPECT_EQ(TestFixture::Stored(dst), r.after) << r.src << " at " << r.pos;
  }
}

TYPED_TEST(StrEdit, Delete) {
  struct Row {
    std::string_view s;
    unsigned pos, count;
    std::string_view after;
  } rows[] = {
      {"abcdef\0"sv, 2, 2, "abef\0f\0"sv},
      {"abcdef", 4, 99, "abcd\0f"sv},                // a full array comes out terminated
      {"abcdef\0"sv, 6, 1, "abcdef\0"sv},            // at the end: unchanged
      {"abcdef\0"sv, 9, 1, "abcdef\0"sv},
      {"abcdef", 1, 0, "abcdef"},                    // count 0: no NUL either
      {"abcdef", 0, 6, "\0bcdef"sv},                 // exactly the rest
      {"abcdef", 5, 1, "abcde\0"sv},
      {"abcdef", 1, 0xFFFFFFFFu, "a\0cdef"sv},
      {"ab\0def"sv, 2, 1, "ab\0def"sv},              // the NUL ends the text
  };
  for (const auto& r : rows) {
    auto s = TestFixture::Array(r.s);
    TestFixture::Ops::Delete(s.high(), s.data(), r.pos, r.count);
    EXPECT_EQ(TestFixture::Stored(s), r.after) << r.s << " at " << r.pos << " count " << r.count;
  }
}

TYPED_TEST(StrEdit, Slice) {
  struct Row {
    std::string_view src;
    std::size_t dstSize;
    unsigned pos, count;
    std::string_view after;
  } rows[] = {
      {"abcdef", 5, 2, 0xFFFFFFFFu, "cdef\0"sv},
      {"abcdef", 3, 1, 99, "bcd"},
      {"abcdef", 4, 6, 1, "\0###"sv},
      {"abcdef", 4, 2, 0, "\0###"sv},
      {"ab\0def"sv, 4, 2, 5, "\0###"sv},             // pos on the terminator
      {"abcdef", 7, 0, 6, "abcdef\0"sv},
      {"abcdef", 6, 0, 6, "abcdef"},
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

TYPED_TEST(StrEdit, Prepend) {
  struct Row {
    std::string_view dst;
    std::size_t size;
    std::string_view src;
    std::string_view after;
  } rows[] = {
      {"abc\0"sv, 4, "XY", "XYab"},
      {"abc\0"sv, 6, "XY", "XYabc\0"sv},
      {"abc", 3, "WXYZ", "WXY"},                     // the new text alone fills the array
      {"ab\0"sv, 3, "XYZ", "XYZ"},
      {"ab\0"sv, 4, "XYZ", "XYZa"},
      {"abc\0uvw"sv, 8, "XY", "XYabc\0w#"sv},       // what lies behind the NUL stays
      {"\0"sv, 2, "XY", "XY"},
      {"\0"sv, 3, "XY", "XY\0"sv},
      {"abc\0"sv, 5, "", "abc\0#"sv},
      {"abc\0"sv, 6, "X\0Y"sv, "Xabc\0#"sv},
  };
  for (const auto& r : rows) {
    auto dst = TestFixture::Array(r.dst, r.size);
    auto src = TestFixture::Source(r.src);
    TestFixture::Ops::Prepend(dst.high(), dst.data(), src.high(), src.data());
    EXPECT_EQ(TestFixture::Stored(dst), r.after) << r.src << " before " << r.dst;
  }
}

TYPED_TEST(StrEdit, Subst) {
  struct Row {
    std::string_view s;
    std::size_t size;
    std::string_view pat, repl;
    std::string_view after;
  } rows[] = {
      {"abcabc\0"sv, 8, "bc", "XYZ", "aXYZabc\0"sv},  // only the first occurrence
      {"abcdef\0"sv, 7, "c", "XYZ", "abXYZde"},       // cut at the right end
      {"abc\0"sv, 4, "", "XY", "XYab"},               // empty pattern: found at 0
      {"\0"sv, 4, "", "XY", "\0###"sv},               // ... but never in an empty string
      {"abcdef", 6, "cd", "", "abef\0f"sv},           // a full array gets its NUL
      {"abcdef", 6, "cd", "X", "abXef\0"sv},
      {"abc\0"sv, 4, "zz", "XY", "abc\0"sv},
      {"abcabc\0"sv, 7, "abc", "abcabc", "abcabca"},  // no second look at the result
      {"abcd\0"sv, 5, "cd", "X", "abX\0\0"sv},
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
  struct Row {
    std::string_view s;
    std::string_view lTrim, rTrim, trim;
  } rows[] = {
      {"  ab\0"sv, "ab\0b\0"sv, "  ab\0"sv, "ab\0b\0"sv},  // old characters stay behind
      {"ab  \0"sv, "ab  \0"sv, "ab\0 \0"sv, "ab\0 \0"sv},
      {" ab \0"sv, "ab \0\0"sv, " ab\0\0"sv, "ab\0\0\0"sv},
      {"  ab  ", "ab  \0 "sv, "  ab\0 "sv, "ab\0 \0 "sv},
      {"\t\n\r a", "a\0\r a"sv, "\t\n\r a", "a\0\r a"sv},
      {"a \t\r\n", "a \t\r\n", "a\0\t\r\n"sv, "a\0\t\r\n"sv},
      {"\x0b a\0"sv, "\x0b a\0"sv, "\x0b a\0"sv, "\x0b a\0"sv},  // 11 is not blank
      {"\x0c", "\x0c", "\x0c", "\x0c"},                          // nor is 12
      {"   \0"sv, "\0  \0"sv, "\0  \0"sv, "\0  \0"sv},
      {"   ", "\0  "sv, "\0  "sv, "\0  "sv},
      {"\0  "sv, "\0  "sv, "\0  "sv, "\0  "sv},
      {"abcd", "abcd", "abcd", "abcd"},                          // full stays full
  };
  for (const auto& r : rows) {
    auto l = TestFixture::Array(r.s);
    TestFixture::Ops::LTrim(l.high(), l.data());
    EXPECT_EQ(TestFixture::Stored(l), r.lTrim) << "LTrim of '" << r.s << "'";
    auto rt = TestFixture::Array(r.s);
    TestFixture::Ops::RTrim(rt.high(), rt.data());
    EXPECT_EQ(TestFixture::Stored(rt), r.rTrim) << "RTrim of '" << r.s << "'";
    auto t = TestFixture::Array(r.s);
    TestFixture::Ops::Trim(t.high(), t.data());
    EXPECT_EQ(TestFixture::Stored(t), r.trim) << "Trim of '" << r.s << "'";
  }
}

TYPED_TEST(StrEdit, Pads) {
  struct Row {
    std::string_view s;
    std::size_t size;
    unsigned width;
    char ch;
    std::string_view lPad, rPad;
  } rows[] = {
      {"7\0"sv, 6, 4, '0', "0007\0#"sv, "7000\0#"sv},
      {"7\0"sv, 4, 9, '0', "0007", "7000"},               // the capacity caps the width
      {"7\0"sv, 4, 4, '.', "...7", "7..."},
      {"7\0"sv, 6, 3, '.', "..7\0##"sv, "7..\0##"sv},
      {"77\0"sv, 4, 1, '.', "77\0#"sv, "77\0#"sv},        // already wide enough
      {"7\0"sv, 4, 0, '.', "7\0##"sv, "7\0##"sv},
      {"7\0"sv, 4, 4, '\0', "7\0##"sv, "7\0##"sv},        // NUL pads nothing
      {"\0"sv, 3, 2, '*', "**\0"sv, "**\0"sv},
      {"\0"sv, 1, 5, 'x', "x", "x"},
      {"abc", 3, 5, '.', "abc", "abc"},                   // full array
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

// The pads give what padding one character at a time gives, with Prepend and the core's
// Append, over every text length, width and array size up to 6, bytes behind the text included.
TYPED_TEST(StrEdit, PadsMatchOneCharacterAtATime) {
  using T = TypeParam;
  auto pad = TestFixture::Source("*");
  for (std::size_t size = 1; size <= 6; ++size) {
    for (std::size_t len = 0; len < size; ++len) {
      for (unsigned width = 0; width <= size + 1; ++width) {
        std::string text(len, 'a');
        text += '\0';
        text += std::string(size - len - 1, 'z');
        auto l = TestFixture::Array(text), lWant = TestFixture::Array(text);
        auto r = TestFixture::Array(text), rWant = TestFixture::Array(text);
        TestFixture::Ops::LPadCh(l.high(), l.data(), width, T{'*'});
        TestFixture::Ops::RPadCh(r.high(), r.data(), width, T{'*'});
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

// A high bound of 0xFFFFFFFF is no bound for the operations that only compare with it, and a
// capacity of 0 (32-bit wrap) for Slice and the pads.
TYPED_TEST(StrEdit, HighBoundOfAllOnes) {
  using Ops = typename TestFixture::Ops;
  constexpr unsigned kAll = 0xFFFFFFFFu;
  auto xy = TestFixture::Source("XY");

  auto ins = TestFixture::Array("abc\0##"sv);
  Ops::Insert(kAll, ins.data(), xy.high(), xy.data(), 1);
  EXPECT_EQ(TestFixture::Stored(ins), "aXYbc\0"sv);

  auto del = TestFixture::Array("abcdef\0"sv);
  Ops::Delete(kAll, del.data(), 1, 2);
  EXPECT_EQ(TestFixture::Stored(del), "adef\0f\0"sv);

  auto pre = TestFixture::Array("abc\0##"sv);
  Ops::Prepend(kAll, pre.data(), xy.high(), xy.data());
  EXPECT_EQ(TestFixture::Stored(pre), "XYabc\0"sv);

  auto sub = TestFixture::Array("abc\0##"sv);
  auto b = TestFixture::Source("b");
  auto xyz = TestFixture::Source("XYZ");
  Ops::Subst(kAll, sub.data(), b.high(), b.data(), xyz.high(), xyz.data());
  EXPECT_EQ(TestFixture::Stored(sub), "aXYZc\0"sv);

  auto trim = TestFixture::Array(" a \0"sv);
  Ops::Trim(kAll, trim.data());
  EXPECT_EQ(TestFixture::Stored(trim), "a\0\0\0"sv);

  auto src = TestFixture::Source("abc");
  auto slice = TestFixture::Array("", 3);
  Ops::Slice(kAll, slice.data(), src.high(), src.data(), 0, 2);
  EXPECT_EQ(TestFixture::Stored(slice), "\0##"sv);

  auto pad = TestFixture::Array("7\0#"sv);
  Ops::LPadCh(kAll, pad.data(), 3, static_cast<TypeParam>('0'));
  Ops::RPadCh(kAll, pad.data(), 3, static_cast<TypeParam>('0'));
  EXPECT_EQ(TestFixture::Stored(pad), "7\0#"sv);
}

// 16-bit characters are compared whole: a unit whose low byte is a blank or matches the
// pattern is still another character.
TEST(StrEditW, WholeUnitsNotLowBytes) {
  auto l = GuardedArray<WChar>(3);
  l[0] = 0x0120;  // low byte 32
  l[1] = 0x0109;  // low byte 9
  l[2] = u'a';
  Str::TrimW(l.high(), l.data());
  EXPECT_EQ(l[0], 0x0120);
  EXPECT_EQ(l[1], 0x0109);
  EXPECT_EQ(l[2], u'a');

  auto s = GuardedArray<WChar>(3);
  s[0] = u'a';
  s[1] = u'b';
  s[2] = 0;
  auto pat = GuardedArray<WChar>(1);
  auto repl = GuardedArray<WChar>(1);
  pat[0] = 0x0162;  // low byte 'b'
  repl[0] = u'X';
  Str::SubstW(s.high(), s.data(), 0, pat.data(), 0, repl.data());
  EXPECT_EQ(s[1], u'b');
  pat[0] = u'b';
  Str::SubstW(s.high(), s.data(), 0, pat.data(), 0, repl.data());
  EXPECT_EQ(s[1], u'X');

  auto p = GuardedArray<WChar>(3);
  p[0] = u'7';
  p[1] = 0;
  Str::LPadChW(p.high(), p.data(), 3, 0x2007);
  EXPECT_EQ(p[0], 0x2007);
  EXPECT_EQ(p[1], 0x2007);
  EXPECT_EQ(p[2], u'7');
}

}  // namespace
