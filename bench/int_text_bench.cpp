// Str::IntToStrA, Str::Card64ToStrA and Str::StrToIntA beside std::to_chars and
// std::from_chars. The size argument is the digit count of the values: each run walks a
// fixed set of values of that many digits, half of them negative where a sign is possible.
#include <brelt/str.h>
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kCount = 256;

// kCount values of exactly `digits` decimal digits.
std::vector<std::uint64_t> Values(int digits, std::uint64_t limit) {
  std::uint64_t low = 1;
  for (int i = 1; i < digits; ++i) low *= 10;
  std::uint64_t high = low > limit / 10 ? limit : low * 10 - 1;
  if (digits == 1) low = 0;
  std::mt19937_64 rng(static_cast<std::uint64_t>(digits));
  std::uniform_int_distribution<std::uint64_t> pick(low, high);
  std::vector<std::uint64_t> out(kCount);
  for (auto& v : out) v = pick(rng);
  return out;
}

std::vector<brelt::Long> Ints(int digits) {
  std::vector<brelt::Long> out;
  int i = 0;
  for (std::uint64_t v : Values(digits, 2147483647)) {
    out.push_back(static_cast<brelt::Long>(i++ % 2 ? -static_cast<std::int64_t>(v) : v));
  }
  return out;
}

void Done(benchmark::State& state) { state.SetItemsProcessed(state.iterations() * kCount); }

void IntToStrA_brelt(benchmark::State& state) {
  const auto values = Ints(static_cast<int>(state.range(0)));
  char buf[24];
  unsigned char ok;
  for (auto _ : state) {
    for (brelt::Long v : values) {
      Str::IntToStrA(v, sizeof buf - 1, buf, 10, &ok);
      benchmark::DoNotOptimize(buf);
    }
  }
  Done(state);
}
void IntToStrA_to_chars(benchmark::State& state) {
  const auto values = Ints(static_cast<int>(state.range(0)));
  char buf[24];
  for (auto _ : state) {
    for (brelt::Long v : values) {
      *std::to_chars(buf, buf + sizeof buf - 1, v).ptr = '\0';
      benchmark::DoNotOptimize(buf);
    }
  }
  Done(state);
}

void Card64ToStrA_brelt(benchmark::State& state) {
  const auto values = Values(static_cast<int>(state.range(0)), ~0ull);
  char buf[24];
  unsigned char ok;
  for (auto _ : state) {
    for (std::uint64_t v : values) {
      Str::Card64ToStrA(v, sizeof buf - 1, buf, 10, &ok);
      benchmark::DoNotOptimize(buf);
    }
  }
  Done(state);
}
void Card64ToStrA_to_chars(benchmark::State& state) {
  const auto values = Values(static_cast<int>(state.range(0)), ~0ull);
  char buf[24];
  for (auto _ : state) {
    for (std::uint64_t v : values) {
      *std::to_chars(buf, buf + sizeof buf - 1, v).ptr = '\0';
      benchmark::DoNotOptimize(buf);
    }
  }
  Done(state);
}

// The texts stand in one array, each ended by a NUL, as a caller's item would be.
struct Texts {
  std::string all;
  std::vector<unsigned> starts;
};
Texts IntTexts(int digits) {
  Texts t;
  for (brelt::Long v : Ints(digits)) {
    t.starts.push_back(static_cast<unsigned>(t.all.size()));
    t.all += std::to_string(v);
    t.all += '\0';
  }
  return t;
}

void StrToIntA_brelt(benchmark::State& state) {
  const Texts t = IntTexts(static_cast<int>(state.range(0)));
  unsigned char ok;
  for (auto _ : state) {
    for (unsigned s : t.starts) {
      benchmark::DoNotOptimize(Str::StrToIntA(23, t.all.data() + s, 10, &ok));
    }
  }
  Done(state);
}
void StrToIntA_from_chars(benchmark::State& state) {
  const Texts t = IntTexts(static_cast<int>(state.range(0)));
  const char* end = t.all.data() + t.all.size();
  for (auto _ : state) {
    for (unsigned s : t.starts) {
      brelt::Long v = 0;
      benchmark::DoNotOptimize(std::from_chars(t.all.data() + s, end, v).ec);
      benchmark::DoNotOptimize(v);
    }
  }
  Done(state);
}

void Digits32(benchmark::internal::Benchmark* b) {
  for (int n : {1, 5, 10}) b->Arg(n);
}
void Digits64(benchmark::internal::Benchmark* b) {
  for (int n : {1, 10, 20}) b->Arg(n);
}

BENCHMARK(IntToStrA_brelt)->Name("IntToStrA/brelt")->Apply(Digits32);
BENCHMARK(IntToStrA_to_chars)->Name("IntToStrA/to_chars")->Apply(Digits32);
BENCHMARK(Card64ToStrA_brelt)->Name("Card64ToStrA/brelt")->Apply(Digits64);
BENCHMARK(Card64ToStrA_to_chars)->Name("Card64ToStrA/to_chars")->Apply(Digits64);
BENCHMARK(StrToIntA_brelt)->Name("StrToIntA/brelt")->Apply(Digits32);
BENCHMARK(StrToIntA_from_chars)->Name("StrToIntA/from_chars")->Apply(Digits32);

}  // namespace
