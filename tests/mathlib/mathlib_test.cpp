// MATHLIB: the argument order of each forwarder, IntPow's powering order and its extreme
// exponents, and the error hook that nothing in the library touches.
#include <brelt/mathlib.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

std::uint64_t B(double d) { return std::bit_cast<std::uint64_t>(d); }

// Each forwarder against the runtime function it stands for, at arguments where a wrong
// function, a swapped pair or a dropped argument gives another value.
TEST(MathLib, Forwarders) {
  struct Row { const char* name; double got; double want; };
  const Row rows[] = {
      {"Sin", MATHLIB::Sin(0.5), std::sin(0.5)},       {"Cos", MATHLIB::Cos(0.5), std::cos(0.5)},
      {"Tan", MATHLIB::Tan(0.5), std::tan(0.5)},       {"ASin", MATHLIB::ASin(0.5), std::asin(0.5)},
      {"ACos", MATHLIB::ACos(0.5), std::acos(0.5)},    {"ATan", MATHLIB::ATan(0.5), std::atan(0.5)},
      {"SinH", MATHLIB::SinH(0.5), std::sinh(0.5)},    {"CosH", MATHLIB::CosH(0.5), std::cosh(0.5)},
      {"TanH", MATHLIB::TanH(0.5), std::tanh(0.5)},    {"Exp", MATHLIB::Exp(0.5), std::exp(0.5)},
      {"Log", MATHLIB::Log(0.5), std::log(0.5)},       {"Log10", MATHLIB::Log10(0.5), std::log10(0.5)},
      {"Sqrt", MATHLIB::Sqrt(0.5), std::sqrt(0.5)},    {"Pow", MATHLIB::Pow(2.0, 0.5), std::pow(2.0, 0.5)},
      {"ATan2 x first", MATHLIB::ATan2(1.0, 0.0), 0.0},
      {"ATan2 y second", MATHLIB::ATan2(0.0, 1.0), 1.5707963267948966},
      {"ATan2 quadrant", MATHLIB::ATan2(-1.0, 2.0), std::atan2(2.0, -1.0)},
      {"Mod", MATHLIB::Mod(7.5, 2.0), 1.5},  {"Mod sign of x", MATHLIB::Mod(-7.5, 2.0), -1.5},
      {"Mod negative y", MATHLIB::Mod(7.5, -2.0), 1.5},
  };
  for (const Row& r : rows) EXPECT_EQ(B(r.got), B(r.want)) << r.name;
}

TEST(MathLib, IntPow) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  struct Row { double x; int n; std::uint64_t want; };
  const Row rows[] = {
      {2.0, 10, B(1024.0)},  {2.0, -2, B(0.25)},   {-2.0, 3, B(-8.0)},  {0.0, 0, B(1.0)},
      {nan, 0, B(1.0)},      {inf, 0, B(1.0)},     {10.0, 3, B(1000.0)}, {3.0, 1, B(3.0)},
      {10.0, -3, B(0.0010000000000000002)},  // 0.1 cubed, not 1 / 1000
      {2.0, 1024, B(inf)},   {2.0, 1023, B(0x1p1023)},
      {2.0, -1074, B(0x1p-1074)},  // the smallest positive double
      {2.0, -2147483648, B(0.0)},  {1.0, -2147483648, B(1.0)}, {-1.0, -2147483647, B(-1.0)},
      {-1.0, 2147483647, B(-1.0)}, {0.0, -1, B(inf)},  {-0.0, -3, B(-inf)},
      {1.1, 5, B(1.1 * ((1.1 * 1.1) * (1.1 * 1.1)))},  // x, x^2, x^4: r = x times x^4
  };
  for (const Row& r : rows) {
    EXPECT_EQ(B(MATHLIB::IntPow(r.x, r.n)), r.want) << r.x << " ^ " << r.n;
  }
}

int hookCalls = 0;
int CountingHook(MATHLIB::Exception*) { return ++hookCalls; }

// Null as loaded; an application's hook stays uncalled by failing operations.
TEST(MathLib, MathErrorIsTheApplicationsSlot) {
  EXPECT_EQ(MATHLIB::MathError, nullptr);
  MATHLIB::MathError = CountingHook;
  const double results[] = {MATHLIB::ACos(2.0), MATHLIB::Log(-1.0), MATHLIB::Exp(1000.0),
                            MATHLIB::IntPow(0.0, -1)};
  EXPECT_TRUE(std::isnan(results[0]) && std::isnan(results[1]) && std::isinf(results[2]) &&
              std::isinf(results[3]));
  EXPECT_EQ(hookCalls, 0);
  EXPECT_EQ(MATHLIB::MathError, &CountingHook);
  MATHLIB::MathError = nullptr;
}

}  // namespace
