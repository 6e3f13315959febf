// Str editing in both twins. Rows spell arrays as stored, flush against a guard page: "\0" is
// a NUL and '#' an element the operation must not touch, such as bytes behind a terminator.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {
using namespace std::string_view_literals;
using SV = std::string_view;
using brelt::WChar, brelt::test::GuardedArray;
constexpr unsigned kAll = 0xFFFFFFFFu;

#define BRELT_EDIT_OPS(X) \
  X(Insert) X(Delete) X(Slice) X(Prepend) X(Subst) X(LTrim) X(RTrim) X(Trim) X(LPadCh) X(RPadCh) \
  X(Append)
#define BRELT_A_OP(name) static constexpr auto name = Str::name##A;
#define BRELT_W_OP(name) static constexpr auto name = Str::name##W;
template <class T> struct Twin;
template <> struct Twin<char> { BRELT_EDIT_OPS(BRELT_A_OP) };
template <> struct Twin<WChar> { BRELT_EDIT_OPS(BRELT_W_OP) };

template <class T>
class StrEdit : public testing::Test, public Twin<T> {
 protected:
  // `size` elements holding `text`, '#' behind it. Size 0 means exactly the text, "" one NUL.
  static GuardedArray<T> Array(SV text, std::size_t size = 0) {
    if (size == 0 && text.empty()) text = "\0"sv;
    GuardedArray<T> a(size == 0 ? text.size() : size);
    for (std::size_t i = 0; i < text.size(); ++i) a[i] = static_cast<unsigned char>(text[i]);
    return a;
  }
  static std::string Stored(const GuardedArray<T>& a) { return {a.data(), a.data() + a.size()}; }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(StrEdit, Twins);

// Insert at 0 and Prepend give the same array, so rows at 0 check both. Where `ones` is set,
// the bound is all ones, which these operations only compare with.
TYPED_TEST(StrEdit, InsertAndPrepend) {
  const struct { SV dst; unsigned size; SV src; unsigned pos; SV after; bool ones = 0; } rows[] = {
      {"abc\0"sv, 4, "XY", 1, "aXYb"},    {"abc\0"sv, 6, "XY", 9, "abcXY\0"sv},
      {"abcd\0"sv, 5, "XYZ", 2, "abXYZ"}, {"ab\0"sv, 3, "VWXYZ", 1, "aVW"},
      {"ab\0"sv, 4, "XY", 2, "abXY"},     {"abc", 3, "X", 1, "aXb"},
      {"abc\0"sv, 4, "XY", 0, "XYab"},    {"abc\0"sv, 6, "XY", 0, "XYabc\0"sv},
      {"abc", 3, "WXYZ", 0, "WXY"},       {"abc\0uvw"sv, 8, "XY", 0, "XYabc\0w#"sv},
      {"abc\0"sv, 5, "", 0, "abc\0#"sv},  {"abc\0"sv, 6, "X\0Y"sv, 0, "Xabc\0#"sv},
      {"abc\0##"sv, 6, "XY", 1, "aXYbc\0"sv, 1}, {"abc\0##"sv, 6, "XY", 0, "XYabc\0"sv, 1}};
  for (const auto& r : rows) {
    auto src = this->Array(r.src), dst = this->Array(r.dst, r.size);
    auto pre = this->Array(r.dst, r.size);
    const unsigned high = r.ones ? kAll : dst.high();
    this->Insert(high, dst.data(), src.high(), src.data(), r.pos);
    EXPECT_EQ(this->Stored(dst), r.after) << "Insert " << r.src << " at " << r.pos;
    if (r.pos != 0) continue;
    this->Prepend(high, pre.data(), src.high(), src.data());
    EXPECT_EQ(this->Stored(pre), r.after) << "Prepend " << r.src << " to " << r.dst;
  }
}

// A full array comes out terminated unless count is 0; pos + count may wrap.
TYPED_TEST(StrEdit, Delete) {
  const struct { SV s; unsigned pos, count; SV after; bool ones = 0; } rows[] = {
      {"abcdef\0"sv, 2, 2, "abef\0f\0"sv}, {"abcdef", 4, 99, "abcd\0f"sv},
      {"abcdef\0"sv, 6, 1, "abcdef\0"sv},  {"abcdef", 1, 0, "abcdef"},
      {"abcdef", 0, 6, "\0bcdef"sv},       {"abcdef", 1, kAll, "a\0cdef"sv},
      {"aXYbc\0"sv, 1, 2, "abc\0c\0"sv, 1}};
  for (const auto& r : rows) {
    auto s = this->Array(r.s);
    this->Delete(r.ones ? kAll : s.high(), s.data(), r.pos, r.count);
    EXPECT_EQ(this->Stored(s), r.after) << r.s << " at " << r.pos << " count " << r.count;
  }
}

// A destination bound of all ones wraps to capacity 0.
TYPED_TEST(StrEdit, Slice) {
  const struct { std::size_t dstSize; unsigned pos, count; SV after; bool ones = 0; } rows[] = {
      {5, 2, kAll, "cdef\0"sv}, {3, 1, 99, "bcd"}, {4, 6, 1, "\0###"sv},
      {7, 0, 6, "abcdef\0"sv},  {6, 3, 2, "de\0###"sv}, {3, 0, 2, "\0##"sv, 1}};
  auto src = this->Array("abcdef");
  for (const auto& r : rows) {
    auto dst = this->Array("", r.dstSize);
    this->Slice(r.ones ? kAll : dst.high(), dst.data(), src.high(), src.data(), r.pos, r.count);
    EXPECT_EQ(this->Stored(dst), r.after) << r.pos << " count " << r.count;
  }
  // The one overlap allowed: the same array from 0, which only cuts the text.
  this->Slice(src.high(), src.data(), src.high(), src.data(), 0, 3);
  EXPECT_EQ(this->Stored(src), "abc\0ef"sv);
}

// Only the first occurrence; an empty pattern is found at 0, but never in an empty string.
TYPED_TEST(StrEdit, Subst) {
  const struct { SV s; std::size_t size; SV pat, repl; SV after; bool ones = 0; } rows[] = {
      {"abcabc\0"sv, 8, "bc", "XYZ", "aXYZabc\0"sv}, {"abcdef\0"sv, 7, "c", "XYZ", "abXYZde"},
      {"abc\0"sv, 4, "", "XY", "XYab"},              {"\0"sv, 4, "", "XY", "\0###"sv},
      {"abcdef", 6, "cd", "", "abef\0f"sv},          {"abc\0"sv, 4, "zz", "XY", "abc\0"sv},
      {"abcabc\0"sv, 7, "abc", "abcabc", "abcabca"}, {"abcd\0"sv, 5, "cde", "X", "abcd\0"sv},
      {"abc\0##"sv, 6, "b", "XYZ", "aXYZc\0"sv, 1}};
  for (const auto& r : rows) {
    auto s = this->Array(r.s, r.size), pat = this->Array(r.pat), rep = this->Array(r.repl);
    this->Subst(r.ones ? kAll : s.high(), s.data(), pat.high(), pat.data(), rep.high(), rep.data());
    EXPECT_EQ(this->Stored(s), r.after) << r.pat << " by " << r.repl << " in " << r.s;
  }
}

// Old characters stay behind the new NUL; 11 is not blank; a full array stays full.
TYPED_TEST(StrEdit, Trims) {
  void (*const trims[])(unsigned, TypeParam*) = {this->LTrim, this->RTrim, this->Trim};
  const struct { SV s, after[3]; bool ones = 0; } rows[] = {  // after LTrim, RTrim, Trim
      {"  ab  ", {"ab  \0 "sv, "  ab\0 "sv, "ab\0 \0 "sv}},
      {"\t\n\r a\r\n\t", {"a\r\n\t\0\r\n\t"sv, "\t\n\r a\0\n\t"sv, "a\0\n\t\0\r\n\t"sv}},
      {"\x0b a\0"sv, {"\x0b a\0"sv, "\x0b a\0"sv, "\x0b a\0"sv}},
      {"   \0"sv, {"\0  \0"sv, "\0  \0"sv, "\0  \0"sv}},
      {"\0  "sv, {"\0  "sv, "\0  "sv, "\0  "sv}},          {"abcd", {"abcd", "abcd", "abcd"}},
      {" a \0"sv, {"a \0\0"sv, " a\0\0"sv, "a\0\0\0"sv}, 1}};
  for (const auto& r : rows) {
    for (int op = 0; op < 3; ++op) {
      auto s = this->Array(r.s);
      trims[op](r.ones ? kAll : s.high(), s.data());
      EXPECT_EQ(this->Stored(s), r.after[op]) << "trim " << op << " of '" << r.s << "'";
    }
  }
}

// The pads give what padding one character at a time with Prepend and Append gives, over
// every text length, width and array size up to 6, bytes behind the text included; a NUL pads
// as much as prepending an empty text. A bound of all ones wraps to capacity 0.
TYPED_TEST(StrEdit, PadsMatchOneCharacterAtATime) {
  for (char ch : {'*', '\0'}) {
    auto pad = this->Array(SV(&ch, 1));
    for (std::size_t size = 1; size <= 6; ++size) {
      for (std::size_t len = 0; len < size; ++len) {
        const std::string text = std::string(len, 'a') + '\0' + std::string(size - len - 1, 'z');
        for (unsigned width = 0; width <= size + 1; ++width) {
          auto l = this->Array(text), lWant = this->Array(text);
          auto r = this->Array(text), rWant = this->Array(text);
          this->LPadCh(l.high(), l.data(), width, TypeParam(ch));
          this->RPadCh(r.high(), r.data(), width, TypeParam(ch));
          for (std::size_t n = len; n < width && n < size; ++n) {
            this->Prepend(lWant.high(), lWant.data(), pad.high(), pad.data());
            this->Append(rWant.high(), rWant.data(), pad.high(), pad.data());
          }
          EXPECT_EQ(this->Stored(l), this->Stored(lWant)) << len << "/" << width << "/" << +ch;
          EXPECT_EQ(this->Stored(r), this->Stored(rWant)) << len << "/" << width << "/" << +ch;
        }
      }
    }
  }
  auto pad = this->Array("7\0#"sv);
  this->LPadCh(kAll, pad.data(), 3, TypeParam{'0'});
  this->RPadCh(kAll, pad.data(), 3, TypeParam{'0'});
  EXPECT_EQ(this->Stored(pad), "7\0#"sv);
}

// 16-bit characters are compared whole: a unit whose low byte is a blank or matches the
// pattern is still another character.
TEST(StrEditW, WholeUnitsNotLowBytes) {
  GuardedArray<WChar> s(u"\u0120\u0109b"sv), low(u"\u0162"sv), b(u"b"sv), x(u"X"sv), p(u"7\0"sv);
  Str::TrimW(s.high(), s.data());
  Str::SubstW(s.high(), s.data(), 0, low.data(), 0, x.data());
  EXPECT_EQ(std::u16string(s.data(), s.data() + 3), u"\u0120\u0109b");
  Str::SubstW(s.high(), s.data(), 0, b.data(), 0, x.data());
  EXPECT_EQ(s[2], u'X');
  Str::LPadChW(p.high(), p.data(), 2, 0x2007);
  EXPECT_EQ(std::u16string(p.data(), p.data() + 2), u"\u20077");
}
}  // namespace
