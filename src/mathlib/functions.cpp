// MATHLIB elementary functions: the runtime's own, under the library's names, with nothing
// added. ATan2 is the one whose arguments change places.
#include <cmath>

#include "brelt/mathlib.h"

namespace MATHLIB {

MathErrorHook MathError = nullptr;

double Sin(double x) { return std::sin(x); }
double Cos(double x) { return std::cos(x); }
double Tan(double x) { return std::tan(x); }
double ASin(double x) { return std::asin(x); }
double ACos(double x) { return std::acos(x); }
double ATan(double x) { return std::atan(x); }
double ATan2(double x, double y) { return std::atan2(y, x); }
double SinH(double x) { return std::sinh(x); }
double CosH(double x) { return std::cosh(x); }
double TanH(double x) { return std::tanh(x); }
double Exp(double x) { return std::exp(x); }
double Log(double x) { return std::log(x); }
double Log10(double x) { return std::log10(x); }
double Sqrt(double x) { return std::sqrt(x); }
double Pow(double x, double y) { return std::pow(x, y); }
double Mod(double x, double y) { return std::fmod(x, y); }

}  // namespace MATHLIB
