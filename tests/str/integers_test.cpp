// Str whole numbers as text and back in both twins: the edge tables, room at every size of
// dst, the walk that goes on after a bad digit or an overflow, and round trips of a large
// sample against std::to_chars. Every dst and every src sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;

enum Op { kInt, kInt64, kIntPtr, kCard, kCard64, kCardPtr };
constexpr Op kOps[] = {kInt, kInt64, kIntPtr, kCard, kCard64, kCardPtr};
bool IsSigned(Op op) { return op <= kIntPtr; }
bool Is32(Op op) { return op == kInt || op == kCard; }

// The value travels as its 64-bit pattern and is cut to the operation's own type here.
#define BRELT_FORMAT(X)                                                                       \
  switch (op) {                                                                               \
    case kInt: return Str::IntToStr##X(static_cast<brelt::Long>(v), h, d, b, ok);             \
    case kInt64: return Str::Int64ToStr##X(static_cast<brelt::Int64>(v), h, d, b, ok);        \
    case kIntPtr: return Str::IntPtrToStr##X(static_cast<std::intptr_t>(v), h, d, b, ok);     \
    case kCard: return Str::CardToStr##X(static_cast<brelt::ULong>(v), h, d, b, ok);          \
    case kCard64: return Str::Card64ToStr##X(v, h, d, b, ok);                                 \
    case kCardPtr: return Str::CardPtrToStr##X(static_cast<std::uintptr_t>(v), h, d, b, ok);  \
  }
void Format(Op op, std::uint64_t v, unsigned h, char* d, unsigned b, unsigned char* ok) {
  BRELT_FORMAT(A)
}
void Format(Op op, std::uint64_t v, unsigned h, WChar* d, unsigned b, unsigned char* ok) {
  BRELT_FORMAT(W)
}
// The result as decimal text in its own type, so that tables read naturally.
#define BRELT_PARSE(X)                                                                   \
  switch (op) {                                                                          \
    case kInt: return std::to_string(Str::StrToInt##X(h, s, b, ok));                    \
    case kInt64: return std::to_string(Str::StrToInt64##X(h, s, b, ok));                 \
    case kIntPtr: return std::to_string(Str::StrToIntPtr##X(h, s, b, ok));               \
    case kCard: return std::to_string(Str::StrToCard##X(h, s, b, ok));                   \
    case kCard64: return std::to_string(Str::StrToCard64##X(h, s, b, ok));               \
    case kCardPtr: return std::to_string(Str::StrToCardPtr##X(h, s, b, ok));             \
  }                                                                                      \
  return {};
std::string Parse(Op op, unsigned h, const char* s, unsigned b, unsigned char* ok) {
  BRELT_PARSE(A)
}
std::string Parse(Op op, unsigned h, const WChar* s, unsigned b, unsigned char* ok) {
  BRELT_PARSE(W)
}

// The reference text: std::to_chars in capitals.
std::string Reference(Op op, std::uint64_t v, unsigned base) {
  char buf[80];
  std::to_chars_result r{};
  if (op == kInt) r = std::to_chars(buf, buf + 80, static_cast<brelt::Long>(v), int(base));
  else if (op == kCard) r = std::to_chars(buf, buf + 80, static_cast<brelt::ULong>(v), int(base));
  else if (IsSigned(op)) r = std::to_chars(buf, buf + 80, static_cast<brelt::Int64>(v), int(base));
  else r = std::to_chars(buf, buf + 80, v, int(base));
  std::string s(buf, r.ptr);
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

template <class T>
class Integers : public testing::Test {
 protected:
  // One guarded array per size, reused, refilled with the filler before each use.
  T* Dst(std::size_t size) {
    if (arrays_.size() <= size) arrays_.resize(size + 1);
    if (!arrays_[size]) arrays_[size] = std::make_unique<GuardedArray<T>>(size);
    std::fill_n(arrays_[size]->data(), size, static_cast<T>('#'));
    return arrays_[size]->data();
  }
  static std::string Shown(const T* d, std::size_t size) {
    std::string s;
    for (std::size_t i = 0; i < size; ++i) s += d[i] == T{0} ? '0' : static_cast<char>(d[i]);
    return s;
  }

 private:
  std::vector<std::unique_ptr<GuardedArray<T>>> arrays_;
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Integers, Twins);

// dst afterwards: '0' a NUL, '#' untouched.
TYPED_TEST(Integers, FormatEdges) {
  struct Row { Op op; std::uint64_t v; unsigned high, base; std::string_view after; int ok; };
  const Row rows[] = {
      {kInt, 0, 0, 10, "0", 1},                     {kInt, 12345, 4, 10, "12345", 1},
      {kInt, 12345, 2, 10, "345", 0},               {kInt, ~12344ull, 2, 10, "-45", 0},
      {kInt, ~4ull, 0, 10, "-", 0},                 {kInt, ~4ull, 1, 10, "-5", 1},
      {kInt, ~254ull, 9, 16, "-FF0######", 1},      {kInt, 255, 9, 1, "111111110#", 1},
      {kInt, 255, 9, 99, "FF0#######", 1},          {kInt, 0x80000000, 11, 10, "-21474836480", 1},
      {kInt64, 1ull << 63, 19, 10, "-9223372036854775808", 1},
      {kIntPtr, 1ull << 63, 17, 16, "-80000000000000000", 1},
      {kCard, 4294967295u, 8, 16, "FFFFFFFF0", 1},  {kCard, ~0ull, 3, 16, "FFFF", 0},
      {kCard64, ~0ull, 20, 10, "184467440737095516150", 1},
      {kCardPtr, ~0ull, 5, 10, "551615", 0},        {kInt64, ~99ull, 4, 7, "-2020", 1},
      {kCard, 3600, 5, 13, "183C0#", 1},
  };
  for (const Row& r : rows) {
    TypeParam* d = this->Dst(r.high + 1);
    unsigned char ok = 7;
    Format(r.op, r.v, r.high, d, r.base, &ok);
    EXPECT_EQ(this->Shown(d, r.high + 1), r.after) << r.op << " " << r.v << " base " << r.base;
    EXPECT_EQ(ok, r.ok) << r.op << " " << r.v;
  }
}

// The operations of a row by their Op numbers. High -1: the array's own (the text fills it).
TYPED_TEST(Integers, ParseEdges) {
  const char *a = "012345", *s = "012", *u = "345", *i = "0", *I = "12", *c = "3", *C = "45";
  struct Row { std::string_view ops; std::u16string_view src; unsigned base;
               std::string_view result; int ok; int high = -1; };
  const Row rows[] = {
      {a, u"", 10, "0", 0},           {a, u"+", 10, "0", 0},
      {a, u"-", 10, "0", 0},          {a, u"+5", 10, "0", 0, 0},
      {a, u"+123", 10, "123", 1},     {s, u"-123", 10, "-123", 1},
      {u, u"-123", 10, "123", 0},     {u, u"-0", 10, "0", 0},
      {s, u"-0", 10, "0", 1},         {a, u" 12", 10, "0", 0},
      {a, u"12 ", 10, "12", 0},       {s, u"-12x", 10, "-12", 0},
      {a, u"1-2", 10, "1", 0},        {a, u"1+2", 10, "1", 0},
      {a, u"12G", 10, "12", 0},       {a, u"12g", 16, "18", 0},
      {a, u"12:", 10, "375", 0},      {a, u"1@", 16, "271", 0},
      {a, u"1F", 10, "25", 0},        {a, u"19", 8, "17", 0},
      {a, u"121", 2, "9", 0},         {a, u"fF", 16, "255", 1},
      {a, u"101", 1, "5", 1},         {a, u"101", 0, "5", 1},
      {a, u"ff", 99, "255", 1},       {a, u"zz", 36, "0", 0},
      {a, u"123", 10, "12", 1, 1},    {a, std::u16string_view(u"12\0" "34", 5), 10, "12", 1},
      {a, u"1\u0131", 10, "1", 0},    {a, u"1\u0161", 16, "1", 0},
      {a, u"1\u00B1", 10, "1", 0},    {a, u"7\u0100", 10, "7", 0},
      {a, std::u16string_view(u"123\0" "99999", 9), 10, "123", 1},
      {a, std::u16string_view(u"7\0" "9", 3), 10, "7", 1},  {a, u":", 10, "255", 0},
      {a, u"1234567x9", 10, "1234567", 0},  {a, u"12:45678", 10, "37545678", 0},
      {a, u"1\u00B12345678", 10, "1", 0},   {a, u"/12345678", 10, "0", 0},
      {c, u"4294967295", 10, "4294967295", 1},  {c, u"4294967296", 10, "0", 0},
      {c, u"000000000004294967295", 10, "4294967295", 1},
      {c, u"42949672950", 10, "4294967286", 0},
      {c, u"1FFFFFFFF", 16, "4294967295", 0},
      {c, u"11111111111111111111111111111111", 2, "4294967295", 1},
      {c, u"100000000000000000000000000000000", 2, "0", 0},
      {c, u"-4294967295", 10, "4294967295", 0},
      {i, u"2147483647", 10, "2147483647", 1},
      {i, u"2147483648", 10, "-2147483648", 0},
      {i, u"-2147483648", 10, "-2147483648", 0},
      {i, u"-2147483647", 10, "-2147483647", 1},  {i, u"FFFFFFFF", 16, "-1", 0},
      {i, u"-7FFFFFFF", 16, "-2147483647", 1},
      {I, u"9223372036854775807", 10, "9223372036854775807", 1},
      {I, u"9223372036854775808", 10, "-9223372036854775808", 0},
      {I, u"-9223372036854775808", 10, "-9223372036854775808", 0},
      {I, u"-7fffffffffffffff", 16, "-9223372036854775807", 1},
      {C, u"18446744073709551615", 10, "18446744073709551615", 1},
      {C, u"18446744073709551616", 10, "0", 0},
      {C, u"184467440737095516150", 10, "18446744073709551606", 0},
      {C, u"FFFFFFFFFFFFFFFF", 16, "18446744073709551615", 1},
      {C, u"10000000000000000", 16, "0", 0},
      {C, u"4294967296", 10, "4294967296", 1},
  };
  for (const Row& r : rows) {
    for (Op op : kOps) {
      if (r.ops.find(char('0' + op)) == std::string_view::npos) continue;
      // A one-element array holding NUL stands for the empty text.
      const std::u16string_view text = r.src.empty() ? std::u16string_view(u"\0", 1) : r.src;
      if (std::is_same_v<TypeParam, char> && std::any_of(text.begin(), text.end(),
                                                         [](char16_t c) { return c > 0xFF; })) {
        continue;  // 16-bit characters only reach the W twin
      }
      const GuardedArray<TypeParam> src(text);
      const unsigned high = r.high < 0 ? src.high() : unsigned(r.high);
      unsigned char ok = 7;
      EXPECT_EQ(Parse(op, high, src.data(), r.base, &ok), r.result) << op << " " << src.Raw();
      EXPECT_EQ(ok, r.ok) << op << " " << src.Raw();
    }
  }
}

// Every value worth a look in base b for an operation: 0, +-1, the limits, and the powers of
// the base +-1 (negated too for the signed operations).
std::vector<std::uint64_t> Edges(Op op, unsigned base) {
  std::vector<std::uint64_t> out = {0, 1, ~0ull};
  const std::uint64_t top = Is32(op) ? 0xFFFFFFFFull : ~0ull;
  for (std::uint64_t p = 1;; p *= base) {
    for (std::uint64_t v : {p - 1, p, p + 1}) out.push_back(v);
    if (p > top / base) break;
  }
  if (IsSigned(op)) {
    const std::uint64_t max = top >> 1;
    const std::size_t n = out.size();
    for (std::size_t i = 0; i < n; ++i) out.push_back(0 - out[i]);
    out.push_back(max);
    out.push_back(0 - max - 1);
  } else {
    out.push_back(top);
  }
  return out;
}

// Every room from none to more than enough: the sign and the lowest digits that fit, a NUL
// only where room is left, ok only when all digits fit.
TYPED_TEST(Integers, FormatKeepsTheLowDigitsThatFit) {
  for (Op op : kOps) {
    for (unsigned base = 2; base <= 16; ++base) {
      for (std::uint64_t v : Edges(op, base)) {
        const std::string full = Reference(op, v, base);
        const std::string sign = full[0] == '-' ? "-" : "";
        for (std::size_t size = 1; size <= full.size() + 1; ++size) {
          TypeParam* d = this->Dst(size);
          unsigned char ok = 7;
          Format(op, v, unsigned(size - 1), d, base, &ok);
          const std::size_t cut = full.size() - size + sign.size();
          const std::string want = size > full.size() ? full + "0" : sign + full.substr(cut);
          ASSERT_EQ(this->Shown(d, size), want) << op << " " << full << " base " << base;
          ASSERT_EQ(ok, size >= full.size() ? 1 : 0) << op << " " << full << " base " << base;
        }
      }
    }
  }
}

// Formatted in bases 2, 10 and 16 into an array it fills exactly (so no NUL), every value
// matches std::to_chars and reads back to itself. The most negative value reads back right
// but with ok cleared, as the signed range is symmetric.
TYPED_TEST(Integers, RoundTrips) {
  std::mt19937_64 rng(20261123);
  std::vector<std::uint64_t> sample;
  for (int i = 0; i < 60000; ++i) {
    const std::uint64_t v = rng();
    sample.push_back(v >> (v & 63));  // every magnitude class, not only 19-digit values
  }
  for (Op op : kOps) {
    for (unsigned base : {2u, 10u, 16u}) {
      std::vector<std::uint64_t> values = Edges(op, base);
      values.insert(values.end(), sample.begin(), sample.end());
      for (std::uint64_t raw : values) {
        std::uint64_t v = raw;
        if (IsSigned(op) && (raw & 1)) v = 0 - raw;  // half of the sample negative
        const std::string want = Reference(op, v, base);
        TypeParam* d = this->Dst(want.size());
        unsigned char ok = 7;
        Format(op, v, unsigned(want.size() - 1), d, base, &ok);
        ASSERT_EQ(this->Shown(d, want.size()), want) << op << " base " << base;
        ASSERT_EQ(ok, 1);
        const std::string back = Parse(op, unsigned(want.size() - 1), d, base, &ok);
        ASSERT_EQ(back, Reference(op, v, 10)) << op << " " << want << " base " << base;
        const bool mostNegative = back == (op == kInt ? "-2147483648" : "-9223372036854775808");
        ASSERT_EQ(ok, mostNegative ? 0 : 1) << op << " " << want << " base " << base;
      }
    }
  }
}

}  // namespace
