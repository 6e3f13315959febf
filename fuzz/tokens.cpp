// Text tokens: any bytes as a file, read by a sequence of the token readers (characters,
// lines, items, booleans and every number reader, A or W) with Seek between them, under any
// separator set and line end.
// Invariant: the block reader and the character-wise reader, the reference, give the same
// results, the same last error and the same position after every call; no destination is
// written behind its bound.
// The file lives in a scratch folder made once and removed at exit.
//
// Input: the file's bytes; then from the back the twin, whether the separator set and line end
// change (and to what), a seed, and the calls: a reader, its bound, a position for Seek. Calls
// that the input does not spell come from the seed.
#include <brelt/fio.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstring>
#include <random>

#include "fio/token_source.h"
#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;
using brelt::FileHandle;
using brelt::fio::ReadWay;

char g_scratch[] = "/tmp/brelt-tokens-fuzz-XXXXXX";

// The file's name as FIO takes it: drive C is the POSIX root.
const std::string& FileName() {
  static const std::string name = [] {
    if (mkdtemp(g_scratch) == nullptr) Broken("no scratch folder", __FILE__, __LINE__);
    std::atexit([] {
      unlink((std::string(g_scratch) + "/t").c_str());
      rmdir(g_scratch);
    });
    std::string n = "C:" + std::string(g_scratch) + "/t";
    for (char& c : n) c = c == '/' ? '\\' : c;
    return n;
  }();
  return name;
}

unsigned High() { return static_cast<unsigned>(FileName().size() - 1); }

// Every result as bytes, so that reals compare bit for bit.
template <class V>
std::string Bits(V v) {
  return std::string(reinterpret_cast<const char*>(&v), sizeof v);
}

template <class T>
struct Twin;
#define BRELT_READERS(X)                                                                     \
  X(Bool) X(Card8) X(Card16) X(Card32) X(Hex8) X(Hex16) X(Hex32) X(Int8) X(Int16) X(Int32) \
  X(Real) X(LngReal)
#define BRELT_A(name) [](FileHandle h, unsigned char* ok) { return Bits(FIO::Rd##name##A(h, ok)); },
#define BRELT_W(name) [](FileHandle h, unsigned char* ok) { return Bits(FIO::Rd##name##W(h, ok)); },
using Reader = std::string (*)(FileHandle, unsigned char*);
template <>
struct Twin<char> {
  static constexpr Reader kReaders[] = {BRELT_READERS(BRELT_A)};
  static constexpr auto RdChar = FIO::RdCharA;
  static constexpr auto RdStr = FIO::RdStrA, RdItem = FIO::RdItemA;
  static unsigned char* Set() { return FIO::SeparatorsA; }
  static void SetEol(unsigned c) { FIO::EOLA = static_cast<char>(c); }
};
template <>
struct Twin<WChar> {
  static constexpr Reader kReaders[] = {BRELT_READERS(BRELT_W)};
  static constexpr auto RdChar = FIO::RdCharW;
  static constexpr auto RdStr = FIO::RdStrW, RdItem = FIO::RdItemW;
  static unsigned char* Set() { return FIO::SeparatorsW; }
  static void SetEol(unsigned c) { FIO::EOLW = static_cast<WChar>(c); }
};
constexpr unsigned kNumberReaders = 12;

// kNumberReaders readers, then RdChar, RdStr, RdItem and Seek.
struct Call {
  unsigned op;
  unsigned high;
  std::uint64_t pos;
};

template <class T>
std::string Run(ReadWay way, const std::vector<Call>& calls) {
  using Ops = Twin<T>;
  brelt::fio::PinReadWay(way);
  const FileHandle h = FIO::OpenReadA(High(), FileName().c_str(), 0);
  std::string log;
  for (const Call& c : calls) {
    if (c.op < kNumberReaders) {
      unsigned char ok = 7;
      log += Ops::kReaders[c.op](h, &ok) + Bits(ok);
    } else if (c.op == kNumberReaders) {
      log += Bits(Ops::RdChar(h));
    } else if (c.op == kNumberReaders + 3) {
      FIO::Seek(h, c.pos);
    } else {
      Guarded<T> dst(c.high + 1);
      (c.op == kNumberReaders + 1 ? Ops::RdStr : Ops::RdItem)(h, c.high, dst.data());
      log += std::string(reinterpret_cast<const char*>(dst.data()), dst.size() * sizeof(T));
    }
    log += Bits(FIO::IOresult()) + Bits(FIO::GetPos(h)) + "|";
  }
  FIO::Close(h);
  return log;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string bytes = in.ConsumeRandomLengthString(600);
  const FileHandle f = FIO::CreateA(High(), FileName().c_str(), 0);
  FIO::WrBin(f, 0, bytes.data(), static_cast<brelt::ULong>(bytes.size()));
  FIO::Close(f);
  BRELT_FUZZ_CHECK(FIO::IOresult() == 0);

  const bool wide = in.ConsumeBool();
  FIO::InitModule();
  if (in.ConsumeBool()) {
    unsigned char* set = wide ? Twin<WChar>::Set() : Twin<char>::Set();
    for (unsigned i = 0; i < (wide ? 16u : 32u); ++i) set[i] = in.ConsumeIntegral<std::uint8_t>();
    set[0] &= 0xFE;  // NUL separating: a read behind the end would skip it forever
    const unsigned eol = in.ConsumeIntegral<std::uint8_t>();
    if (wide) Twin<WChar>::SetEol(eol); else Twin<char>::SetEol(eol);
  }
  std::minstd_rand rng(in.ConsumeIntegral<std::uint32_t>());
  auto next = [&]() -> unsigned {
    return in.remaining_bytes() > 0 ? in.ConsumeIntegral<std::uint8_t>() : rng() & 0xFF;
  };
  std::vector<Call> calls(24);
  for (Call& c : calls) {
    c.op = next() % (kNumberReaders + 4);
    const unsigned h = next();
    c.high = h < 192 ? h % 9 : h * 2;
    c.pos = next() % (bytes.size() + 4);
  }
  if (wide) {
    BRELT_FUZZ_CHECK(Run<WChar>(ReadWay::kBlocks, calls) == Run<WChar>(ReadWay::kCharWise, calls));
  } else {
    BRELT_FUZZ_CHECK(Run<char>(ReadWay::kBlocks, calls) == Run<char>(ReadWay::kCharWise, calls));
  }
  return 0;
}
