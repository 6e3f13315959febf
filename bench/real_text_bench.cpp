// Str::StrToRealA beside strtod on the same texts: a short one, a long one with many
// fraction digits, and one whose exponent needs the scale to be multiplied up beyond the
// exact powers. The size argument numbers the text.
#include <brelt/str.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>

namespace {

const char* const kTexts[] = {"-12.5", "3.14159265358979323846", "6.02214076E23",
                              "1.7976931348623157E300"};

void Texts(benchmark::internal::Benchmark* b) {
  for (long n = 0; n < static_cast<long>(sizeof kTexts / sizeof kTexts[0]); ++n) b->Arg(n);
}

void StrToRealA_brelt(benchmark::State& state) {
  const char* text = kTexts[state.range(0)];
  const auto high = static_cast<unsigned>(std::strlen(text));  // the NUL is inside
  unsigned char ok = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(Str::StrToRealA(high, text, &ok));
  }
  state.SetLabel(text);
}
void StrToRealA_strtod(benchmark::State& state) {
  const char* text = kTexts[state.range(0)];
  char* end = nullptr;
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(std::strtod(text, &end));
  }
  state.SetLabel(text);
}

BENCHMARK(StrToRealA_brelt)->Name("StrToRealA/brelt")->Apply(Texts);
BENCHMARK(StrToRealA_strtod)->Name("StrToRealA/strtod")->Apply(Texts);

}  // namespace
