// Str::MatchA beside fnmatch (with FNM_CASEFOLD, since MatchA ignores case): a list of file
// names against typical name patterns, and a pattern of many stars that cannot fit a long text.
#include <brelt/str.h>
#include <benchmark/benchmark.h>
#include <fnmatch.h>

#include <string>
#include <vector>

namespace {

struct Pair {
  std::string name, pattern;
};

// Names and patterns as a redirection table would hold them; the size argument is the count.
std::vector<Pair> FileNames(std::size_t count) {
  static const char* const names[] = {
      "report_2026_11.pdf", "README.md",   "data01.csv",      "data17.CSV",  "main.cpp",
      "Makefile",           "notes.txt",   "IMAGE_0042.JPG",  "archive.tar.gz", "setup.exe",
      "config.ini",         "a.dat",       "very.long.name.with.dots.txt", "x",  "log-2026-11-23.log"};
  static const char* const patterns[] = {"*.txt", "data??.csv", "*report*2026*.pdf", "*.*",
                                         "main.?pp", "*.tar.gz", "a*", "*-*-*-*.log"};
  std::vector<Pair> out;
  for (std::size_t k = 0; k < count; ++k) {
    out.push_back({names[k % std::size(names)], patterns[(k / 3) % std::size(patterns)]});
  }
  return out;
}

void Files_brelt(benchmark::State& state) {
  const auto pairs = FileNames(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    int hits = 0;
    for (const Pair& p : pairs) {
      hits += Str::MatchA(static_cast<unsigned>(p.name.size()), p.name.c_str(),
                          static_cast<unsigned>(p.pattern.size()), p.pattern.c_str());
    }
    benchmark::DoNotOptimize(hits);
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}
void Files_fnmatch(benchmark::State& state) {
  const auto pairs = FileNames(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    int hits = 0;
    for (const Pair& p : pairs) {
      hits += fnmatch(p.pattern.c_str(), p.name.c_str(), FNM_CASEFOLD) == 0;
    }
    benchmark::DoNotOptimize(hits);
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

// "*a*a*a*a*a*b" over a text of 'a' only: the recursive walk would try every way to place
// five stars before giving up.
const char kManyStars[] = "*a*a*a*a*a*b";

void ManyStars_brelt(benchmark::State& state) {
  const std::string text(static_cast<std::size_t>(state.range(0)), 'a');
  for (auto _ : state) {
    benchmark::DoNotOptimize(Str::MatchA(static_cast<unsigned>(text.size()), text.c_str(),
                                         sizeof kManyStars - 1, kManyStars));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}
void ManyStars_fnmatch(benchmark::State& state) {
  const std::string text(static_cast<std::size_t>(state.range(0)), 'a');
  for (auto _ : state) {
    benchmark::DoNotOptimize(fnmatch(kManyStars, text.c_str(), FNM_CASEFOLD));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

BENCHMARK(Files_brelt)->Name("MatchFiles/brelt")->Arg(64)->Arg(1024);
BENCHMARK(Files_fnmatch)->Name("MatchFiles/fnmatch")->Arg(64)->Arg(1024);
BENCHMARK(ManyStars_brelt)->Name("MatchManyStars/brelt")->Arg(1000)->Arg(10000);
BENCHMARK(ManyStars_fnmatch)->Name("MatchManyStars/fnmatch")->Arg(1000)->Arg(10000);

}  // namespace
