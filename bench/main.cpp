// Runs the benchmarks and ends with one ratio per pair. A pair is two benchmarks named
// "<operation>/brelt/<size>" and "<operation>/<reference>/<size>"; the ratio is the brelt
// throughput over the reference's (time of the reference over time of brelt), so 1.0 means
// equal speed and more is faster.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      times_[run.benchmark_name()] = run.GetAdjustedRealTime();
    }
  }

  void PrintRatios() const {
    std::printf("\n%-40s %10s %14s %14s %8s\n", "pair", "size", "brelt", "reference", "ratio");
    for (const auto& [name, time] : times_) {
      // name = op/brelt/size
      const auto first = name.find('/');
      const auto second = name.find('/', first + 1);
      if (first == std::string::npos || second == std::string::npos) continue;
      if (name.compare(first + 1, second - first - 1, "brelt") != 0) continue;
      const std::string op = name.substr(0, first);
      const std::string size = name.substr(second + 1);
      for (const auto& [other, ref] : times_) {
        if (other == name || other.rfind(op + "/", 0) != 0) continue;
        if (other.size() < size.size() + 1 ||
            other.compare(other.size() - size.size() - 1, std::string::npos, "/" + size) != 0) {
          continue;
        }
        const std::string refName = other.substr(first + 1, other.size() - size.size() - first - 2);
        std::printf("%-40s %10s %11.1f ns %11.1f ns %8.2f\n", (op + " vs " + refName).c_str(),
                    size.c_str(), time, ref, ref / time);
      }
    }
  }

 private:
  std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatios();
  benchmark::Shutdown();
  return 0;
}
