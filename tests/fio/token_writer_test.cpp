// FIO text writer, both twins with the same rows: the field table with and without ChopOff,
// fill characters, number texts and failed conversions, a character written inside a file,
// and a round trip of random values of every type through the readers.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "guarded_array.h"
#include "scratch_folder.h"
#include "token_files.h"

namespace {

using brelt::FileHandle, brelt::WChar, brelt::Long, brelt::ULong, brelt::test::GuardedArray;
using SV = std::string_view;
using namespace std::string_view_literals;
using namespace brelt::test;
using Write = std::function<void(FileHandle)>;

#define BRELT_WRITERS(X) X(Char) X(CharRep) X(Str) X(StrAdj) X(Ln) X(Bool) X(Card8) X(Card16) \
  X(Card32) X(Hex8) X(Hex16) X(Hex32) X(Int8) X(Int16) X(Int32) X(Real) X(LngReal) X(FixReal) \
  X(FixLngReal)
#define BRELT_A_WRITER(name) static constexpr auto Wr##name = FIO::Wr##name##A;
#define BRELT_W_WRITER(name) static constexpr auto Wr##name = FIO::Wr##name##W;
template <class T> struct Twin;
template <> struct Twin<char> {
  BRELT_WRITERS(BRELT_A_WRITER)
  static void Fill(char prefix, char suffix) {
    FIO::PrefixCharA = prefix, FIO::SuffixCharA = suffix;
  }
};
template <> struct Twin<WChar> {
  BRELT_WRITERS(BRELT_W_WRITER)
  static void Fill(char prefix, char suffix) {
    FIO::PrefixCharW = prefix, FIO::SuffixCharW = suffix;
  }
};

template <class T>
class FioWriter : public ScratchFolder, public Twin<T>, public TokenTwin<T> {
 protected:
  void TearDown() override {
    FIO::InitModule();
    ScratchFolder::TearDown();
  }
  // What `write` puts into a new file, as text.
  std::string Output(const Write& write) {
    std::filesystem::remove(Native("t"));
    const FileHandle h = FIO::CreateA(0, "t", 0);
    write(h);
    EXPECT_EQ(FIO::IOresult(), 0u);
    FIO::Close(h);
    return FileText<T>(Read("t"));
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(FioWriter, Twins);

// Texts held in arrays that end at the NUL; 300 characters are cut to a field's 256.
TYPED_TEST(FioWriter, Fields) {
  const std::string long300 = std::string(256, 'a') + std::string(44, 'b');
  const struct { std::string text; Long width; unsigned char chop; std::string out; } rows[] = {
      {"abc", 5, 0, "  abc"}, {"abc", -5, 0, "abc  "}, {"abc", 2, 0, "abc"}, {"abc", 0, 0, "abc"},
      {"abc", 2, 1, "??"}, {"abc", -2, 1, "??"}, {"abc", 0, 1, ""}, {"abc", 3, 1, "abc"},
      {"", 4, 0, "    "}, {"xy", -600, 0, "xy" + std::string(598, ' ')},
      {long300, 0, 0, long300.substr(0, 256)}, {long300, 257, 0, ' ' + long300.substr(0, 256)}};
  for (const auto& r : rows) {
    FIO::ChopOff = r.chop;
    GuardedArray<TypeParam> src{SV(r.text.c_str(), r.text.size() + 1)};
    const Write write = [&](FileHandle h) { this->WrStrAdj(h, src.high(), src.data(), r.width); };
    EXPECT_EQ(this->Output(write), r.out) << r.text.size() << " " << r.width << " " << +r.chop;
  }
  GuardedArray<TypeParam> src{SV(long300)};
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrStr(h, src.high(), src.data()); }), long300);
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrCharRep(h, '*', 200); }),
            std::string(200, '*'));
  FIO::EOLA = ';';
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrLn(h); }), "\r\n");
}

TYPED_TEST(FioWriter, Numbers) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const bool wide = sizeof(TypeParam) == 2;
  const struct { char prefix, suffix; unsigned char eng; Write write; SV out; } rows[] = {
      {'0', ' ', 0, [&](FileHandle h) { this->WrCard16(h, 255, 6); }, "000255"},
      {'0', ' ', 0, [&](FileHandle h) { this->WrHex8(h, 171, 4); }, "00AB"},
      {'0', ' ', 0, [&](FileHandle h) { this->WrInt32(h, -5, 4); }, "00-5"},
      {' ', '*', 0, [&](FileHandle h) { this->WrInt8(h, -128, -6); }, "-128**"},
      {' ', ' ', 0, [&](FileHandle h) { this->WrHex32(h, 0, 0); }, "0"},
      {' ', ' ', 0, [&](FileHandle h) { this->WrBool(h, 7, -6); }, "TRUE  "},
      {' ', ' ', 0, [&](FileHandle h) { this->WrBool(h, 0, 6); }, " FALSE"},
      {' ', ' ', 0, [&](FileHandle h) { this->WrReal(h, 0.1f, 3, 5); }, " 1E-1"},
      {' ', ' ', 1, [&](FileHandle h) { this->WrLngReal(h, 12345.678, 8, 0); }, "12.345678E+3"},
      {' ', ' ', 1, [&](FileHandle h) { this->WrFixLngReal(h, -0.125, 2, 0); }, "-0.13"},
      {' ', ' ', 0, [&](FileHandle h) { this->WrFixReal(h, 2.5f, 0, 3); }, "  3"},
      {' ', ' ', 0, [&](FileHandle h) { this->WrLngReal(h, 1.0, 0, 5); }, ""},  // no digits
      {'0', ' ', 0, [&](FileHandle h) { this->WrLngReal(h, nan, 5, 5); }, ""},
      {'0', ' ', 0, [&](FileHandle h) { this->WrFixLngReal(h, nan, 2, 5); }, wide ? "00nan" : ""}};
  for (const auto& r : rows) {
    this->Fill(r.prefix, r.suffix);
    FIO::Eng = r.eng;
    EXPECT_EQ(this->Output(r.write), r.out) << r.out;
  }
  FIO::ChopOff = 1;
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrBool(h, 0, 3); }), "???");
}

// A plain write while at most one character lies behind the position; else the file is cut
// one character further on first.
TYPED_TEST(FioWriter, CharInsideAFile) {
  const struct { SV before; unsigned pos; SV after; } rows[] = {
      {"abcdef", 1, "abX"}, {"abc", 2, "abX"}, {"abc", 3, "abcX"}, {"abc", 5, "abc\0\0\0X"sv}};
  for (const auto& r : rows) {
    this->Put("t", FileBytes<TypeParam>(r.before));
    const FileHandle h = FIO::OpenA(0, "t", 0);
    FIO::Seek(h, r.pos * sizeof(TypeParam));
    this->WrChar(h, 'X');
    EXPECT_EQ(FIO::GetPos(h), r.after.size() * sizeof(TypeParam)) << r.before << " at " << r.pos;
    FIO::Close(h);
    EXPECT_EQ(FileText<TypeParam>(this->Read("t")), r.after) << r.before << " at " << r.pos;
  }
}

// Random values of every type go out in random fields and come back through the readers;
// reals to the precision of their text (and of a conversion that may miss the last bits).
TYPED_TEST(FioWriter, RoundTrip) {
  std::mt19937_64 rng(11);
  auto bits = [&](int n) { return static_cast<ULong>(rng() >> (64 - n)); };
  const FileHandle h = FIO::CreateA(0, "t", 0);
  auto field = [&] { this->WrCharRep(h, ' ', 1); return static_cast<Long>(rng() % 25) - 12; };
  struct Value { TokenReader op; double v, tolerance; };
  std::vector<Value> values;
  for (int i = 0; i < 200; ++i) {
    const ULong u = bits(32);
    const double real = std::ldexp(static_cast<double>(bits(53)), static_cast<int>(bits(8)) - 180);
    const unsigned digits = 1 + bits(32) % 17;
    const double fix = static_cast<Long>(u) / 1024.0;
    const float single = std::ldexp(static_cast<float>(bits(24)), static_cast<int>(bits(7)) - 64);
    this->WrCard8(h, u & 0xFF, field()), this->WrCard16(h, u >> 16, field());
    this->WrCard32(h, u, field()), this->WrHex8(h, u >> 24, field());
    this->WrHex16(h, u & 0xFFFF, field()), this->WrHex32(h, ~u, field());
    this->WrInt8(h, static_cast<signed char>(u), field()), this->WrLn(h);
    this->WrInt16(h, static_cast<short>(u >> 8), field());
    this->WrInt32(h, static_cast<Long>(u), field());
    this->WrBool(h, u & 1, field()), this->WrLngReal(h, real, digits, field());
    this->WrReal(h, single, 9, field()), this->WrFixLngReal(h, fix, 4, field());
    values.insert(values.end(), {{kCard8, double(u & 0xFF), 0}, {kCard16, double(u >> 16), 0},
        {kCard32, double(u), 0}, {kHex8, double(u >> 24), 0}, {kHex16, double(u & 0xFFFF), 0},
        {kHex32, double(~u), 0}, {kInt8, double(static_cast<signed char>(u)), 0},
        {kInt16, double(static_cast<short>(u >> 8)), 0}, {kInt32, double(static_cast<Long>(u)), 0},
        {kBool, double(u & 1), 0}, {kLngReal, real, real * (std::pow(10.0, 1.0 - digits) + 1e-14)},
        {kReal, single, single * 1e-7}, {kLngReal, fix, 0.5e-4 + std::abs(fix) * 1e-15}});
  }
  FIO::Seek(h, 0);
  for (const Value& v : values) {
    unsigned char ok = 0;
    const double back = std::stod(this->kReaders[v.op](h, &ok));
    EXPECT_EQ(ok, 1) << v.op << " " << v.v;
    EXPECT_LE(std::abs(back - v.v), v.tolerance) << v.op << " " << v.v;
  }
  FIO::Close(h);
}

}  // namespace
