// FIOR::OpenReadA of a bare name through a redirection table beside FIO::OpenReadA of the
// file's full name. The table has as many lines as the size argument, each "*.dat" with
// three directories, and the file lies in the very last one: every candidate is tested, one
// existence test each, after the name as written. The "candidates" counter gives their number.
//
// The files lie under the system's temporary folder, named for the library by drive C, the
// POSIX root (the benchmarks are built natively only).
#include <brelt/fio.h>
#include <brelt/fior.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;
constexpr int kDirsPerLine = 3;

std::string LibraryName(const fs::path& native) {
  std::string name = "C:" + native.string();
  for (char& c : name) c = c == '/' ? '\\' : c;
  return name;
}

unsigned High(const std::string& s) { return static_cast<unsigned>(s.size() - 1); }

// The folder with the table of `lines` lines and the file; the global table is read from it.
// Gives the file's full name.
std::string Layout(int lines) {
  static const fs::path home = fs::temp_directory_path() / "brelt-bench-redirection";
  static const bool cleanup = [] {
    std::atexit([] {
      FIOR::Done();
      fs::remove_all(home);
    });
    return true;
  }();
  (void)cleanup;
  fs::remove_all(home);
  std::string table;
  fs::path last;
  for (int k = 0; k < lines; ++k) {
    table += "*.dat =";
    for (int d = 0; d < kDirsPerLine; ++d) {
      const std::string dir = "d" + std::to_string(k) + "_" + std::to_string(d);
      fs::create_directories(home / dir);
      table += (d == 0 ? " " : "; ") + dir;
      last = home / dir;
    }
    table += "\r\n";
  }
  std::ofstream(home / "paths.txt", std::ios::binary) << table;
  std::ofstream(last / "a.dat", std::ios::binary) << "1 2 3\r\n";
  const std::string paths = LibraryName(home / "paths.txt");
  FIOR::InitA(High(paths), paths.c_str());
  return LibraryName(last / "a.dat");
}

void Open_brelt(benchmark::State& state) {
  Layout(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const FIO::FileHandle h = FIOR::OpenReadA(4, "a.dat", 1);
    if (h == brelt::kInvalidFileHandle) {
      state.SkipWithError("a.dat not found");
      break;
    }
    FIO::Close(h);
  }
  state.counters["candidates"] = static_cast<double>(1 + kDirsPerLine * state.range(0));
}

void Open_full_path(benchmark::State& state) {
  const std::string full = Layout(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const FIO::FileHandle h = FIO::OpenReadA(High(full), full.c_str(), 1);
    if (h == brelt::kInvalidFileHandle) {
      state.SkipWithError("the full name does not open");
      break;
    }
    FIO::Close(h);
  }
  state.counters["candidates"] = 1;
}

BENCHMARK(Open_brelt)->Name("OpenRedirected/brelt")->Arg(50);
BENCHMARK(Open_full_path)->Name("OpenRedirected/full_path")->Arg(50);

}  // namespace
