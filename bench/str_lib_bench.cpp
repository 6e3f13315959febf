// Str::LengthA, Str::CharPosA, Lib::ScanR and Lib::Compare beside strnlen, memchr (and
// strchr, which like CharPosA also watches for the terminator) and memcmp.
// The text is one byte value throughout, so that every call walks the whole input.
#include <brelt/lib.h>
#include <brelt/str.h>
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

namespace {

constexpr long kSizes[] = {16, 256, 64 * 1024};

std::vector<char> Text(std::size_t n) { return std::vector<char>(n, 'x'); }

void Sizes(benchmark::internal::Benchmark* b) {
  for (long n : kSizes) b->Arg(n);
}

void Done(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

void LengthA_brelt(benchmark::State& state) {
  auto s = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(Str::LengthA(static_cast<unsigned>(s.size() - 1), s.data()));
  }
  Done(state);
}
void LengthA_strnlen(benchmark::State& state) {
  auto s = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(strnlen(s.data(), s.size()));
  }
  Done(state);
}

void CharPosA_brelt(benchmark::State& state) {
  auto s = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(Str::CharPosA(static_cast<unsigned>(s.size() - 1), s.data(), 'y'));
  }
  Done(state);
}
void CharPosA_memchr(benchmark::State& state) {
  auto s = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(std::memchr(s.data(), 'y', s.size()));
  }
  Done(state);
}

// strchr also stops at the terminator, as CharPosA does; the text ends in one here.
void CharPosA_strchr(benchmark::State& state) {
  auto s = Text(state.range(0));
  s.back() = '\0';
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(std::strchr(s.data(), 'y'));
  }
  Done(state);
}

void ScanR_brelt(benchmark::State& state) {
  auto s = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(Lib::ScanR(s.data(), s.size(), 'y'));
  }
  Done(state);
}
void ScanR_memchr(benchmark::State& state) {
  auto s = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(std::memchr(s.data(), 'y', s.size()));
  }
  Done(state);
}

void Compare_brelt(benchmark::State& state) {
  auto a = Text(state.range(0)), b = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(a.data());
    benchmark::DoNotOptimize(Lib::Compare(a.data(), b.data(), a.size()));
  }
  Done(state);
}
void Compare_memcmp(benchmark::State& state) {
  auto a = Text(state.range(0)), b = Text(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(a.data());
    benchmark::DoNotOptimize(std::memcmp(a.data(), b.data(), a.size()));
  }
  Done(state);
}

BENCHMARK(LengthA_brelt)->Name("LengthA/brelt")->Apply(Sizes);
BENCHMARK(LengthA_strnlen)->Name("LengthA/strnlen")->Apply(Sizes);
BENCHMARK(CharPosA_brelt)->Name("CharPosA/brelt")->Apply(Sizes);
BENCHMARK(CharPosA_memchr)->Name("CharPosA/memchr")->Apply(Sizes);
BENCHMARK(CharPosA_strchr)->Name("CharPosA/strchr")->Apply(Sizes);
BENCHMARK(ScanR_brelt)->Name("ScanR/brelt")->Apply(Sizes);
BENCHMARK(ScanR_memchr)->Name("ScanR/memchr")->Apply(Sizes);
BENCHMARK(Compare_brelt)->Name("Compare/brelt")->Apply(Sizes);
BENCHMARK(Compare_memcmp)->Name("Compare/memcmp")->Apply(Sizes);

}  // namespace
