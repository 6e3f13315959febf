// Every MATHLIB function on one grid: a linear sweep, multiples of pi/2 and their
// neighbours, huge and tiny arguments, the ends of the ranges and the special values.
#include <brelt/mathlib.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "sections.h"

namespace sidebyside {
namespace {

using Limits = std::numeric_limits<double>;

bool Same(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Each argument once, in the order first given.
void AddOnce(std::vector<double>& g, double x) {
  if (std::find_if(g.begin(), g.end(), [x](double y) { return Same(x, y); }) == g.end()) {
    g.push_back(x);
  }
}

std::vector<double> UnaryGrid() {
  std::vector<double> g;
  for (int k = -80; k <= 80; ++k) AddOnce(g, k / 8.0);
  const double halfPi = 1.5707963267948966;
  for (int k = -12; k <= 12; ++k) {
    const double x = k * halfPi;
    for (double y : {x, std::nextafter(x, -Limits::infinity()),
                     std::nextafter(x, Limits::infinity())}) {
      AddOnce(g, y);
    }
  }
  const double special[] = {
      0x1p63, -0x1p63, 0x1p64, 1e15, 1e16, 1e22, 0x1p100, -1e300, 1e300, Limits::max(),
      -Limits::max(), 1e-300, 1e-310, Limits::denorm_min(), -Limits::denorm_min(), 1e-8,
      -1e-17, 0.0, -0.0, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
      1.0000000000000002, 0.9999999999999999, -0.9999999999999999, 0.5, 0.9999, 1e5,
      709.78, 709.79, 710.0, 710.5, -708.0, -745.0, -746.0, 22.0, 19.0, 0.17, 0.35, 0.7, 1.4,
      2.718281828459045, 3.141592653589793, 6.283185307179586, 1e-5, 123456.789, 0.1};
  for (double x : special) AddOnce(g, x);
  return g;
}

std::vector<double> PairGrid() {
  return {0.0,  -0.0, 0.5,  0.75, 1.0,  -1.0, 2.0,  -2.0, 3.0,    -8.0,    10.0,
          0.1,  1.0 / 3, -746.0, 53.0, 1e-300, 1e300, 1.0000001, 1e10, -1e10, 1023.5,
          -1074.5, 2.718281828459045, Limits::infinity(), -Limits::infinity(),
          Limits::quiet_NaN(), 0x1p53 + 2, Limits::denorm_min(), 7.5, -7.5};
}

}  // namespace

void MathResults(Report& r) {
  struct Unary {
    const char* name;
    double (*f)(double);
  } const unary[] = {
      {"Sin", MATHLIB::Sin},   {"Cos", MATHLIB::Cos},   {"Tan", MATHLIB::Tan},
      {"ASin", MATHLIB::ASin}, {"ACos", MATHLIB::ACos}, {"ATan", MATHLIB::ATan},
      {"SinH", MATHLIB::SinH}, {"CosH", MATHLIB::CosH}, {"TanH", MATHLIB::TanH},
      {"Exp", MATHLIB::Exp},   {"Log", MATHLIB::Log},   {"Log10", MATHLIB::Log10},
      {"Sqrt", MATHLIB::Sqrt}};
  const std::vector<double> grid = UnaryGrid();
  for (const Unary& u : unary) {
    for (double x : grid) r.Line(std::string("math.") + u.name + "." + RealKey(x), Real(u.f(x)));
  }
  struct Binary {
    const char* name;
    double (*f)(double, double);
  } const binary[] = {{"Pow", MATHLIB::Pow}, {"ATan2", MATHLIB::ATan2}, {"Mod", MATHLIB::Mod}};
  const std::vector<double> pairs = PairGrid();
  for (const Binary& b : binary) {
    for (double x : pairs) {
      for (double y : pairs) {
        r.Line(std::string("math.") + b.name + "." + RealKey(x) + "," + RealKey(y),
               Real(b.f(x, y)));
      }
    }
  }
  for (double x : pairs) {
    for (int n : {0, 1, -1, 2, -3, 10, 1023, -1074, 2147483647, -2147483647 - 1}) {
      r.Line("math.IntPow." + RealKey(x) + "," + Dec(n), Real(MATHLIB::IntPow(x, n)));
    }
  }
}

}  // namespace sidebyside
