// FIO text writer, both twins with the same rows: the field table with and without ChopOff,
// fill characters, the number writers' texts and their failures, characters written inside a
// file, and a round trip of random values of every type through the readers.
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

using brelt::FileHandle, brelt::WChar, brelt::Long, brelt::ULong;
using brelt::test::GuardedArray;
using SV = std::string_view;
using namespace std::string_view_literals;
using namespace brelt::test;

#define BRELT_WRITERS(X) \
  X(Char) X(CharRep) X(Str) X(StrAdj) X(Ln) X(Bool) X(Card8) X(Card16) X(Card32) X(Hex8) \
  X(Hex16) X(Hex32) X(Int8) X(Int16) X(Int32) X(Real) X(LngReal) X(FixReal) X(FixLngReal)
#define BRELT_A_WRITER(name) static constexpr auto Wr##name = FIO::Wr##name##A;
#define BRELT_W_WRITER(name) static constexpr auto Wr##name = FIO::Wr##name##W;
template <class T> struct Twin;
template <> struct Twin<char> {
  BRELT_WRITERS(BRELT_A_WRITER)
  static void Fill(char prefix, char suffix) { FIO::PrefixCharA = prefix, FIO::SuffixCharA = suffix; }
};
template <> struct Twin<WChar> {
  BRELT_WRITERS(BRELT_W_WRITER)
  static void Fill(char prefix, char suffix) { FIO::PrefixCharW = prefix, FIO::SuffixCharW = suffix; }
};

template <class T>
class FioWriter : public ScratchFolder, public Twin<T> {
 protected:
  void TearDown() override {
    FIO::InitModule();
    ScratchFolder::TearDown();
  }
  // What `write` puts into an empty file, as text.
  std::string Output(const std::function<void(FileHandle)>& write) {
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

TYPED_TEST(FioWriter, Fields) {
  const struct { SV text; Long width; unsigned char chop; SV out; } rows[] = {
      {"abc", 5, 0, "  abc"}, {"abc", -5, 0, "abc  "}, {"abc", 3, 0, "abc"},
      {"abc", 2, 0, "abc"},   {"abc", 0, 0, "abc"},    {"abc", 2, 1, "??"},
      {"abc", -2, 1, "??"},   {"abc", 0, 1, ""},       {"abc", 3, 1, "abc"},
      {"", 4, 0, "    "},     {"", -1, 1, " "},        {"a\0bc"sv, -3, 0, "a  "},
  };
  for (const auto& r : rows) {
    FIO::ChopOff = r.chop;
    const std::string text = std::string(r.text) + '\0';
    GuardedArray<TypeParam> src{SV(text)};
    const std::string out =
        this->Output([&](FileHandle h) { this->WrStrAdj(h, src.high(), src.data(), r.width); });
    EXPECT_EQ(out, r.out) << r.text << " " << r.width << " " << +r.chop;
  }
}

// 300 characters: WrStr writes them all, a field only the first 256; a fill wider than a
// field's one write still comes out whole and in order.
TYPED_TEST(FioWriter, LongTextsAndFills) {
  const std::string text = std::string(255, 'a') + "bc" + std::string(43, 'd');
  GuardedArray<TypeParam> src{SV(text)};
  auto all = [&](FileHandle h) { this->WrStr(h, src.high(), src.data()); };
  EXPECT_EQ(this->Output(all), text);
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrStrAdj(h, src.high(), src.data(), 0); }),
            text.substr(0, 256));
  GuardedArray<TypeParam> xy(SV("xy"));
  for (const Long width : {1000, -1000, 600}) {
    const std::string out =
        this->Output([&](FileHandle h) { this->WrStrAdj(h, xy.high(), xy.data(), width); });
    const std::string fill(std::abs(width) - 2, ' ');
    EXPECT_EQ(out, width > 0 ? fill + "xy" : "xy" + fill) << width;
  }
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrCharRep(h, '*', 200); }), std::string(200, '*'));
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrCharRep(h, '*', 0); }), "");
  FIO::EOLA = ';';
  FIO::EOLW = ';';
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrLn(h); }), "\r\n");
}

// Numbers and booleans in fields; fill characters, including 0 in front of a sign.
TYPED_TEST(FioWriter, Numbers) {
  using F = std::function<void(FileHandle)>;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const bool w = sizeof(TypeParam) == 2;
  const struct { char prefix, suffix; F write; SV out; } rows[] = {
      {'0', ' ', [&](FileHandle h) { this->WrCard16(h, 255, 6); }, "000255"},
      {'0', ' ', [&](FileHandle h) { this->WrHex8(h, 171, 4); }, "00AB"},
      {'0', ' ', [&](FileHandle h) { this->WrInt32(h, -5, 4); }, "00-5"},
      {' ', '*', [&](FileHandle h) { this->WrInt8(h, -128, -6); }, "-128**"},
      {' ', ' ', [&](FileHandle h) { this->WrHex32(h, 0, 0); }, "0"},
      {' ', ' ', [&](FileHandle h) { this->WrHex32(h, 0xFEDCBA98, 0); }, "FEDCBA98"},
      {' ', ' ', [&](FileHandle h) { this->WrCard32(h, 4294967295u, 0); }, "4294967295"},
      {' ', ' ', [&](FileHandle h) { this->WrCard8(h, 255, 2); }, "255"},
      {' ', ' ', [&](FileHandle h) { this->WrInt16(h, -32768, 0); }, "-32768"},
      {' ', ' ', [&](FileHandle h) { this->WrBool(h, 7, -6); }, "TRUE  "},
      {' ', ' ', [&](FileHandle h) { this->WrBool(h, 0, 6); }, " FALSE"},
      {' ', ' ', [&](FileHandle h) { this->WrLngReal(h, 1234.5, 5, 0); }, "1.2345E+3"},
      {' ', ' ', [&](FileHandle h) { this->WrReal(h, 0.1f, 3, 5); }, " 1E-1"},
      {' ', ' ', [&](FileHandle h) { this->WrFixReal(h, 2.5f, 0, 0); }, "3"},
      {' ', ' ', [&](FileHandle h) { this->WrFixLngReal(h, -0.125, 2, 0); }, "-0.13"},
      {' ', ' ', [&](FileHandle h) { this->WrLngReal(h, 1.0, 0, 5); }, ""},  // no digits: fails
      {' ', ' ', [&](FileHandle h) { this->WrLngReal(h, nan, 5, 5); }, ""},
      {'0', ' ', [&](FileHandle h) { this->WrFixLngReal(h, nan, 2, 5); }, w ? "00nan" : ""},
  };
  for (const auto& r : rows) {
    this->Fill(r.prefix, r.suffix);
    EXPECT_EQ(this->Output(r.write), r.out) << r.out;
  }
  FIO::ChopOff = 1;
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrBool(h, 0, 3); }), "???");
  FIO::ChopOff = 0;
  FIO::Eng = 1;
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrLngReal(h, 12345.678, 8, 0); }),
            "12.345678E+3");
  EXPECT_EQ(this->Output([&](FileHandle h) { this->WrFixLngReal(h, 12345.678, 1, 0); }),
            "12345.7");  // only the scientific forms follow Eng
}

// A character at `pos` of `before`: a plain write while at most one character lies behind
// the position, else the file is cut one character further on first.
TYPED_TEST(FioWriter, CharInsideAFile) {
  const struct { SV before; unsigned pos; SV after; unsigned end; } rows[] = {
      {"abcdef", 1, "abX", 3}, {"abc", 1, "abX", 3}, {"abc", 2, "abX", 3},
      {"abc", 3, "abcX", 4},   {"", 0, "X", 1},      {"abc", 5, "abc\0\0\0X"sv, 7},
  };
  for (const auto& r : rows) {
    this->Put("t", FileBytes<TypeParam>(r.before));
    const FileHandle h = FIO::OpenA(0, "t", 0);
    FIO::Seek(h, r.pos * sizeof(TypeParam));
    this->WrChar(h, 'X');
    EXPECT_EQ(FIO::IOresult(), 0u);
    EXPECT_EQ(FIO::GetPos(h), r.end * sizeof(TypeParam)) << r.before << " at " << r.pos;
    FIO::Close(h);
    EXPECT_EQ(FileText<TypeParam>(this->Read("t")), r.after) << r.before << " at " << r.pos;
  }
}

// Random values of every type go out in random fields and come back through the readers;
// reals to the precision of their text (and of a conversion that may miss the last bits).
TYPED_TEST(FioWriter, RoundTrip) {
  std::mt19937_64 rng(11);
  auto bits = [&](int n) { return static_cast<ULong>(rng() >> (64 - n)); };
  auto width = [&] { return static_cast<Long>(rng() % 25) - 12; };
  const FileHandle h = FIO::CreateA(0, "t", 0);
  auto blank = [&] { this->WrCharRep(h, ' ', 1); };
  struct Value { TokenReader op; double v; double tolerance; };
  std::vector<Value> values;
  for (int i = 0; i < 200; ++i) {
    const ULong u = bits(32);
    const double real = std::ldexp(static_cast<double>(bits(53)), static_cast<int>(bits(8)) - 180);
    const unsigned digits = 1 + bits(32) % 17;
    const double fix = static_cast<double>(static_cast<Long>(u)) / 1024;
    const float single = static_cast<float>(std::ldexp(static_cast<double>(bits(24)), static_cast<int>(bits(7)) - 64));
    this->WrCard8(h, static_cast<unsigned char>(u), width()), blank();
    this->WrCard16(h, static_cast<unsigned short>(u), width()), blank();
    this->WrCard32(h, u, width()), blank();
    this->WrHex8(h, static_cast<unsigned char>(u >> 8), width()), blank();
    this->WrHex16(h, static_cast<unsigned short>(u >> 4), width()), blank();
    this->WrHex32(h, u ^ 0x5A5A5A5A, width()), blank();
    this->WrInt8(h, static_cast<signed char>(u), width()), blank();
    this->WrInt16(h, static_cast<short>(u >> 3), width()), blank();
    this->WrInt32(h, static_cast<Long>(u), width()), blank();
    this->WrLn(h);
    this->WrBool(h, static_cast<unsigned char>(u & 1), width()), blank();
    this->WrLngReal(h, real, digits, width()), blank();
    this->WrReal(h, single, 9, width()), blank();
    this->WrFixLngReal(h, fix, 4, width()), blank();
    this->WrLn(h);
    values.insert(values.end(), {
        {kCard8, double(u & 0xFF), 0}, {kCard16, double(u & 0xFFFF), 0}, {kCard32, double(u), 0},
        {kHex8, double((u >> 8) & 0xFF), 0}, {kHex16, double((u >> 4) & 0xFFFF), 0},
        {kHex32, double(u ^ 0x5A5A5A5A), 0}, {kInt8, double(static_cast<signed char>(u)), 0},
        {kInt16, double(static_cast<short>(u >> 3)), 0}, {kInt32, double(static_cast<Long>(u)), 0},
        {kBool, double(u & 1), 0}, {kLngReal, real, real * (std::pow(10.0, 1.0 - digits) + 1e-14)},
        {kReal, single, single * 1e-7}, {kLngReal, fix, 0.5e-4 + std::abs(fix) * 1e-15}});
  }
  EXPECT_EQ(FIO::IOresult(), 0u);
  FIO::Seek(h, 0);
  for (const Value& v : values) {
    unsigned char ok = 0;
    const double back = std::stod(kTokenReaders<TypeParam>[v.op](h, &ok));
    EXPECT_EQ(ok, 1) << v.op << " " << v.v;
    EXPECT_LE(std::abs(back - v.v), v.tolerance) << v.op << " " << v.v;
  }
  FIO::Close(h);
}

}  // namespace
