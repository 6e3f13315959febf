// The block reader against the character-wise reader, the reference: over random files of
// separators, CR, LF, 26, short and long items and number texts, in both twins, a random
// sequence of every reader with random bounds, Seek (also behind the end) and changed
// separator sets and line ends must give the same results, the same position after every
// call and the same last error.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "fio/token_source.h"
#include "guarded_array.h"
#include "scratch_folder.h"
#include "token_files.h"

namespace {

using brelt::FileHandle, brelt::WChar;
using brelt::fio::ReadWay;
using namespace brelt::test;

template <class T> struct Twin;
template <> struct Twin<char> {
  static constexpr auto RdChar = FIO::RdCharA;
  static constexpr auto RdStr = FIO::RdStrA, RdItem = FIO::RdItemA;
  static unsigned char* Set() { return FIO::SeparatorsA; }
  static void SetEol(char c) { FIO::EOLA = c; }
};
template <> struct Twin<WChar> {
  static constexpr auto RdChar = FIO::RdCharW;
  static constexpr auto RdStr = FIO::RdStrW, RdItem = FIO::RdItemW;
  static unsigned char* Set() { return FIO::SeparatorsW; }
  static void SetEol(char c) { FIO::EOLW = static_cast<unsigned char>(c); }
};

// Mostly characters that steer the reader, digits and number signs.
std::string RandomText(std::mt19937& rng) {
  static const std::string kPieces[] = {" ", "\t", "\r", "\n", "\r\n", "\x1a", "  \r\n\r\n",
                                        "7", "-12", "255", "0x1F", "1E5", "3.5E38", "TRUE",
                                        "FALSE", "ab", ",", ";", "\0"};
  std::string text;
  const unsigned pieces = rng() % 60;
  for (unsigned i = 0; i < pieces; ++i) {
    if (rng() % 8 == 0) {
      text += std::string(rng() % 200, static_cast<char>('a' + rng() % 3));  // a long item
    } else if (rng() % 6 == 0) {
      text += static_cast<char>(rng());
    } else {
      text += kPieces[rng() % std::size(kPieces)];
    }
  }
  return text;
}

template <class T>
class FioReadWays : public ScratchFolder, public Twin<T> {
 protected:
  void TearDown() override {
    brelt::fio::PinReadWay(ReadWay::kBlocks);
    FIO::InitModule();
    ScratchFolder::TearDown();
  }

  // One line per call: what it returned, the last error, then the position.
  std::vector<std::string> Run(ReadWay way, unsigned seed, std::uint64_t size) {
    brelt::fio::PinReadWay(way);
    std::mt19937 rng(seed);
    std::vector<std::string> log;
    const FileHandle h = FIO::OpenA(0, "t", 0);
    for (int step = 0; step < 40; ++step) {
      const unsigned op = rng() % (kReaderCount + 4);
      const unsigned high = rng() % 4 == 0 ? rng() % 300 : rng() % 8;
      std::string what;
      if (op < kReaderCount) {
        unsigned char ok = 7;
        what = kTokenReaders<T>[op](h, &ok) + " ok " + std::to_string(ok);
      } else if (op == kReaderCount) {
        what = std::to_string(this->RdChar(h));
      } else if (op == kReaderCount + 3) {
        FIO::Seek(h, rng() % (size + 4));
      } else {
        GuardedArray<T> dst(high + 1);
        (op == kReaderCount + 1 ? this->RdStr : this->RdItem)(h, high, dst.data());
        what = Stored(dst);
      }
      what += " error " + std::to_string(FIO::IOresult());
      log.push_back(std::to_string(op) + ": " + what + " at " + std::to_string(FIO::GetPos(h)));
    }
    FIO::Close(h);
    return log;
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(FioReadWays, Twins);

TYPED_TEST(FioReadWays, BlocksGiveWhatCharactersGive) {
  std::mt19937 rng(2024);
  for (unsigned file = 0; file < 150; ++file) {
    std::string bytes = RandomText(rng);
    if (sizeof(TypeParam) == 2 && rng() % 2 == 0) bytes = FileBytes<TypeParam>(bytes);
    this->Put("t", bytes);
    FIO::InitModule();
    if (rng() % 3 == 0) {  // any set but one with NUL, which a read behind the end would loop on
      for (unsigned i = 0; i < 16; ++i) this->Set()[i] = static_cast<unsigned char>(rng() & rng());
      this->Set()[0] &= 0xFE;
      this->SetEol(static_cast<char>("\n;a\0"[rng() % 4]));
    }
    const unsigned seed = rng();
    const auto blocks = this->Run(ReadWay::kBlocks, seed, bytes.size());
    const auto chars = this->Run(ReadWay::kCharWise, seed, bytes.size());
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      ASSERT_EQ(blocks[i], chars[i]) << "file " << file << ", call " << i;
    }
  }
}

// Beyond 4 GiB the end-of-file test compares the low 32 bits of position and size, so a
// file of 4 GiB and 7 bytes seems to end at position 7. Both ways read it so.
TYPED_TEST(FioReadWays, EndTestInThirtyTwoBits) {
  const std::string text = FileBytes<TypeParam>("12 34 56 78");
  this->Put("t", text);
  const FileHandle h = FIO::OpenA(0, "t", 0);
  FIO::Seek(h, (std::uint64_t{1} << 32) + 7 * sizeof(TypeParam));
  FIO::Truncate(h);
  ASSERT_EQ(FIO::IOresult(), 0u) << "no sparse file of 4 GiB here";
  FIO::Close(h);
  for (const ReadWay way : {ReadWay::kBlocks, ReadWay::kCharWise}) {
    brelt::fio::PinReadWay(way);
    const FileHandle r = FIO::OpenReadA(0, "t", 0);
    std::string items;
    for (int i = 0; i < 4; ++i) {
      GuardedArray<TypeParam> dst(4);
      this->RdItem(r, 3, dst.data());
      items += Stored(dst) + "@" + std::to_string(FIO::GetPos(r) / sizeof(TypeParam)) + " ";
    }
    EXPECT_EQ(items, std::string("12\0#@3 34\0#@6 5\0##@7 \0###@7 ", 28));
    FIO::Close(r);
  }
}

}  // namespace
