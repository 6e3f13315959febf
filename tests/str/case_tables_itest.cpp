// The module's case tables: loaded with the Windows-1250 pairs, half replaced by SetTabs, and
// read by no folding operation.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <vector>

#include "str/case_tables.h"

namespace {

using brelt::str::CapTable;
using brelt::str::LowTable;

// The tables are process state: each test puts back what it changed.
class CaseTables : public testing::Test {
 protected:
  void SetUp() override {
    cap_.assign(CapTable(), CapTable() + 256);
    low_.assign(LowTable(), LowTable() + 256);
  }
  void TearDown() override { Str::SetTabs(cap_.data(), low_.data()); }
  std::vector<unsigned short> cap_, low_;
};

TEST_F(CaseTables, HoldTheWindows1250Pairs) {
  // upper, lower: S caron, S acute, L stroke, A ogonek, L caron, Z dot, C caron, E ogonek,
  // O double acute, R caron, and the plain letters.
  struct Row {
    unsigned upper, lower;
  } pairs[] = {{0x8A, 0x9A}, {0x8C, 0x9C}, {0xA3, 0xB3}, {0xA5, 0xB9}, {0xBC, 0xBE},
               {0xAF, 0xBF}, {0xC8, 0xE8}, {0xCA, 0xEA}, {0xD5, 0xF5}, {0xD8, 0xF8},
               {'A', 'a'},   {'Z', 'z'}};
  for (const Row& r : pairs) {
    EXPECT_EQ(CapTable()[r.lower], r.upper) << std::hex << r.lower;
    EXPECT_EQ(CapTable()[r.upper], r.upper) << std::hex << r.upper;
    EXPECT_EQ(LowTable()[r.upper], r.lower) << std::hex << r.upper;
    EXPECT_EQ(LowTable()[r.lower], r.lower) << std::hex << r.lower;
  }
  // Sharp s, the multiplication sign, the dot above and a digit have no partner.
  for (unsigned b : {0xDFu, 0xD7u, 0xFFu, unsigned{'5'}, 0u}) {
    EXPECT_EQ(CapTable()[b], b) << std::hex << b;
    EXPECT_EQ(LowTable()[b], b) << std::hex << b;
  }
}

TEST_F(CaseTables, SetTabsReplacesOnlyTheLowerHalf) {
  std::vector<unsigned short> cap(128), low(128);
  for (unsigned k = 0; k < 128; ++k) {
    cap[k] = static_cast<unsigned short>(0x1000 + k);
    low[k] = static_cast<unsigned short>(0x2000 + k);
  }
  Str::SetTabs(cap.data(), low.data());
  for (unsigned k = 0; k < 128; ++k) {
    ASSERT_EQ(CapTable()[k], 0x1000 + k) << k;
    ASSERT_EQ(LowTable()[k], 0x2000 + k) << k;
  }
  for (unsigned k = 128; k < 256; ++k) {
    ASSERT_EQ(CapTable()[k], cap_[k]) << k;
    ASSERT_EQ(LowTable()[k], low_[k]) << k;
  }
  // Nothing reads them: the folds and InitModule go on as before.
  EXPECT_EQ(Str::CapA('a'), 'A');
  EXPECT_EQ(Str::LowA('Q'), 'q');
  Str::InitModule();
  EXPECT_EQ(CapTable()['a'], 0x1000 + 'a');
}

}  // namespace
