// Str::RealToStrA, Str::FixRealToStrA and Str::CorrectedRealToStrA beside snprintf with the
// same format and std::to_chars with the same precision, over one set of random doubles of
// ordinary magnitude (1E-3 to 1E7, either sign). The size argument is the digits argument.
#include <brelt/str.h>
#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

namespace {

constexpr int kCount = 256;

const std::vector<double>& Values() {
  static const std::vector<double> values = [] {
    std::mt19937_64 rng(42);
    std::uniform_real_distribution<double> mantissa(1.0, 10.0);
    std::vector<double> out(kCount);
    for (double& v : out) {
      v = mantissa(rng) * std::pow(10.0, static_cast<double>(static_cast<int>(rng() % 11) - 3));
      if (rng() % 2) v = -v;
    }
    return out;
  }();
  return values;
}

void Done(benchmark::State& state) { state.SetItemsProcessed(state.iterations() * kCount); }

// Runs `convert` on every value into an array of 64 elements (snprintf is told more, which the
// texts here never need, so that the compiler does not warn about a cut).
template <class F>
void Each(benchmark::State& state, F convert) {
  char buf[400];
  for (auto _ : state) {
    for (double v : Values()) {
      convert(v, buf);
      benchmark::DoNotOptimize(buf);
    }
  }
  Done(state);
}

// The reference's digits: snprintf takes the format, to_chars the precision.
template <class F>
void Snprintf(benchmark::State& state, const char* format, F precision) {
  const int p = precision(static_cast<int>(state.range(0)));
  Each(state, [&](double v, char* buf) { std::snprintf(buf, 400, format, p + 2, p, v); });
}
void ToChars(benchmark::State& state, std::chars_format format, int precision) {
  Each(state, [&](double v, char* buf) {
    *std::to_chars(buf, buf + 63, v, format, precision).ptr = 0;
  });
}

void RealToStrA_brelt(benchmark::State& state) {
  const auto d = static_cast<unsigned>(state.range(0));
  unsigned char ok;
  Each(state, [&](double v, char* buf) { Str::RealToStrA(v, d, 0, 63, buf, &ok); });
}
void RealToStrA_snprintf(benchmark::State& state) {
  Snprintf(state, "%*.*E", [](int d) { return d - 1; });
}
void RealToStrA_to_chars(benchmark::State& state) {
  ToChars(state, std::chars_format::scientific, static_cast<int>(state.range(0)) - 1);
}

void FixRealToStrA_brelt(benchmark::State& state) {
  const auto d = static_cast<unsigned>(state.range(0));
  unsigned char ok;
  Each(state, [&](double v, char* buf) { Str::FixRealToStrA(v, d, 63, buf, &ok); });
}
void FixRealToStrA_snprintf(benchmark::State& state) {
  const int d = static_cast<int>(state.range(0));
  Each(state, [&](double v, char* buf) { std::snprintf(buf, 400, "%.*f", d, v); });
}
void FixRealToStrA_to_chars(benchmark::State& state) {
  ToChars(state, std::chars_format::fixed, static_cast<int>(state.range(0)));
}

void CorrectedRealToStrA_brelt(benchmark::State& state) {
  const auto d = static_cast<unsigned>(state.range(0));
  unsigned char ok;
  Each(state, [&](double v, char* buf) { Str::CorrectedRealToStrA(v, d, 0, 63, buf, &ok); });
}
void CorrectedRealToStrA_snprintf(benchmark::State& state) {
  Snprintf(state, "%*.*G", [](int d) { return d - 1; });
}
void CorrectedRealToStrA_to_chars(benchmark::State& state) {
  ToChars(state, std::chars_format::general, static_cast<int>(state.range(0)) - 1);
}

BENCHMARK(RealToStrA_brelt)->Name("RealToStrA/brelt")->Arg(15);
BENCHMARK(RealToStrA_snprintf)->Name("RealToStrA/snprintf")->Arg(15);
BENCHMARK(RealToStrA_to_chars)->Name("RealToStrA/to_chars")->Arg(15);
BENCHMARK(FixRealToStrA_brelt)->Name("FixRealToStrA/brelt")->Arg(2)->Arg(17);
BENCHMARK(FixRealToStrA_snprintf)->Name("FixRealToStrA/snprintf")->Arg(2)->Arg(17);
BENCHMARK(FixRealToStrA_to_chars)->Name("FixRealToStrA/to_chars")->Arg(2)->Arg(17);
BENCHMARK(CorrectedRealToStrA_brelt)->Name("CorrectedRealToStrA/brelt")->Arg(15);
BENCHMARK(CorrectedRealToStrA_snprintf)->Name("CorrectedRealToStrA/snprintf")->Arg(15);
BENCHMARK(CorrectedRealToStrA_to_chars)->Name("CorrectedRealToStrA/to_chars")->Arg(15);

}  // namespace
