// Runs the benchmarks and ends with one ratio per pair. A pair is two benchmarks named
// "<operation>/brelt/<size>" and "<operation>/<reference>/<size>"; the ratio is the brelt
// throughput over the reference's (time of the reference over time of brelt), so 1.0 means
// equal speed and more is faster.
//
// With --benchmark_repetitions the fastest run of each benchmark counts.
//
// With --brelt_table=FILE the pairs are also appended to FILE as rows of a Markdown table
// (the header first when FILE is empty), each beside its target from --brelt_targets=FILE:
// lines "operation reference size target", where a size of * stands for any size.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

struct Pair {
  std::string op, reference, size;
  double brelt, ref;
  double Ratio() const { return ref / brelt; }
};

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      // Of repeated runs the fastest counts: a slower one was slowed by something else.
      const double time = run.GetAdjustedRealTime();
      const auto [at, fresh] = times_.try_emplace(run.benchmark_name(), time);
      if (!fresh) at->second = std::min(at->second, time);
    }
  }

  std::vector<Pair> Pairs() const {
    std::vector<Pair> pairs;
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
        const std::string reference =
            other.substr(first + 1, other.size() - size.size() - first - 2);
        pairs.push_back({op, reference, size, time, ref});
      }
    }
    // Sizes in numeric order within their operation and reference.
    const auto number = [](const Pair& p) { return std::strtoull(p.size.c_str(), nullptr, 10); };
    std::stable_sort(pairs.begin(), pairs.end(), [&](const Pair& a, const Pair& b) {
      if (a.op != b.op) return a.op < b.op;
      if (a.reference != b.reference) return a.reference < b.reference;
      return number(a) < number(b);
    });
    return pairs;
  }

 private:
  std::map<std::string, double> times_;
};

void PrintRatios(const std::vector<Pair>& pairs) {
  std::printf("\n%-40s %10s %14s %14s %8s\n", "pair", "size", "brelt", "reference", "ratio");
  for (const Pair& p : pairs) {
    std::printf("%-40s %10s %11.1f ns %11.1f ns %8.2f\n", (p.op + " vs " + p.reference).c_str(),
                p.size.c_str(), p.brelt, p.ref, p.Ratio());
  }
}

// The targets file: operation, reference, size (or *) and the least ratio, a line each.
class Targets {
 public:
  explicit Targets(const std::string& file) {
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
      if (line.empty() || line[0] == '#') continue;
      std::istringstream fields(line);
      Row row;
      if (fields >> row.op >> row.reference >> row.size >> row.target) rows_.push_back(row);
    }
  }

  // The target of a pair; 0 when none is set.
  double For(const Pair& p) const {
    for (const Row& row : rows_) {
      if (row.op == p.op && row.reference == p.reference &&
          (row.size == "*" || row.size == p.size)) {
        return row.target;
      }
    }
    return 0;
  }

 private:
  struct Row {
    std::string op, reference, size;
    double target = 0;
  };
  std::vector<Row> rows_;
};

void AppendTable(const std::string& file, const Targets& targets,
                 const std::vector<Pair>& pairs) {
  const bool fresh = !std::ifstream(file).good() || std::ifstream(file).peek() == EOF;
  std::ofstream out(file, std::ios::app);
  if (fresh) {
    out << "| Operation | Reference | Size | Ratio | Target | Met |\n"
        << "|---|---|---:|---:|---:|:---:|\n";
  }
  char text[32];
  for (const Pair& p : pairs) {
    const double target = targets.For(p);
    std::snprintf(text, sizeof text, "%.2f", p.Ratio());
    out << "| " << p.op << " | " << p.reference << " | " << p.size << " | " << text << " | ";
    if (target > 0) {
      std::snprintf(text, sizeof text, "%.2f", target);
      out << text << " | " << (p.Ratio() >= target ? "yes" : "**no**") << " |\n";
    } else {
      out << " | |\n";
    }
  }
}

// Takes "--name=value" out of the arguments, so that the benchmark library does not see it.
std::string TakeFlag(int* argc, char** argv, std::string_view name) {
  std::string value;
  int kept = 1;
  for (int i = 1; i < *argc; ++i) {
    const std::string_view arg = argv[i];
    if (arg.size() > name.size() + 3 && arg.substr(0, 2) == "--" &&
        arg.substr(2, name.size()) == name && arg[name.size() + 2] == '=') {
      value = arg.substr(name.size() + 3);
    } else {
      argv[kept++] = argv[i];
    }
  }
  *argc = kept;
  return value;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string table = TakeFlag(&argc, argv, "brelt_table");
  const std::string targets = TakeFlag(&argc, argv, "brelt_targets");
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const std::vector<Pair> pairs = reporter.Pairs();
  PrintRatios(pairs);
  if (!table.empty()) AppendTable(table, Targets(targets), pairs);
  benchmark::Shutdown();
  return 0;
}
