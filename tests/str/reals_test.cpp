// Str::StrToRealA/W: the grammar's edges, the exact bits of the library's own arithmetic, the
// ends of the range, and agreement with a correctly rounded conversion where it is exact.
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

using brelt::test::GuardedArray;

constexpr std::uint64_t B(double d) { return std::bit_cast<std::uint64_t>(d); }
constexpr std::uint64_t kNaN = 0x7FF8000000000000;  // any NaN matches
constexpr std::uint64_t kInf = 0x7FF0000000000000, kNegInf = 0xFFF0000000000000;
constexpr std::uint64_t kNegZero = 0x8000000000000000;
constexpr unsigned kAuto = 0xFFFFFFFF;

template <class T> class Reals : public testing::Test {};
using Twins = testing::Types<char, brelt::WChar>;
TYPED_TEST_SUITE(Reals, Twins);

// Each row with kAuto runs twice: with a NUL behind the text, and filling its array exactly.
TYPED_TEST(Reals, Table) {
  struct Row { std::string_view text; std::uint64_t bits; unsigned char ok;
               unsigned high = kAuto; };
  const Row rows[] = {
      {"", 0, 1},           {"+", 0, 1},          {"-", kNegZero, 1},   {".", 0, 1},
      {"-.", kNegZero, 1},  {".E5", 0, 1},        {"+E5", 0, 1},        {"-E5", kNegZero, 1},
      {"E5", 0, 0},         {".5", B(0.5), 1},    {"5.", B(5.0), 1},    {"-.5", B(-0.5), 1},
      {"00012.500", B(12.5), 1},  {"+1.5", B(1.5), 1},  {"-1.5", B(-1.5), 1},  {"-0", kNegZero, 1},
      {"1e3", B(1000.0), 1},  {"1E+3", B(1000.0), 1},  {"1E-3", B(0.001), 1},  {"0.1", B(0.1), 1},
      {".5e1", B(5.0), 1},  {" 1", 0, 0},         {"1 ", 0, 0},         {"1.5.2", 0, 0},
      {"1E", 0, 0},         {"1E-", 0, 0},        {"1Ex", 0, 0},        {"1E5x", 0, 0},
      {"1E+-5", 0, 0},      {"INF", 0, 0},        {"-1x", 0, 0},  // a failure gives +0.0
      {"-5", B(-5.0), 1, 1},  {"-12.", B(-12.0), 1, 3},  {"12345", B(12.0), 1, 1},
      {"1E5x", B(1e5), 1, 2}, {std::string_view("1\0x", 3), B(1.0), 1, 2},  // NUL before high
      {"1E25", 0x45208B2A2C280290, 1},  {"123456789012345678", 0x437B69B4BA630F36, 1},
      {"3.14159265358979323846", 0x400921FB54442D17, 1},  {"1E308", 0x7FE1CCF385EBC89F, 1},
      {"1.7976931348623157E308", kInf, 1},  {"1E309", kInf, 1},  {"-1E400", kNegInf, 1},
      {"5E-324", 0, 1},     {"-1E-400", kNegZero, 1},  {"0E400", kNaN, 1},
      {"1E4294967297", B(10.0), 1},  {"1E-4294967295", B(10.0), 1},  // exponent wraps to +1
      {"1E2147483648", 0, 1},  // wraps to -2^31: the longest chain of multiplications
  };
  for (const Row& r : rows) {
    for (int nul = 1; nul >= 0; --nul) {
      if (nul == 0 && (r.high != kAuto || r.text.empty())) continue;
      const std::string full = std::string(r.text) + std::string(r.high == kAuto && nul, '\0');
      const GuardedArray<TypeParam> src{std::string_view(full)};
      const unsigned high = r.high == kAuto ? src.high() : r.high;
      unsigned char ok = 7;
      double got;
      if constexpr (sizeof(TypeParam) == 1) got = Str::StrToRealA(high, src.data(), &ok);
      else got = Str::StrToRealW(high, src.data(), &ok);
      const std::string what = std::string(r.text) + (nul ? " with NUL" : " full");
      EXPECT_EQ(ok, r.ok) << what;
      if (r.bits == kNaN) EXPECT_TRUE(std::isnan(got)) << what;
      else EXPECT_EQ(B(got), r.bits) << what << " gave " << got;
    }
  }
}

// Where the digits and the power are exact doubles, one rounding gives the nearest double.
TEST(StrToRealA, ExactOperandsGiveTheNearestDouble) {
  std::mt19937_64 rng(6);
  for (int n = 0; n < 200000; ++n) {
    const int digits = 1 + static_cast<int>(rng() % 15);
    const int point = static_cast<int>(rng() % (digits + 1));  // digits in front of '.'
    const int exponent = digits - point - 22 + static_cast<int>(rng() % 45);  // |e| <= 22
    std::string text = rng() % 2 ? "-" : "";
    for (int k = 0; k < digits; ++k) text += std::string(k == point, '.') + char('0' + rng() % 10);
    if (rng() % 4 != 0 || exponent != 0) text += (rng() % 2 ? "e" : "E") + std::to_string(exponent);
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
