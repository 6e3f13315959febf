// Lib::QSort and Lib::HSort over 10^5 and 10^6 random 32-bit values, through callbacks on a
// plain array, beside std::sort and qsort with the same comparison through a function pointer;
// Lib::RANDOM beside std::minstd_rand. The sorts' call sequence is fixed, so what is timed is
// their bookkeeping around the callbacks.
#include <brelt/lib.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

namespace {

std::vector<std::uint32_t> g_values;

unsigned char Less(unsigned i, unsigned j) { return g_values[i - 1] < g_values[j - 1]; }
void Swap(unsigned i, unsigned j) { std::swap(g_values[i - 1], g_values[j - 1]); }

int CompareQ(const void* a, const void* b) {
  const auto x = *static_cast<const std::uint32_t*>(a), y = *static_cast<const std::uint32_t*>(b);
  return x < y ? -1 : x > y ? 1 : 0;
}
bool (*volatile g_lessPointer)(std::uint32_t, std::uint32_t) =
    [](std::uint32_t a, std::uint32_t b) { return a < b; };

const std::vector<std::uint32_t>& Input(std::size_t n) {
  static std::vector<std::uint32_t> values[2];
  auto& v = values[n > 100000 ? 1 : 0];
  if (v.size() != n) {
    std::mt19937 rng(static_cast<unsigned>(n));
    v.resize(n);
    for (auto& x : v) x = rng();
  }
  return v;
}

template <class Body>
void Sorting(benchmark::State& state, Body body) {
  const auto& input = Input(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    g_values = input;
    state.ResumeTiming();
    body();
    benchmark::DoNotOptimize(g_values.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void QSort_brelt(benchmark::State& s) {
  Sorting(s, [] { Lib::QSort(static_cast<unsigned>(g_values.size()), Less, Swap); });
}
void QSort_std_sort(benchmark::State& s) {
  Sorting(s, [] { std::sort(g_values.begin(), g_values.end(), g_lessPointer); });
}
void QSort_qsort(benchmark::State& s) {
  Sorting(s, [] { std::qsort(g_values.data(), g_values.size(), sizeof(std::uint32_t), CompareQ); });
}
void HSort_brelt(benchmark::State& s) {
  Sorting(s, [] { Lib::HSort(static_cast<unsigned>(g_values.size()), Less, Swap); });
}
void HSort_std_sort(benchmark::State& s) {
  Sorting(s, [] { std::sort(g_values.begin(), g_values.end(), g_lessPointer); });
}
void HSort_qsort(benchmark::State& s) {
  Sorting(s, [] { std::qsort(g_values.data(), g_values.size(), sizeof(std::uint32_t), CompareQ); });
}

constexpr int kDraws = 1024;

void RANDOM_brelt(benchmark::State& state) {
  const auto range = static_cast<unsigned>(state.range(0));
  for (auto _ : state) {
    for (int k = 0; k < kDraws; ++k) benchmark::DoNotOptimize(Lib::RANDOM(range));
  }
  state.SetItemsProcessed(state.iterations() * kDraws);
}
void RANDOM_minstd_rand(benchmark::State& state) {
  const auto range = static_cast<unsigned>(state.range(0));
  std::minstd_rand rng;
  for (auto _ : state) {
    for (int k = 0; k < kDraws; ++k) {
      const auto v = static_cast<unsigned>(rng());
      benchmark::DoNotOptimize(range != 0 ? v % range : v);
    }
  }
  state.SetItemsProcessed(state.iterations() * kDraws);
}

}  // namespace

void Sizes(benchmark::internal::Benchmark* b) {
  b->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(QSort_brelt)->Name("QSort/brelt")->Apply(Sizes);
BENCHMARK(QSort_std_sort)->Name("QSort/std_sort")->Apply(Sizes);
BENCHMARK(QSort_qsort)->Name("QSort/qsort")->Apply(Sizes);
BENCHMARK(HSort_brelt)->Name("HSort/brelt")->Apply(Sizes);
BENCHMARK(HSort_std_sort)->Name("HSort/std_sort")->Apply(Sizes);
BENCHMARK(HSort_qsort)->Name("HSort/qsort")->Apply(Sizes);
BENCHMARK(RANDOM_brelt)->Name("RANDOM/brelt")->Arg(0)->Arg(100);
BENCHMARK(RANDOM_minstd_rand)->Name("RANDOM/minstd_rand")->Arg(0)->Arg(100);
