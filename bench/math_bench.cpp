// MATHLIB's elementary functions beside the C library's. The size argument picks the range of
// the arguments: 0 for ordinary ones (|x| up to 10, or positive up to 100 for the logarithms
// and powers), 1 for huge ones where only the sines and cosines still have work to do.
#include <brelt/mathlib.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

constexpr int kCount = 256;

std::vector<double> Arguments(bool positive, bool huge) {
  std::mt19937_64 rng(huge ? 2 : 1);
  std::uniform_real_distribution<double> pick(positive ? 0.01 : -10.0, positive ? 100.0 : 10.0);
  std::uniform_real_distribution<double> power(0.0, 1000.0);
  std::vector<double> out(kCount);
  for (double& x : out) {
    x = huge ? std::ldexp(1.0 + pick(rng) / 100.0, static_cast<int>(power(rng))) : pick(rng);
  }
  return out;
}

template <double (*F)(double), bool kPositive>
void Unary(benchmark::State& state) {
  const auto xs = Arguments(kPositive, state.range(0) != 0);
  for (auto _ : state) {
    for (double x : xs) benchmark::DoNotOptimize(F(x));
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

template <double (*F)(double, double)>
void Binary(benchmark::State& state) {
  const auto xs = Arguments(true, false);
  for (auto _ : state) {
    for (double x : xs) benchmark::DoNotOptimize(F(x, 1.7));
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

double CSin(double x) { return std::sin(x); }
double CExp(double x) { return std::exp(x); }
double CLog(double x) { return std::log(x); }
double CAtan(double x) { return std::atan(x); }
double CTanh(double x) { return std::tanh(x); }
double CPow(double x, double y) { return std::pow(x, y); }

}  // namespace

BENCHMARK_TEMPLATE(Unary, MATHLIB::Sin, false)->Name("Sin/brelt")->Arg(0)->Arg(1);
BENCHMARK_TEMPLATE(Unary, CSin, false)->Name("Sin/libm")->Arg(0)->Arg(1);
BENCHMARK_TEMPLATE(Unary, MATHLIB::Exp, false)->Name("Exp/brelt")->Arg(0);
BENCHMARK_TEMPLATE(Unary, CExp, false)->Name("Exp/libm")->Arg(0);
BENCHMARK_TEMPLATE(Unary, MATHLIB::Log, true)->Name("Log/brelt")->Arg(0);
BENCHMARK_TEMPLATE(Unary, CLog, true)->Name("Log/libm")->Arg(0);
BENCHMARK_TEMPLATE(Unary, MATHLIB::ATan, false)->Name("ATan/brelt")->Arg(0);
BENCHMARK_TEMPLATE(Unary, CAtan, false)->Name("ATan/libm")->Arg(0);
BENCHMARK_TEMPLATE(Unary, MATHLIB::TanH, false)->Name("TanH/brelt")->Arg(0);
BENCHMARK_TEMPLATE(Unary, CTanh, false)->Name("TanH/libm")->Arg(0);
BENCHMARK_TEMPLATE(Binary, MATHLIB::Pow)->Name("Pow/brelt")->Arg(0);
BENCHMARK_TEMPLATE(Binary, CPow)->Name("Pow/libm")->Arg(0);
