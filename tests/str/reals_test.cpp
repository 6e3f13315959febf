// Str::StrToRealA and Str::StrToRealW: the grammar's edges, the exact bits that the library's
// own arithmetic gives where a correctly rounded conversion would differ, the ends of the
// range, and agreement with a correctly rounded conversion where the arithmetic is exact.
// Every text sits against a guard page, so a read past `high` faults.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;

constexpr std::uint64_t B(double d) { return std::bit_cast<std::uint64_t>(d); }
constexpr std::uint64_t kNaN = 0x7FF8000000000000;  // any NaN matches
constexpr std::uint64_t kInf = 0x7FF0000000000000, kNegInf = 0xFFF0000000000000;
constexpr std::uint64_t kNegZero = 0x8000000000000000;
constexpr unsigned kAuto = 0xFFFFFFFF;

template <class T>
double Read(unsigned high, const T* s, unsigned char* ok) {
  if constexpr (sizeof(T) == 1) return Str::StrToRealA(high, s, ok);
  else return Str::StrToRealW(high, s, ok);
}

template <class T>
class Reals : public testing::Test {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Reals, Twins);

// Each row with kAuto runs twice: with a NUL behind the text, and filling its array exactly.
TYPED_TEST(Reals, Table) {
  struct Row { std::string_view text; unsigned high; std::uint64_t bits; unsigned char ok; };
  const Row rows[] = {
      {"", kAuto, 0, 1},          {"+", kAuto, 0, 1},          {"-", kAuto, kNegZero, 1},
      {".", kAuto, 0, 1},         {"-.", kAuto, kNegZero, 1},  {".E5", kAuto, 0, 1},
      {"+E5", kAuto, 0, 1},       {"-E5", kAuto, kNegZero, 1}, {"E5", kAuto, 0, 0},
      {"e5", kAuto, 0, 0},        {".5", kAuto, B(0.5), 1},    {"5.", kAuto, B(5.0), 1},
      {"-.5", kAuto, B(-0.5), 1}, {"00012.500", kAuto, B(12.5), 1},
      {"1.5", kAuto, B(1.5), 1},  {"+1.5", kAuto, B(1.5), 1},  {"-1.5", kAuto, B(-1.5), 1},
      {"1e3", kAuto, B(1000.0), 1},  {"1E3", kAuto, B(1000.0), 1},
      {"1e+3", kAuto, B(1000.0), 1}, {"1E-3", kAuto, B(0.001), 1}, {"1E-0", kAuto, B(1.0), 1},
      {".5e1", kAuto, B(5.0), 1},    {"0.1", kAuto, B(0.1), 1},    {"-0", kAuto, kNegZero, 1},
      {"1x", kAuto, 0, 0},   {"1.5x", kAuto, 0, 0}, {"1,5", kAuto, 0, 0}, {" 1", kAuto, 0, 0},
      {"1 ", kAuto, 0, 0},   {"1.5.2", kAuto, 0, 0}, {"1E", kAuto, 0, 0}, {"1E+", kAuto, 0, 0},
      {"1E-", kAuto, 0, 0},  {"1Ex", kAuto, 0, 0},  {"1E5x", kAuto, 0, 0}, {"1E+-5", kAuto, 0, 0},
      {"INF", kAuto, 0, 0},  {"-1x", kAuto, 0, 0},  // a failure gives +0.0 whatever the sign
      {"-5", 1, B(-5.0), 1},  {"-12", 2, B(-12.0), 1}, {"-12.", 3, B(-12.0), 1},
      {"123", 2, B(123.0), 1}, {"12345", 1, B(12.0), 1}, {"1E5x", 2, B(1e5), 1},
      {std::string_view("1\0x", 3), 2, B(1.0), 1},  // the NUL ends the text before high
      {"1E25", kAuto, 0x45208B2A2C280290, 1}, {"1E308", kAuto, 0x7FE1CCF385EBC89F, 1},
      {"123456789012345678", kAuto, 0x437B69B4BA630F36, 1},
      {"3.14159265358979323846", kAuto, 0x400921FB54442D17, 1},
      {"1.7976931348623157E308", kAuto, kInf, 1},
      {"1E309", kAuto, kInf, 1},   {"1E400", kAuto, kInf, 1},  {"-1E400", kAuto, kNegInf, 1},
      {"1E-309", kAuto, 0, 1},     {"1E-320", kAuto, 0, 1},    {"5E-324", kAuto, 0, 1},
      {"-1E-400", kAuto, kNegZero, 1}, {"0E400", kAuto, kNaN, 1},
      {"1E4294967297", kAuto, B(10.0), 1},
      {"1E-4294967295", kAuto, B(10.0), 1},  // -(2^32 - 1) wraps to +1
      {"1E2147483648", kAuto, 0, 1},  // wraps to -2^31: the longest chain of multiplications
  };
  for (const Row& r : rows) {
    for (int nul = 1; nul >= 0; --nul) {
      if (r.high != kAuto && nul == 0) continue;
      if (r.text.empty() && nul == 0) continue;
      std::string full(r.text);
      if (r.high == kAuto && nul) full.push_back('\0');
      const GuardedArray<TypeParam> src{std::string_view(full)};
      const unsigned high = r.high == kAuto ? src.high() : r.high;
      unsigned char ok = 7;
      const double got = Read(high, src.data(), &ok);
      const std::string what = std::string(r.text) + (nul ? " with NUL" : " full");
      EXPECT_EQ(ok, r.ok) << what;
      if (r.bits == kNaN) EXPECT_TRUE(std::isnan(got)) << what;
      else EXPECT_EQ(B(got), r.bits) << what << " gave " << got;
    }
  }
}

// Where the digits and the power are exact doubles, one rounding makes the result the
// correctly rounded value.
TEST(StrToRealA, ExactOperandsGiveTheNearestDouble) {
  std::mt19937_64 rng(6);
  for (int n = 0; n < 200000; ++n) {
    const int digits = 1 + static_cast<int>(rng() % 15);
    const int point = static_cast<int>(rng() % (digits + 1));  // digits in front of '.'
    const int fraction = digits - point;
    const int exponent = fraction - 22 + static_cast<int>(rng() % 45);  // |e| <= 22
    std::string text = rng() % 2 ? "-" : "";
    for (int k = 0; k < digits; ++k) {
      if (k == point) text += '.';
      text += static_cast<char>('0' + rng() % 10);
    }
    if (rng() % 4 != 0 || exponent != 0) {
      text += rng() % 2 ? 'e' : 'E';
      text += std::to_string(exponent);
    }
    double want = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), want);
    ASSERT_TRUE(ec == std::errc() && end == text.data() + text.size()) << text;
    unsigned char ok = 0;
    const double got = Str::StrToRealA(static_cast<unsigned>(text.size() - 1), text.data(), &ok);
    ASSERT_EQ(ok, 1) << text;
    ASSERT_EQ(B(got), B(want)) << text;
  }
}

}  // namespace
