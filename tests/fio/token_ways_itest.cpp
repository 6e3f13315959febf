// The block reader against the character-wise reader, the reference: over random files of
// separators, CR, LF, 26, short and long items and numbers, both twins, random sequences of
// every reader with random bounds, Seek (also behind the end) and changed separator sets and
// line ends give the same results, last error and position after every call.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fio/token_source.h"
#include "guarded_array.h"
#include "scratch_folder.h"
#include "token_files.h"

namespace {

using brelt::FileHandle, brelt::WChar, brelt::fio::ReadWay;
using namespace brelt::test;
using namespace std::string_view_literals;

std::string RandomText(std::mt19937& rng) {
  static const std::string kPieces[] = {" ", "\t", "\r", "\n", "\r\n", "\x1a", "  \r\n\r\n", "7",
                                        "-12", "255", "1E5", "3.5E38", "TRUE", ",", ";", "ab"};
  std::string text;
  for (unsigned i = rng() % 60; i > 0; --i) {
    const unsigned pick = rng() % 24;
    text += pick < 2   ? std::string(rng() % 200, 'a')  // a long item
            : pick < 6 ? std::string(1, static_cast<char>(rng()))
                       : kPieces[pick % std::size(kPieces)];
  }
  return text;
}

template <class T>
class FioReadWays : public ScratchFolder, public TokenTwin<T> {
 protected:
  void TearDown() override {
    brelt::fio::PinReadWay(ReadWay::kBlocks);
    FIO::InitModule();
    ScratchFolder::TearDown();
  }
  // One line per call: what it returned, the last error, the position.
  std::vector<std::string> Run(ReadWay way, unsigned seed, std::uint64_t size) {
    brelt::fio::PinReadWay(way);
    std::mt19937 rng(seed);
    std::vector<std::string> log;
    const FileHandle h = FIO::OpenA(0, "t", 0);
    for (int step = 0; step < 40; ++step) {
      const unsigned op = rng() % (kReaderCount + 4), high = rng() % 4 ? rng() % 8 : rng() % 300;
      unsigned char ok = 7;
      GuardedArray<T> dst(high + 1);
      std::string what;
      if (op < kReaderCount) what = this->kReaders[op](h, &ok) + " ok " + std::to_string(ok);
      if (op == kReaderCount) what = std::to_string(this->RdChar(h));
      if (op == kReaderCount + 1) this->RdStr(h, high, dst.data()), what = Stored(dst);
      if (op == kReaderCount + 2) this->RdItem(h, high, dst.data()), what = Stored(dst);
      if (op == kReaderCount + 3) FIO::Seek(h, rng() % (size + 4));
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
    const std::string text = RandomText(rng);
    this->Put("t", rng() % 2 ? FileBytes<TypeParam>(text) : text);
    FIO::InitModule();
    if (rng() % 3 == 0) {  // any set without NUL, which a read behind the end would skip forever
      for (unsigned i = 0; i < 16; ++i) this->Set()[i] = static_cast<unsigned char>(rng() & rng());
      this->Set()[0] &= 0xFE;
      this->SetEol("\n;a\0"[rng() % 4]);
    }
    const unsigned seed = rng();
    const auto blocks = this->Run(ReadWay::kBlocks, seed, text.size() * 2);
    const auto chars = this->Run(ReadWay::kCharWise, seed, text.size() * 2);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      ASSERT_EQ(blocks[i], chars[i]) << "file " << file << ", call " << i;
    }
  }
}

// Beyond 4 GiB the end test compares the low 32 bits of position and size, so a file of
// 4 GiB and 7 characters seems to end at character 7. Both ways read it so.
TYPED_TEST(FioReadWays, EndTestInThirtyTwoBits) {
  this->Put("t", FileBytes<TypeParam>("12 34 56 78"));
  const FileHandle h = FIO::OpenA(0, "t", 0);
  FIO::Seek(h, (std::uint64_t{1} << 32) + 7 * sizeof(TypeParam));
  FIO::Truncate(h);
  ASSERT_EQ(FIO::IOresult(), 0u) << "no sparse file of 4 GiB here";
  for (const ReadWay way : {ReadWay::kBlocks, ReadWay::kCharWise}) {
    brelt::fio::PinReadWay(way);
    FIO::Seek(h, 0);
    for (const std::string_view want : {"12\0#@3"sv, "34\0#@6"sv, "5\0##@7"sv, "\0###@7"sv}) {
      GuardedArray<TypeParam> dst(4);
      this->RdItem(h, 3, dst.data());
      EXPECT_EQ(Stored(dst) + "@" + std::to_string(FIO::GetPos(h) / sizeof(TypeParam)), want);
    }
  }
  FIO::Close(h);
}

}  // namespace
