// FIO text reader, both twins with the same rows: items and lines with the position behind
// each, characters, separator sets and line ends, every number reader's range edges and the
// end of the file, reading mixed with writing and Seek, a handle that is no file.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"
#include "scratch_folder.h"
#include "token_files.h"

namespace {

using brelt::FileHandle, brelt::WChar, brelt::test::GuardedArray;
using SV = std::string_view;
using namespace std::string_view_literals;
using namespace brelt::test;
struct Token { SV stored; unsigned pos; };  // the array as stored ('#' untouched), position

template <class T>
class FioReader : public ScratchFolder, public TokenTwin<T> {
 protected:
  void TearDown() override {
    FIO::InitModule();
    ScratchFolder::TearDown();
  }
  FileHandle Open(SV text) {
    Put("t", FileBytes<T>(text));
    return FIO::OpenA(0, "t", 0);
  }
  void Expect(void (*read)(FileHandle, unsigned, T*), SV text, const std::vector<Token>& tokens) {
    const FileHandle h = Open(text);
    for (const Token& t : tokens) {
      GuardedArray<T> dst(t.stored.size());
      read(h, dst.high(), dst.data());
      EXPECT_EQ(Stored(dst), t.stored) << text;
      EXPECT_EQ(FIO::IOresult(), 0u) << text;
      EXPECT_EQ(FIO::GetPos(h), t.pos * sizeof(T)) << text << " at " << t.stored;
    }
    FIO::Close(h);
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(FioReader, Twins);

TYPED_TEST(FioReader, ItemsOfFourCharacters) {
  const struct { SV text; std::vector<Token> items; } rows[] = {
      {"12 34\r\n56", {{"12\0#"sv, 3}, {"34\0#"sv, 7}, {"56\0#"sv, 9}, {"\0###"sv, 9}}},
      {"abc", {{"abc\0"sv, 3}, {"\0###"sv, 3}}},
      {"", {{"\0###"sv, 0}}},
      {"  x\ty\r\n\r\n z", {{"x\0##"sv, 4}, {"y\0##"sv, 7}, {"z\0##"sv, 11}, {"\0###"sv, 11}}},
      {"12\rX3\n", {{"12\0#"sv, 4}, {"3\0##"sv, 6}, {"\0###"sv, 6}}},
      {"ab\x1a" "cd", {{"ab\0#"sv, 3}, {"cd\0#"sv, 5}}},
      {"\x1a" "ab ", {{"ab\0#"sv, 4}, {"\0###"sv, 4}}},
      {"abcdefg ", {{"abcd", 4}, {"efg\0"sv, 8}, {"\0###"sv, 8}}},
  };
  for (const auto& r : rows) this->Expect(this->RdItem, r.text, r.items);
}

// Lines of 6 characters. With EOL 0 the 0 that a read at the end leaves ends the line.
TYPED_TEST(FioReader, LinesAndLineEnds) {
  this->Expect(this->RdStr, "ab\r\ncd\ne\rf\x1ag", {{"ab\0###"sv, 4}, {"cd\0###"sv, 7},
      {"ef\0###"sv, 11}, {"g\0\0\0\0\0"sv, 12}, {"\0\0\0\0\0\0"sv, 12}});
  this->Expect(this->RdStr, "long line here\nx",
               {{"long l", 6}, {"ine he", 12}, {"re\0###"sv, 15}, {"x\0\0\0\0\0"sv, 16}});
  this->Expect(this->RdStr, "abcdef\n", {{"abcdef", 6}, {"\0#####"sv, 7}});
  this->SetEol(';');
  this->Expect(this->RdStr, "a\nb;c", {{"ab\0###"sv, 4}, {"c\0\0\0\0\0"sv, 5}});
  this->SetEol('\0');
  this->Expect(this->RdStr, "ab", {{"ab\0###"sv, 2}});
}

// A lone last byte of 16-bit text is a character of its own.
TYPED_TEST(FioReader, Characters) {
  this->Put("t", "\x41\x01\x42");
  const FileHandle h = FIO::OpenA(0, "t", 0);
  const auto want =
      sizeof(TypeParam) == 1 ? std::vector{65u, 1u, 66u, 0u} : std::vector{321u, 66u, 0u};
  for (const unsigned c : want) EXPECT_EQ(this->RdChar(h), c);
  EXPECT_EQ(FIO::GetPos(h), 3u);
  FIO::Close(h);
}

// Each twin has its own set: here the comma separates and the blank does not.
TYPED_TEST(FioReader, SeparatorSets) {
  unsigned char* other = this->Set() == FIO::SeparatorsA ? FIO::SeparatorsW : FIO::SeparatorsA;
  this->Set()[4] = 0, this->Set()[5] = 0x10;
  this->Expect(this->RdItem, "a b,c", {{"a b\0"sv, 4}, {"c\0##"sv, 5}});
  EXPECT_EQ(other[4], 1);
  FIO::InitModule();
  EXPECT_EQ(SV(reinterpret_cast<char*>(this->Set()), 6), "\x00\x26\x00\x04\x01\x00"sv);
}

// Value (as text) and ok of each reader over one item; "" is an empty file. The last bits of
// a large real are the conversion's affair: there only ok is compared.
TYPED_TEST(FioReader, Numbers) {
  const struct { TokenReader op; SV item, value; unsigned char ok; } rows[] = {
      {kCard8, "255", "255", 1}, {kCard8, "256", "0", 0}, {kCard8, "300", "44", 0},
      {kCard8, "1x", "1", 0}, {kCard16, "65535", "65535", 1}, {kCard16, "65536", "0", 0},
      {kCard32, "4294967295", "4294967295", 1}, {kCard32, "4294967296", "0", 0},
      {kCard32, "-1", "1", 0}, {kHex8, "ff", "255", 1}, {kHex8, "100", "0", 0},
      {kHex16, "FFFF", "65535", 1}, {kHex16, "10000", "0", 0}, {kHex32, "1G", "1", 0},
      {kInt8, "-128", "-128", 1}, {kInt8, "127", "127", 1}, {kInt8, "-129", "127", 0},
      {kInt16, "-32768", "-32768", 1}, {kInt16, "32768", "-32768", 0},
      {kInt32, "-2147483647", "-2147483647", 1}, {kInt32, "2147483648", "-2147483648", 0},
      {kReal, "3.4E38", "3.39999995e+38", 1}, {kReal, "-3.5E38", "-inf", 0},
      {kReal, "0E400", "nan", 0}, {kReal, "x", "0", 0}, {kLngReal, "3.5E38", "", 1},
      {kLngReal, "0E400", "nan", 1}, {kBool, "TRUE", "1", 1}, {kBool, "FALSE", "0", 1},
      {kBool, "true", "0", 0}, {kCard8, "", "0", 0}, {kBool, "", "0", 0},
      {kReal, " \r\n", "0", 1}};
  for (const auto& r : rows) {
    const FileHandle h = this->Open(r.item);
    unsigned char ok = 7;
    const std::string value = this->kReaders[r.op](h, &ok);
    EXPECT_TRUE(value == r.value || r.value.empty()) << r.op << " " << r.item << ": " << value;
    EXPECT_EQ(ok, r.ok) << r.op << " " << r.item;
    FIO::Close(h);
  }
}

// Nothing is read ahead: writes and Seek between tokens meet the exact position, and an item
// longer than the 80 characters of a number comes in two pieces.
TYPED_TEST(FioReader, MixedWithWritingAndSeek) {
  const FileHandle h = this->Open("12 34 56 " + std::string(80, '0') + "12345");
  unsigned char ok = 0;
  auto card = [&] { return this->kReaders[kCard32](h, &ok); };
  EXPECT_EQ(card(), "12");
  GuardedArray<TypeParam> nines(SV("99"));
  if constexpr (sizeof(TypeParam) == 1) FIO::WrStrA(h, 1, nines.data());
  else FIO::WrStrW(h, 1, nines.data());
  EXPECT_EQ(card(), "56");
  for (const char* want : {"0", "12345", "0"}) EXPECT_EQ(card(), want);
  FIO::Seek(h, 3 * sizeof(TypeParam));
  EXPECT_EQ(card(), "99");
  FIO::Close(h);
}

// The end test fails on a handle that is no file and every read delivers nothing: an item or
// a line is NULs to the array's end.
TYPED_TEST(FioReader, BadHandle) {
  for (auto read : {this->RdItem, this->RdStr}) {
    GuardedArray<TypeParam> dst(4);
    read(reinterpret_cast<FileHandle>(std::uintptr_t{0x12340}), 3, dst.data());
    EXPECT_EQ(Stored(dst) + std::to_string(FIO::IOresult()), "\0\0\0\0" "6"sv);
  }
}

}  // namespace
