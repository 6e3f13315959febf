// The token reader and writer over a 10 MB file of whitespace-separated decimal numbers.
// Reading: FIO::RdCard32A (blocks on a disk file) beside the same reader taking one system
// read per character, fscanf("%u") and std::ifstream >>. Writing: FIO::WrCard32A in a field of
// 11 beside fprintf("%11u") and beside the floor of an unbuffered writer, one bare system
// write (FIO::WrBin) per number already formatted. Each iteration takes the next 1000 numbers
// of the file and starts over at its end.
//
// It needs the character-wise reader, which only the library's objects reach, so it links
// those and runs their start-up itself.
#include <brelt/fio.h>
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "fio/token_source.h"
#include "frame/startup.h"

namespace {

constexpr int kPerIteration = 1000;

// The numbers' file, written once: random 32-bit values, blanks and line ends between them.
// Every benchmark asks for it first, so start-up runs here, before the library's first use.
const std::string& NumbersFile() {
  static const std::string name = [] {
    brelt::frame::RunStartup();
    static const auto path = std::filesystem::temp_directory_path() / "brelt-bench-numbers.txt";
    std::atexit([] { std::filesystem::remove(path); });
    std::ofstream out(path, std::ios::binary);
    std::mt19937 rng(7);
    std::size_t written = 0;
    for (int i = 0; written < 10'000'000; ++i) {
      const std::string text =
          std::to_string(rng() >> (rng() % 32)) + (i % 12 == 11 ? "\r\n" : " ");
      out << text;
      written += text.size();
    }
    return path.string();
  }();
  return name;
}

unsigned High(const std::string& s) { return static_cast<unsigned>(s.size() - 1); }

// Starts over at the end of the file.
void Rewind(FIO::FileHandle h) {
  if (FIO::EndOfFile(h) != 0) FIO::Seek(h, 0);
}

void ReadWith(benchmark::State& state, brelt::fio::ReadWay way) {
  brelt::fio::PinReadWay(way);
  const FIO::FileHandle h = FIO::OpenReadA(High(NumbersFile()), NumbersFile().c_str(), 0);
  unsigned char ok = 0;
  for (auto _ : state) {
    for (int i = 0; i < kPerIteration; ++i) {
      benchmark::DoNotOptimize(FIO::RdCard32A(h, &ok));
      if (ok == 0) Rewind(h);
    }
  }
  FIO::Close(h);
  brelt::fio::PinReadWay(brelt::fio::ReadWay::kBlocks);
  state.SetItemsProcessed(state.iterations() * kPerIteration);
}
void Read_brelt(benchmark::State& state) { ReadWith(state, brelt::fio::ReadWay::kBlocks); }
void Read_charwise(benchmark::State& state) { ReadWith(state, brelt::fio::ReadWay::kCharWise); }

void Read_fscanf(benchmark::State& state) {
  std::FILE* f = std::fopen(NumbersFile().c_str(), "rb");
  unsigned v = 0;
  for (auto _ : state) {
    for (int i = 0; i < kPerIteration; ++i) {
      if (std::fscanf(f, "%u", &v) != 1) std::rewind(f);
      benchmark::DoNotOptimize(v);
    }
  }
  std::fclose(f);
  state.SetItemsProcessed(state.iterations() * kPerIteration);
}

void Read_ifstream(benchmark::State& state) {
  std::ifstream in(NumbersFile(), std::ios::binary);
  unsigned v = 0;
  for (auto _ : state) {
    for (int i = 0; i < kPerIteration; ++i) {
      if (!(in >> v)) {
        in.clear();
        in.seekg(0);
      }
      benchmark::DoNotOptimize(v);
    }
  }
  state.SetItemsProcessed(state.iterations() * kPerIteration);
}

// The writers fill a file of their own up to 10 MB, then start over at its front.
const std::string& OutputFile() {
  static const std::string name =
      (NumbersFile(), std::filesystem::temp_directory_path() / "brelt-bench-written.txt").string();
  return name;
}

template <class Write>
void WriteWith(benchmark::State& state, Write write) {
  const FIO::FileHandle h = FIO::CreateA(High(OutputFile()), OutputFile().c_str(), 0);
  std::mt19937 rng(7);
  brelt::ULong written = 0;
  for (auto _ : state) {
    for (int i = 0; i < kPerIteration; ++i) written += write(h, static_cast<brelt::ULong>(rng()));
    if (written > 10'000'000) FIO::Seek(h, written = 0);
  }
  FIO::Close(h);
  state.SetItemsProcessed(state.iterations() * kPerIteration);
}

void Write_brelt(benchmark::State& state) {
  WriteWith(state, [](FIO::FileHandle h, brelt::ULong v) {
    FIO::WrCard32A(h, v, 11);
    return 11;
  });
}

void Write_write(benchmark::State& state) {
  WriteWith(state, [](FIO::FileHandle h, brelt::ULong v) {
    char text[16] = "           ";
    const auto end = std::to_chars(text + 1, text + sizeof text, v).ptr;
    const auto n = static_cast<brelt::ULong>(end - text);
    FIO::WrBin(h, 0, text, n);
    return n;
  });
}

void Write_fprintf(benchmark::State& state) {
  std::FILE* f = std::fopen(OutputFile().c_str(), "wb");
  std::mt19937 rng(7);
  long written = 0;
  for (auto _ : state) {
    for (int i = 0; i < kPerIteration; ++i) written += std::fprintf(f, "%11u", unsigned(rng()));
    if (written > 10'000'000) std::fseek(f, written = 0, SEEK_SET);
  }
  std::fclose(f);
  std::filesystem::remove(OutputFile());  // the last of the writers
  state.SetItemsProcessed(state.iterations() * kPerIteration);
}

}  // namespace

BENCHMARK(Read_brelt)->Name("RdCard32A/brelt")->Arg(kPerIteration);
BENCHMARK(Read_charwise)->Name("RdCard32A/charwise")->Arg(kPerIteration);
BENCHMARK(Read_fscanf)->Name("RdCard32A/fscanf")->Arg(kPerIteration);
BENCHMARK(Read_ifstream)->Name("RdCard32A/ifstream")->Arg(kPerIteration);
BENCHMARK(Write_brelt)->Name("WrCard32A/brelt")->Arg(kPerIteration);
BENCHMARK(Write_write)->Name("WrCard32A/write")->Arg(kPerIteration);
BENCHMARK(Write_fprintf)->Name("WrCard32A/fprintf")->Arg(kPerIteration);
