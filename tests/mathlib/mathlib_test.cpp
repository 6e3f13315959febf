// MATHLIB: every elementary function within one unit in the last place of the correctly
// rounded result over a grid of hard arguments (generated reference), the special values the C
// library fixes, IntPow's order and extremes, and the untouched error hook.
#include <brelt/mathlib.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

#include "math_reference_table.h"

namespace {

using brelt::test::kInf;
std::uint64_t B(double d) { return std::bit_cast<std::uint64_t>(d); }

// Doubles apart in units in the last place: the bit patterns ordered as integers, so that
// neighbours differ by 1 across the powers of two, the subnormals and zero. Two NaNs agree.
std::uint64_t UlpsApart(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b) ? 0 : UINT64_MAX;
  auto ordered = [](double d) {
    const std::uint64_t u = B(d);
    return (u >> 63) != 0 ? 0x8000000000000000u - (u & 0x7FFFFFFFFFFFFFFFu)
                          : 0x8000000000000000u + u;
  };
  const std::uint64_t x = ordered(a), y = ordered(b);
  return x > y ? x - y : y - x;
}

TEST(MathLib, WithinOneUnitOfTheCorrectlyRoundedResult) {
  struct Unary {
    const char* name;
    double (*f)(double);
    std::span<const brelt::test::UnaryRow> rows;
  } const unary[] = {
      {"Sin", MATHLIB::Sin, brelt::test::kSinRows},
      {"Cos", MATHLIB::Cos, brelt::test::kCosRows},
      {"Tan", MATHLIB::Tan, brelt::test::kTanRows},
      {"ASin", MATHLIB::ASin, brelt::test::kASinRows},
      {"ACos", MATHLIB::ACos, brelt::test::kACosRows},
      {"ATan", MATHLIB::ATan, brelt::test::kATanRows},
      {"SinH", MATHLIB::SinH, brelt::test::kSinHRows},
      {"CosH", MATHLIB::CosH, brelt::test::kCosHRows},
      {"TanH", MATHLIB::TanH, brelt::test::kTanHRows},
      {"Exp", MATHLIB::Exp, brelt::test::kExpRows},
      {"Log", MATHLIB::Log, brelt::test::kLogRows},
      {"Log10", MATHLIB::Log10, brelt::test::kLog10Rows},
      {"Sqrt", MATHLIB::Sqrt, brelt::test::kSqrtRows}};
  for (const Unary& u : unary) {
    for (const auto& r : u.rows) {
      EXPECT_LE(UlpsApart(u.f(r.x), r.want), 1u)
          << u.name << "(" << std::hexfloat << r.x << ") = " << u.f(r.x) << ", not " << r.want;
    }
  }
  // ATan2 takes the horizontal coordinate first; the table holds atan2(y, x) of (x, y).
  struct Binary {
    const char* name;
    double (*f)(double, double);
    std::span<const brelt::test::BinaryRow> rows;
  } const binary[] = {{"ATan2", MATHLIB::ATan2, brelt::test::kATan2Rows},
                      {"Pow", MATHLIB::Pow, brelt::test::kPowRows},
                      {"Mod", MATHLIB::Mod, brelt::test::kModRows}};
  for (const Binary& b : binary) {
    for (const auto& r : b.rows) {
      EXPECT_LE(UlpsApart(b.f(r.x, r.y), r.want), 1u)
          << b.name << "(" << std::hexfloat << r.x << ", " << r.y << ") = " << b.f(r.x, r.y)
          << ", not " << r.want;
    }
  }
}

// The results the C library fixes for zeros, infinities and NaNs, bit for bit (any NaN for a
// NaN), and the argument order of ATan2 and Mod.
TEST(MathLib, SpecialValues) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double halfPi = 1.5707963267948966, pi = 3.141592653589793;
  struct Row { const char* call; double got, want; } const rows[] = {
      {"Sin(-0)", MATHLIB::Sin(-0.0), -0.0},       {"Sin(inf)", MATHLIB::Sin(kInf), nan},
      {"Cos(-inf)", MATHLIB::Cos(-kInf), nan},     {"Tan(-0)", MATHLIB::Tan(-0.0), -0.0},
      {"Sin(nan)", MATHLIB::Sin(nan), nan},        {"ASin(-0)", MATHLIB::ASin(-0.0), -0.0},
      {"ASin(1.5)", MATHLIB::ASin(1.5), nan},      {"ACos(-1)", MATHLIB::ACos(-1.0), pi},
      {"ACos(1)", MATHLIB::ACos(1.0), 0.0},        {"ATan(-inf)", MATHLIB::ATan(-kInf), -halfPi},
      {"ATan2(1, 0)", MATHLIB::ATan2(1.0, 0.0), 0.0},
      {"ATan2(0, 1)", MATHLIB::ATan2(0.0, 1.0), halfPi},
      {"ATan2(-1, 2)", MATHLIB::ATan2(-1.0, 2.0), 2.0344439357957027},
      {"ATan2(-0, 0)", MATHLIB::ATan2(-0.0, 0.0), pi},
      {"ATan2(-0, -0)", MATHLIB::ATan2(-0.0, -0.0), -pi},
      {"ATan2(0, -0)", MATHLIB::ATan2(0.0, -0.0), -0.0},
      {"ATan2(-inf, inf)", MATHLIB::ATan2(-kInf, kInf), 2.356194490192345},
      {"ATan2(inf, -inf)", MATHLIB::ATan2(kInf, -kInf), -0.7853981633974483},
      {"ATan2(-inf, -1)", MATHLIB::ATan2(-kInf, -1.0), -pi},
      {"SinH(-inf)", MATHLIB::SinH(-kInf), -kInf}, {"CosH(-inf)", MATHLIB::CosH(-kInf), kInf},
      {"TanH(-inf)", MATHLIB::TanH(-kInf), -1.0},  {"TanH(-0)", MATHLIB::TanH(-0.0), -0.0},
      {"Exp(-inf)", MATHLIB::Exp(-kInf), 0.0},     {"Exp(1000)", MATHLIB::Exp(1000.0), kInf},
      {"Log(0)", MATHLIB::Log(0.0), -kInf},        {"Log10(-0)", MATHLIB::Log10(-0.0), -kInf},
      {"Log(-1)", MATHLIB::Log(-1.0), nan},        {"Log(inf)", MATHLIB::Log(kInf), kInf},
      {"Sqrt(-0)", MATHLIB::Sqrt(-0.0), -0.0},     {"Sqrt(-1)", MATHLIB::Sqrt(-1.0), nan},
      {"Pow(nan, 0)", MATHLIB::Pow(nan, 0.0), 1.0}, {"Pow(1, nan)", MATHLIB::Pow(1.0, nan), 1.0},
      {"Pow(-1, inf)", MATHLIB::Pow(-1.0, kInf), 1.0},
      {"Pow(0.5, inf)", MATHLIB::Pow(0.5, kInf), 0.0},
      {"Pow(2, -inf)", MATHLIB::Pow(2.0, -kInf), 0.0},
      {"Pow(-0, -3)", MATHLIB::Pow(-0.0, -3.0), -kInf},
      {"Pow(-0, -2)", MATHLIB::Pow(-0.0, -2.0), kInf},
      {"Pow(-0, 3)", MATHLIB::Pow(-0.0, 3.0), -0.0},
      {"Pow(-inf, 3)", MATHLIB::Pow(-kInf, 3.0), -kInf},
      {"Pow(-inf, -3)", MATHLIB::Pow(-kInf, -3.0), -0.0},
      {"Pow(-inf, 0.5)", MATHLIB::Pow(-kInf, 0.5), kInf},
      {"Pow(-2, 0.5)", MATHLIB::Pow(-2.0, 0.5), nan},
      {"Pow(-2, 2^70)", MATHLIB::Pow(-2.0, 0x1p70), kInf},
      {"Pow(-0.5, 2^53 + 1)", MATHLIB::Pow(-0.5, 0x1p53 + 2), 0.0},
      {"Mod(7.5, 2)", MATHLIB::Mod(7.5, 2.0), 1.5}, {"Mod(-7.5, 2)", MATHLIB::Mod(-7.5, 2.0), -1.5},
      {"Mod(1, 0)", MATHLIB::Mod(1.0, 0.0), nan},  {"Mod(inf, 1)", MATHLIB::Mod(kInf, 1.0), nan},
      {"Mod(5, -inf)", MATHLIB::Mod(5.0, -kInf), 5.0}, {"Mod(-4, 2)", MATHLIB::Mod(-4.0, 2.0), -0.0},
  };
  for (const Row& r : rows) {
    if (std::isnan(r.want)) {
      EXPECT_TRUE(std::isnan(r.got)) << r.call << " = " << r.got;
    } else {
      EXPECT_EQ(B(r.got), B(r.want)) << r.call << " = " << r.got;
    }
  }
}

TEST(MathLib, IntPow) {
  const double nan = NAN, inf = INFINITY;
  struct Row { double x; int n; std::uint64_t want; };
  const Row rows[] = {
      {2.0, -2, B(0.25)}, {-2.0, 3, B(-8.0)}, {nan, 0, B(1.0)}, {inf, 0, B(1.0)}, {0.0, -1, B(inf)},
      {10.0, -3, B(0.0010000000000000002)},  // 0.1 cubed, not 1 / 1000
      {2.0, 1024, B(inf)}, {2.0, -1074, B(0x1p-1074)}, {2.0, -2147483648, B(0.0)},
      {1.0, -2147483648, B(1.0)}, {-1.0, -2147483647, B(-1.0)}, {-1.0, 2147483647, B(-1.0)},
      {-0.0, -3, B(-inf)}, {1.1, 5, B(1.1 * ((1.1 * 1.1) * (1.1 * 1.1)))},  // x times x^4
  };
  for (const Row& r : rows) EXPECT_EQ(B(MATHLIB::IntPow(r.x, r.n)), r.want) << r.x << "^" << r.n;
}

int hookCalls = 0;
int CountingHook(MATHLIB::Exception*) { return ++hookCalls; }

TEST(MathLib, MathErrorStartsNullAndFailuresNeverCallIt) {
  EXPECT_EQ(MATHLIB::MathError, nullptr);
  MATHLIB::MathError = CountingHook;
  EXPECT_TRUE(std::isnan(MATHLIB::ACos(2.0)) && std::isnan(MATHLIB::Log(-1.0)) &&
              std::isinf(MATHLIB::Exp(1000.0)) && std::isinf(MATHLIB::IntPow(0.0, -1)));
  EXPECT_EQ(hookCalls, 0);
  EXPECT_EQ(MATHLIB::MathError, &CountingHook);
  MATHLIB::MathError = nullptr;
}

}  // namespace
