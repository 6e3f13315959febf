// Str whole numbers as text and back, both twins: edge tables, every dst size, round trips.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"

namespace {
using brelt::test::GuardedArray;
enum Op { kInt, kInt64, kIntPtr, kCard, kCard64, kCardPtr };
constexpr Op kOps[] = {kInt, kInt64, kIntPtr, kCard, kCard64, kCardPtr};
bool IsSigned(Op op) { return op <= kIntPtr; }
bool Is32(Op op) { return op == kInt || op == kCard; }

// Format takes the value as its 64-bit pattern, cut to the operation's own type; Parse gives
// the result as decimal text in its own type, so that tables read naturally.
#define BRELT_TWIN(X, T)                                                                      \
  void Format(Op op, std::uint64_t v, unsigned h, T* d, unsigned b, unsigned char* ok) {      \
  switch (op) {                                                                               \
    case kInt: return Str::IntToStr##X(static_cast<brelt::Long>(v), h, d, b, ok);             \
    case kInt64: return Str::Int64ToStr##X(static_cast<brelt::Int64>(v), h, d, b, ok);        \
    case kIntPtr: return Str::IntPtrToStr##X(static_cast<std::intptr_t>(v), h, d, b, ok);     \
    case kCard: return Str::CardToStr##X(static_cast<brelt::ULong>(v), h, d, b, ok);          \
    case kCard64: return Str::Card64ToStr##X(v, h, d, b, ok);                                 \
    case kCardPtr: return Str::CardPtrToStr##X(static_cast<std::uintptr_t>(v), h, d, b, ok);  \
  } }                                                                                         \
  std::string Parse(Op op, unsigned h, const T* s, unsigned b, unsigned char* ok) {           \
  switch (op) {                                                                               \
    case kInt: return std::to_string(Str::StrToInt##X(h, s, b, ok));                         \
    case kInt64: return std::to_string(Str::StrToInt64##X(h, s, b, ok));                     \
    case kIntPtr: return std::to_string(Str::StrToIntPtr##X(h, s, b, ok));                   \
    case kCard: return std::to_string(Str::StrToCard##X(h, s, b, ok));                       \
    case kCard64: return std::to_string(Str::StrToCard64##X(h, s, b, ok));                   \
    case kCardPtr: return std::to_string(Str::StrToCardPtr##X(h, s, b, ok));                 \
  }                                                                                           \
  return {}; }
BRELT_TWIN(A, char)
BRELT_TWIN(W, brelt::WChar)
std::string Reference(Op op, std::uint64_t v, unsigned base) {  // to_chars in capitals
  char buf[80];
  const std::int64_t sv = op == kInt ? brelt::Long(v) : brelt::Int64(v);
  const std::uint64_t uv = Is32(op) ? v & 0xFFFFFFFF : v;
  std::string s(buf, IsSigned(op) ? std::to_chars(buf, buf + 80, sv, int(base)).ptr
                                  : std::to_chars(buf, buf + 80, uv, int(base)).ptr);
  for (char& c : s) c = c >= 'a' ? char(c - 'a' + 'A') : c;
  return s;
}

// One guarded array per size, kept for the whole run and refilled with the filler on each use.
template <class T> GuardedArray<T>& Dst(std::size_t size) {
  static std::vector<std::unique_ptr<GuardedArray<T>>> arrays(80);
  std::unique_ptr<GuardedArray<T>>& a = arrays.at(size);
  if (!a) a = std::make_unique<GuardedArray<T>>(size);
  std::fill_n(a->data(), size, static_cast<T>('#'));
  return *a;
}
template <class T> class Integers : public testing::Test {};
using Twins = testing::Types<char, brelt::WChar>;
TYPED_TEST_SUITE(Integers, Twins);

// dst afterwards: '0' a NUL, '#' untouched. Base 1 counts as 2 and base 99 as 16.
TYPED_TEST(Integers, FormatEdges) {
  struct Row { Op op; std::uint64_t v; unsigned high, base; std::string_view after; int ok; };
  const Row rows[] = {
      {kInt, 12345, 2, 10, "345", 0},     {kInt, ~12344ull, 2, 10, "-45", 0},
      {kInt, ~4ull, 0, 10, "-", 0},       {kInt, ~4ull, 1, 10, "-5", 1},
      {kCard, ~0ull, 3, 16, "FFFF", 0},   {kCardPtr, ~0ull, 5, 10, "551615", 0},
      {kInt, 255, 9, 1, "111111110#", 1}, {kInt, 255, 9, 99, "FF0#######", 1},
      {kInt, ~254ull, 9, 16, "-FF0######", 1},  {kInt64, ~99ull, 4, 7, "-2020", 1},
      {kCard, 3600, 5, 13, "183C0#", 1},  {kInt, 0x80000000, 11, 10, "-21474836480", 1},
  };
  for (const Row& r : rows) {
    GuardedArray<TypeParam>& d = Dst<TypeParam>(r.high + 1);
    unsigned char ok = 7;
    Format(r.op, r.v, r.high, d.data(), r.base, &ok);
    EXPECT_EQ(d.Raw(), r.after) << r.op << " " << r.v << " base " << r.base;
    EXPECT_EQ(ok, r.ok) << r.op << " " << r.v;
  }
}

// The operations of a row by their Op numbers. High -1: the array's own (the text fills it).
TYPED_TEST(Integers, ParseEdges) {
  const char *a = "012345", *s = "012", *u = "345", *i = "0", *I = "12", *c = "3", *C = "45";
  struct Row { std::u16string_view src; unsigned base; std::string_view result; int ok;
               std::string_view ops = "012345"; int high = -1; };
  const Row rows[] = {
      {u"", 10, "0", 0},  {u"+", 10, "0", 0},  {u"-", 10, "0", 0},  {u"+5", 10, "0", 0, a, 0},
      {u"+123", 10, "123", 1},  {u"-123", 10, "-123", 1, s},  {u"-123", 10, "123", 0, u},
      {u"-0", 10, "0", 0, u},  {u"-0", 10, "0", 1, s},  {u" 12", 10, "0", 0},
      {u"-12x", 10, "-12", 0, s},  {u"1-2", 10, "1", 0},  {u"12G", 10, "12", 0},
      {u"12g", 16, "18", 0},  {u"12:", 10, "375", 0},  {u"1@", 16, "271", 0},
      {u"1F", 10, "25", 0},  {u"19", 8, "17", 0},  {u"121", 2, "9", 0},  {u"fF", 16, "255", 1},
      {u"101", 1, "5", 1},  {u"101", 0, "5", 1},  {u"ff", 99, "255", 1},  {u"zz", 36, "0", 0},
      {u":", 10, "255", 0},  {u"123", 10, "12", 1, a, 1},  {u"1\u0131", 10, "1", 0},
      {u"1\u0161", 16, "1", 0},  {std::u16string_view(u"1F\0" "9", 4), 16, "31", 1},
      {std::u16string_view(u"123\0" "99999", 9), 10, "123", 1},  {u"1234567x9", 10, "1234567", 0},
      {u"12:45678", 10, "37545678", 0},  {u"1\u00B12345678", 10, "1", 0},
      {u"/12345678", 10, "0", 0},  {u"7\u0100", 10, "7", 0},  {u"4294967296", 10, "0", 0, c},
      {u"000000000004294967295", 10, "4294967295", 1, c},
      {u"42949672950", 10, "4294967286", 0, c},  {u"1FFFFFFFF", 16, "4294967295", 0, c},
      {u"-4294967295", 10, "4294967295", 0, c},  {u"2147483648", 10, "-2147483648", 0, i},
      {u"FFFFFFFF", 16, "-1", 0, i},  {u"9223372036854775808", 10, "-9223372036854775808", 0, I},
      {u"18446744073709551616", 10, "0", 0, C},  {u"10000000000000000", 16, "0", 0, C},
      {u"184467440737095516150", 10, "18446744073709551606", 0, C},
  };
  for (const Row& r : rows) {
    const auto text = r.src.empty() ? std::u16string_view(u"\0", 1) : r.src;  // "" as a NUL
    auto wide = [](char16_t ch) { return ch > 0xFF; };  // 16-bit characters reach only W
    if (sizeof(TypeParam) == 1 && std::any_of(text.begin(), text.end(), wide)) continue;
    const GuardedArray<TypeParam> src(text);
    const unsigned high = r.high < 0 ? src.high() : unsigned(r.high);
    for (Op op : kOps) {
      if (r.ops.find(char('0' + op)) == std::string_view::npos) continue;
      unsigned char ok = 7;
      EXPECT_EQ(Parse(op, high, src.data(), r.base, &ok), r.result) << op << " " << src.Raw();
      EXPECT_EQ(ok, r.ok) << op << " " << src.Raw();
    }
  }
}

// Base 10 text ended by a NUL with room behind it, as item buffers come: the short way through
// the digits, its limits, and each way out of it to the full walk.
TYPED_TEST(Integers, ParseWithRoomBehind) {
  const char *s = "012", *u = "345", *i = "0", *I = "12", *c = "3", *C = "45";
  struct Row { std::u16string_view src; std::string_view result; int ok;
               std::string_view ops = "012345"; };
  const Row rows[] = {
      {u"7", "7", 1},  {u"-7", "-7", 1, s},  {u"-7", "7", 0, u},  {u"+7", "7", 1},
      {u"-", "0", 0},  {u"12 ", "12", 0},  {u"-2147483648", "-2147483648", 0, i},
      {u"9999999999", "1410065407", 0, c},  {u"12345678901", "-539222987", 0, i},
      {u"12345678901", "12345678901", 1, "1245"},
      {u"9223372036854775808", "-9223372036854775808", 0, I},
      {u"9999999999999999999", "9999999999999999999", 1, C},
  };
  for (const Row& r : rows) {
    std::u16string text(r.src);
    text.push_back(0);
    text.resize(24, u'9');
    const GuardedArray<TypeParam> src{std::u16string_view(text)};
    for (Op op : kOps) {
      if (r.ops.find(char('0' + op)) == std::string_view::npos) continue;
      unsigned char ok = 7;
      EXPECT_EQ(Parse(op, src.high(), src.data(), 10, &ok), r.result) << op << " " << src.Raw();
      EXPECT_EQ(ok, r.ok) << op << " " << src.Raw();
    }
  }
}

// 0, +-1, the limits and the powers of the base +-1, negated too for the signed operations.
std::vector<std::uint64_t> Edges(Op op, unsigned base) {
  const std::uint64_t top = Is32(op) ? 0xFFFFFFFFull : ~0ull;
  std::vector<std::uint64_t> out = {0, 1, ~0ull, top >> 1, 0 - (top >> 1) - 1, top};
  for (std::uint64_t p = 1, more = 1; more; more = p <= top / base, p *= base)
    out.insert(out.end(), {p - 1, p, p + 1});
  for (std::size_t k = 0, n = out.size(); IsSigned(op) && k < n; ++k) out.push_back(0 - out[k]);
  return out;
}

// Every room up to one more than needed: sign and lowest digits that fit, NUL if room, ok if all.
TYPED_TEST(Integers, FormatKeepsTheLowDigitsThatFit) {
  for (Op op : kOps) for (unsigned base = 2; base <= 16; ++base) {
    for (std::uint64_t v : Edges(op, base)) {
      const std::string full = Reference(op, v, base);
      const std::size_t sign = full[0] == '-' ? 1 : 0;
      for (std::size_t size = 1; size <= full.size() + 1; ++size) {
        GuardedArray<TypeParam>& d = Dst<TypeParam>(size);
        unsigned char ok = 7;
        Format(op, v, unsigned(size - 1), d.data(), base, &ok);
        const std::string want = size > full.size()
            ? full + "0" : full.substr(0, sign) + full.substr(full.size() - size + sign);
        ASSERT_EQ(d.Raw(), want) << op << " " << full << " base " << base;
        ASSERT_EQ(ok, size >= full.size() ? 1 : 0) << op << " " << full << " base " << base;
      }
    }
  }
}

// Formatted into an array it fills exactly (no NUL), matching std::to_chars, and read back, also
// from a roomy array; the most negative value reads back right but with ok cleared, as the
// signed range is symmetric.
TYPED_TEST(Integers, RoundTrips) {
  std::mt19937_64 rng(20261123);
  for (Op op : kOps) for (unsigned base : {2u, 10u, 16u}) {
    std::vector<std::uint64_t> values = Edges(op, base);
    for (int k = 0; k < 20000; ++k) values.push_back(rng() >> (rng() & 63));  // all magnitudes
    for (std::uint64_t raw : values) {
      const std::uint64_t v = IsSigned(op) && (raw & 1) ? 0 - raw : raw;  // half negative
      const std::string want = Reference(op, v, base);
      GuardedArray<TypeParam>& d = Dst<TypeParam>(want.size());
      unsigned char ok = 7;
      Format(op, v, unsigned(want.size() - 1), d.data(), base, &ok);
      ASSERT_EQ(d.Raw(), want) << op << " base " << base;
      ASSERT_EQ(ok, 1);
      const std::string back = Parse(op, unsigned(want.size() - 1), d.data(), base, &ok);
      ASSERT_EQ(back, Reference(op, v, 10)) << op << " " << want << " base " << base;
      const bool mostNegative = back == (op == kInt ? "-2147483648" : "-9223372036854775808");
      ASSERT_EQ(ok, mostNegative ? 0 : 1) << op << " " << want << " base " << base;
      // Again with a NUL and room behind it.
      GuardedArray<TypeParam>& roomy = Dst<TypeParam>(79);
      Format(op, v, 78, roomy.data(), base, &ok);
      ASSERT_EQ(Parse(op, 78, roomy.data(), base, &ok), back) << op << " " << want;
      ASSERT_EQ(ok, mostNegative ? 0 : 1) << op << " " << want << " base " << base;
    }
  }
}
}  // namespace
