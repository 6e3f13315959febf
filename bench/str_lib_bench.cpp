// Str::LengthA, Str::CharPosA, Lib::ScanR and Lib::Compare beside strnlen, memchr (and
// strchr, which like CharPosA also watches for the terminator) and memcmp; RCharPosA beside
// strrchr (and memrchr, which is given the length), CountA beside std::count,
// Lib::WordCompare beside memcmp, and the 16-bit LengthW and CharPosW beside the standard
// library's char_traits, as the C library has no 16-bit scans on Linux.
// The text is one byte value throughout, so that every call walks the whole input.
#include <brelt/lib.h>
#include <brelt/str.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr long kSizes[] = {16, 256, 64 * 1024};

// An array of n units of one value that stands 16 bytes past a page boundary, where the C
// library's allocator puts a small block, for brelt and its reference alike: a ratio then
// compares code, not where the allocator happened to put two arrays.
template <class Unit>
class Placed {
 public:
  Placed(std::size_t n, Unit value)
      : storage_(n * sizeof(Unit) + 2 * kPage), n_(n) {
    const auto base = reinterpret_cast<std::uintptr_t>(storage_.data());
    data_ = reinterpret_cast<Unit*>((base + kPage - 1) / kPage * kPage + 16);
    std::fill(data_, data_ + n, value);
  }
  Unit* data() { return data_; }
  const Unit* data() const { return data_; }
  std::size_t size() const { return n_; }
  Unit& back() { return data_[n_ - 1]; }

 private:
  static constexpr std::size_t kPage = 4096;
  std::vector<unsigned char> storage_;
  Unit* data_;
  std::size_t n_;
};

Placed<char> Text(std::size_t n) { return Placed<char>(n, 'x'); }

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

// One call of `scan` over a text of the size argument: bytes, or 16-bit units for `Unit`.
template <class Unit, class Scan>
void Walk(benchmark::State& state, Scan scan) {
  const Placed<Unit> s(static_cast<std::size_t>(state.range(0)), Unit('x'));
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(scan(s.data(), s.size()));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0) *
                          static_cast<int64_t>(sizeof(Unit)));
}

using Traits16 = std::char_traits<char16_t>;
using Wide = brelt::WChar;

void RCharPosA_brelt(benchmark::State& state) {
  Walk<char>(state, [](const char* p, std::size_t n) {
    return Str::RCharPosA(static_cast<unsigned>(n - 1), p, 'y');
  });
}
void RCharPosA_memrchr(benchmark::State& state) {
  Walk<char>(state, [](const char* p, std::size_t n) { return memrchr(p, 'y', n); });
}
// strrchr, like RCharPosA, finds the terminator as it goes; the text ends in one here.
void RCharPosA_strrchr(benchmark::State& state) {
  auto s = Text(state.range(0));
  s.back() = '\0';
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(std::strrchr(s.data(), 'y'));
  }
  Done(state);
}
void CountA_brelt(benchmark::State& state) {
  Walk<char>(state, [](const char* p, std::size_t n) {
    return Str::CountA(static_cast<unsigned>(n - 1), p, 'x');
  });
}
void CountA_std_count(benchmark::State& state) {
  Walk<char>(state, [](const char* p, std::size_t n) { return std::count(p, p + n, 'x'); });
}
void WordCompare_brelt(benchmark::State& state) {
  const Placed<char16_t> other(static_cast<std::size_t>(state.range(0)), u'x');
  Walk<char16_t>(state, [&](const char16_t* p, std::size_t n) {
    return Lib::WordCompare(p, other.data(), n);
  });
}
void WordCompare_memcmp(benchmark::State& state) {
  const Placed<char16_t> other(static_cast<std::size_t>(state.range(0)), u'x');
  Walk<char16_t>(state, [&](const char16_t* p, std::size_t n) {
    return std::memcmp(p, other.data(), n * 2);
  });
}
void LengthW_brelt(benchmark::State& state) {
  Walk<Wide>(state, [](const Wide* p, std::size_t n) {
    return Str::LengthW(static_cast<unsigned>(n - 1), p);
  });
}
void LengthW_char_traits(benchmark::State& state) {
  Walk<char16_t>(state, [](const char16_t* p, std::size_t n) {
    return Traits16::find(p, n, u'\0');
  });
}
void CharPosW_brelt(benchmark::State& state) {
  Walk<Wide>(state, [](const Wide* p, std::size_t n) {
    return Str::CharPosW(static_cast<unsigned>(n - 1), p, Wide('y'));
  });
}
void CharPosW_char_traits(benchmark::State& state) {
  Walk<char16_t>(state, [](const char16_t* p, std::size_t n) {
    return Traits16::find(p, n, u'y');
  });
}

// A text of the size argument, its NUL the last, at the start of a 4 KiB array: most bounded
// strings are shorter than the arrays that hold them, so the array's end does not end the scan.
constexpr unsigned kArray = 4096;
template <class Scan>
void InArray(benchmark::State& state, Scan scan) {
  Placed<char> s(kArray, 'x');
  s.data()[state.range(0) - 1] = '\0';
  for (auto _ : state) {
    benchmark::DoNotOptimize(s.data());
    benchmark::DoNotOptimize(scan(s.data()));
  }
  Done(state);
}
void LengthAInArray_brelt(benchmark::State& state) {
  InArray(state, [](const char* p) { return Str::LengthA(kArray - 1, p); });
}
void LengthAInArray_strnlen(benchmark::State& state) {
  InArray(state, [](const char* p) { return strnlen(p, kArray); });
}
void CharPosAInArray_brelt(benchmark::State& state) {
  InArray(state, [](const char* p) { return Str::CharPosA(kArray - 1, p, 'y'); });
}
void CharPosAInArray_strchr(benchmark::State& state) {
  InArray(state, [](const char* p) { return std::strchr(p, 'y'); });
}
void RCharPosAInArray_brelt(benchmark::State& state) {
  InArray(state, [](const char* p) { return Str::RCharPosA(kArray - 1, p, 'y'); });
}
void RCharPosAInArray_strrchr(benchmark::State& state) {
  InArray(state, [](const char* p) { return std::strrchr(p, 'y'); });
}
void TextSizes(benchmark::internal::Benchmark* b) {
  for (long n : {16, 64, 256}) b->Arg(n);
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
BENCHMARK(RCharPosA_brelt)->Name("RCharPosA/brelt")->Apply(Sizes);
BENCHMARK(RCharPosA_memrchr)->Name("RCharPosA/memrchr")->Apply(Sizes);
BENCHMARK(RCharPosA_strrchr)->Name("RCharPosA/strrchr")->Apply(Sizes);
BENCHMARK(CountA_brelt)->Name("CountA/brelt")->Apply(Sizes);
BENCHMARK(CountA_std_count)->Name("CountA/std_count")->Apply(Sizes);
BENCHMARK(WordCompare_brelt)->Name("WordCompare/brelt")->Apply(Sizes);
BENCHMARK(WordCompare_memcmp)->Name("WordCompare/memcmp")->Apply(Sizes);
BENCHMARK(LengthW_brelt)->Name("LengthW/brelt")->Apply(Sizes);
BENCHMARK(LengthW_char_traits)->Name("LengthW/char_traits")->Apply(Sizes);
BENCHMARK(CharPosW_brelt)->Name("CharPosW/brelt")->Apply(Sizes);
BENCHMARK(CharPosW_char_traits)->Name("CharPosW/char_traits")->Apply(Sizes);
BENCHMARK(LengthAInArray_brelt)->Name("LengthA_in_4KiB/brelt")->Apply(TextSizes);
BENCHMARK(LengthAInArray_strnlen)->Name("LengthA_in_4KiB/strnlen")->Apply(TextSizes);
BENCHMARK(CharPosAInArray_brelt)->Name("CharPosA_in_4KiB/brelt")->Apply(TextSizes);
BENCHMARK(CharPosAInArray_strchr)->Name("CharPosA_in_4KiB/strchr")->Apply(TextSizes);
BENCHMARK(RCharPosAInArray_brelt)->Name("RCharPosA_in_4KiB/brelt")->Apply(TextSizes);
BENCHMARK(RCharPosAInArray_strrchr)->Name("RCharPosA_in_4KiB/strrchr")->Apply(TextSizes);

}  // namespace
