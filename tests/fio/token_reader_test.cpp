// FIO text reader, both twins with the same rows: items, lines and characters with the
// position behind each, the separator set and line end, every number reader's range edges,
// the end of the file, a bad handle, and reading mixed with writing and Seek.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"
#include "scratch_folder.h"
#include "token_files.h"

namespace {

using brelt::FileHandle, brelt::WChar, brelt::test::GuardedArray, brelt::test::FileBytes;
using SV = std::string_view;
using namespace std::string_view_literals;
using namespace brelt::test;
struct Token { SV stored; brelt::UInt64 pos; };  // the array as stored ('#' untouched)

template <class T> struct Twin;
template <> struct Twin<char> {
  static constexpr auto RdItem = FIO::RdItemA, RdStr = FIO::RdStrA;
  static constexpr auto RdChar = FIO::RdCharA;
  static unsigned char* Set() { return FIO::SeparatorsA; }
  static void SetEol(char c) { FIO::EOLA = c; }
};
template <> struct Twin<WChar> {
  static constexpr auto RdItem = FIO::RdItemW, RdStr = FIO::RdStrW;
  static constexpr auto RdChar = FIO::RdCharW;
  static unsigned char* Set() { return FIO::SeparatorsW; }
  static void SetEol(char c) { FIO::EOLW = static_cast<WChar>(c); }
};

template <class T>
class FioReader : public ScratchFolder, public Twin<T> {
 protected:
  void TearDown() override {
    FIO::InitModule();
    ScratchFolder::TearDown();
  }
  FileHandle Open(SV text) {
    Put("t", FileBytes<T>(text));
    return FIO::OpenA(0, "t", 0);
  }
  // Reads the rows' tokens one after the other into arrays of high + 1 elements.
  void Expect(void (*read)(FileHandle, unsigned, T*), SV text, unsigned high,
              const std::vector<Token>& tokens) {
    const FileHandle h = Open(text);
    for (const Token& t : tokens) {
      GuardedArray<T> dst(high + 1);
      read(h, high, dst.data());
      EXPECT_EQ(Stored(dst), t.stored) << text;
      EXPECT_EQ(FIO::GetPos(h), t.pos * sizeof(T)) << text << " at " << t.stored;
      EXPECT_EQ(FIO::IOresult(), 0u) << text;
    }
    FIO::Close(h);
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(FioReader, Twins);

TYPED_TEST(FioReader, Items) {
  const struct { SV text; std::vector<Token> items; } rows[] = {
      {"12 34\r\n56", {{"12\0#"sv, 3}, {"34\0#"sv, 7}, {"56\0#"sv, 9}, {"\0###"sv, 9}}},
      {"12\r\n", {{"12\0#"sv, 4}, {"\0###"sv, 4}}},
      {"abc", {{"abc\0"sv, 3}, {"\0###"sv, 3}}},
      {"", {{"\0###"sv, 0}}},
      {"  x\ty\r\n\r\n z", {{"x\0##"sv, 4}, {"y\0##"sv, 7}, {"z\0##"sv, 11}, {"\0###"sv, 11}}},
      {"12\rX3\n", {{"12\0#"sv, 4}, {"3\0##"sv, 6}, {"\0###"sv, 6}}},
      {"ab\x1a" "cd", {{"ab\0#"sv, 3}, {"cd\0#"sv, 5}, {"\0###"sv, 5}}},
      {"\x1a" "ab ", {{"ab\0#"sv, 4}, {"\0###"sv, 4}}},
      {"abcdefg ", {{"abcd", 4}, {"efg\0"sv, 8}, {"\0###"sv, 8}}},
      {"a\rb", {{"a\0##"sv, 3}, {"\0###"sv, 3}}},   // the CR takes the b along
      {"\r\na", {{"a\0##"sv, 3}}},               // a CR in front of an item is a separator
  };
  for (const auto& r : rows) this->Expect(this->RdItem, r.text, 3, r.items);
}

TYPED_TEST(FioReader, Lines) {
  const struct { SV text; std::vector<Token> lines; } rows[] = {
      {"ab\r\ncd\ne\rf\x1ag", {{"ab\0###"sv, 4}, {"cd\0###"sv, 7}, {"ef\0###"sv, 11},
                               {"g\0\0\0\0\0"sv, 12}, {"\0\0\0\0\0\0"sv, 12}}},
      {"long line here\nx", {{"long l", 6}, {"ine he", 12}, {"re\0###"sv, 15}, {"x\0\0\0\0\0"sv, 16}}},
      {"abcdef\n", {{"abcdef", 6}, {"\0#####"sv, 7}}},
  };
  for (const auto& r : rows) this->Expect(this->RdStr, r.text, 5, r.lines);
  this->SetEol(';');  // LF is then dropped like CR
  this->Expect(this->RdStr, "a\nb;c", 5, {{"ab\0###"sv, 4}, {"c\0\0\0\0\0"sv, 5}});
  this->SetEol('\0');
  this->Expect(this->RdStr, "ab", 5, {{"ab\0###"sv, 2}});  // the 0 of the end
}

// Each set is its own: a change to one leaves the other twin's alone.
TYPED_TEST(FioReader, SeparatorSets) {
  unsigned char* other = this->Set() == FIO::SeparatorsA ? FIO::SeparatorsW : FIO::SeparatorsA;
  for (unsigned char* set : {this->Set(), other}) {
    set[4] &= ~1u;        // the blank out
    set[5] |= 1u << 4;    // the comma in
  }
  other[4] |= 1u;
  this->Expect(this->RdItem, "a b,c", 3, {{"a b\0"sv, 4}, {"c\0##"sv, 5}});
  FIO::InitModule();
  const unsigned char start[] = {0x00, 0x26, 0x00, 0x04, 0x01, 0x00};
  EXPECT_EQ(SV(reinterpret_cast<char*>(this->Set()), 6), SV(reinterpret_cast<const char*>(start), 6));
  this->Expect(this->RdItem, "a b,c", 3, {{"a\0##"sv, 2}, {"b,c\0"sv, 5}});
}

// One read each; a lone last byte of 16-bit text is a character of its own.
TYPED_TEST(FioReader, Chars) {
  const FileHandle h = this->Open("a\r\x1a");
  for (const unsigned c : {97, 13, 26, 0, 0}) EXPECT_EQ(this->RdChar(h), c);
  EXPECT_EQ(FIO::GetPos(h), 3 * sizeof(TypeParam));
  FIO::Close(h);
  this->Put("t", "\x41\x01\x42");
  const FileHandle odd = FIO::OpenA(0, "t", 0);
  const std::vector<unsigned> want = sizeof(TypeParam) == 1 ? std::vector{0x41u, 0x01u, 0x42u}
                                                            : std::vector{0x141u, 0x42u};
  for (const unsigned c : want) EXPECT_EQ(this->RdChar(odd), c);
  EXPECT_EQ(FIO::GetPos(odd), 3u);
  FIO::Close(odd);
}

// Value (as text) and ok of each reader over one item; "" is an empty file. The last bits of
// a large real are the conversion's affair: there only ok is compared.
TYPED_TEST(FioReader, Numbers) {
  const struct { TokenReader op; SV item; SV value; unsigned char ok; } rows[] = {
      {kCard8, "255", "255", 1},        {kCard8, "256", "0", 0},
      {kCard8, "300", "44", 0},         {kCard8, "1x", "1", 0},
      {kCard16, "65535", "65535", 1},   {kCard16, "65536", "0", 0},
      {kCard32, "4294967295", "4294967295", 1}, {kCard32, "4294967296", "0", 0},
      {kCard32, "-1", "1", 0},          {kCard32, "+7", "7", 1},
      {kHex8, "ff", "255", 1},          {kHex8, "100", "0", 0},
      {kHex16, "FFFF", "65535", 1},     {kHex16, "10000", "0", 0},
      {kHex32, "FFFFFFFF", "4294967295", 1}, {kHex32, "1G", "1", 0},
      {kInt8, "-128", "-128", 1},       {kInt8, "127", "127", 1},
      {kInt8, "128", "-128", 0},        {kInt8, "-129", "127", 0},
      {kInt16, "-32768", "-32768", 1},  {kInt16, "32768", "-32768", 0},
      {kInt32, "-2147483648", "-2147483648", 0}, {kInt32, "2147483648", "-2147483648", 0},
      {kInt32, "-2147483647", "-2147483647", 1},
      {kReal, "3.4E38", "3.39999995e+38", 1}, {kReal, "3.5E38", "inf", 0},
      {kReal, "-3.5E38", "-inf", 0},    {kReal, "0E400", "nan", 0},
      {kReal, "1.5", "1.5", 1},         {kReal, "x", "0", 0},
      {kLngReal, "3.5E38", "", 1}, {kLngReal, "0E400", "nan", 1},
      {kBool, "TRUE", "1", 1},          {kBool, "FALSE", "0", 1},
      {kBool, "YES", "0", 0},           {kBool, "true", "0", 0},
      {kCard8, "", "0", 0},             {kInt32, "", "0", 0},
      {kBool, "", "0", 0},              {kReal, "", "0", 1},
      {kLngReal, " \r\n", "0", 1},
  };
  for (const auto& r : rows) {
    const FileHandle h = this->Open(r.item);
    unsigned char ok = 7;
    const std::string value = kTokenReaders<TypeParam>[r.op](h, &ok);
    if (!r.value.empty()) {
      EXPECT_EQ(value, r.value) << r.op << " " << r.item;
    }
    EXPECT_EQ(ok, r.ok) << r.op << " " << r.item;
    FIO::Close(h);
  }
}

// An item of 85 digits comes in two pieces: 80 characters, then the rest.
TYPED_TEST(FioReader, LongNumberInPieces) {
  const FileHandle h = this->Open(std::string(80, '0') + "12345 6");
  unsigned char ok = 7;
  EXPECT_EQ(kTokenReaders<TypeParam>[kCard32](h, &ok), "0");
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(kTokenReaders<TypeParam>[kCard32](h, &ok), "12345");
  EXPECT_EQ(kTokenReaders<TypeParam>[kCard32](h, &ok), "6");
  FIO::Close(h);
}

// Nothing is read ahead: writing and seeking between tokens see the exact position.
TYPED_TEST(FioReader, MixedWithWritingAndSeek) {
  const FileHandle h = this->Open("12 34 56");
  unsigned char ok = 0;
  auto card = [&] { return kTokenReaders<TypeParam>[kCard16](h, &ok); };
  EXPECT_EQ(card(), "12");
  GuardedArray<TypeParam> nines(SV("99"));
  if constexpr (sizeof(TypeParam) == 1) FIO::WrStrA(h, 1, nines.data());
  else FIO::WrStrW(h, 1, nines.data());
  EXPECT_EQ(card(), "56");
  FIO::Seek(h, 3 * sizeof(TypeParam));
  EXPECT_EQ(card(), "99");
  FIO::Close(h);
  EXPECT_EQ(this->Read("t"), FileBytes<TypeParam>("12 99 56"));
}

// The end-of-file test fails on a handle that is no file: the reads deliver nothing, so an
// item or a line is NULs up to the array's end.
TYPED_TEST(FioReader, BadHandle) {
  const auto bad = reinterpret_cast<FileHandle>(std::uintptr_t{0x12340});
  for (auto read : {this->RdItem, this->RdStr}) {
    GuardedArray<TypeParam> dst(4);
    read(bad, 3, dst.data());
    EXPECT_EQ(Stored(dst), "\0\0\0\0"sv);
    EXPECT_EQ(FIO::IOresult(), 6u);
  }
  EXPECT_EQ(this->RdChar(bad), 0);
}

}  // namespace
