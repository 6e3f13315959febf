// MATHLIB: forwarders' argument order, IntPow's order and extremes, the untouched error hook.
#include <brelt/mathlib.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

namespace {

std::uint64_t B(double d) { return std::bit_cast<std::uint64_t>(d); }

// Each forwarder against its runtime function where a wrong function or swapped pair differs.
TEST(MathLib, Forwarders) {
  struct Row { const char* name; double got; double want; };
#define BRELT_ROW(F, f) {#F, MATHLIB::F(0.5), std::f(0.5)}
  const Row rows[] = {
      BRELT_ROW(Sin, sin),   BRELT_ROW(Cos, cos),   BRELT_ROW(Tan, tan),   BRELT_ROW(ASin, asin),
      BRELT_ROW(ACos, acos), BRELT_ROW(ATan, atan), BRELT_ROW(SinH, sinh), BRELT_ROW(CosH, cosh),
      BRELT_ROW(TanH, tanh), BRELT_ROW(Exp, exp),   BRELT_ROW(Log, log),   BRELT_ROW(Log10, log10),
      BRELT_ROW(Sqrt, sqrt), {"Pow", MATHLIB::Pow(2.0, 0.5), std::pow(2.0, 0.5)},
      {"ATan2 x first", MATHLIB::ATan2(1.0, 0.0), 0.0},  {"Mod", MATHLIB::Mod(-7.5, 2.0), -1.5},
      {"ATan2 y second", MATHLIB::ATan2(-1.0, 2.0), std::atan2(2.0, -1.0)},
  };
#undef BRELT_ROW
  for (const Row& r : rows) EXPECT_EQ(B(r.got), B(r.want)) << r.name;
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
