// The module's case tables: loaded with the Windows-1250 pairs, half replaced by SetTabs, and
// read by no folding operation.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <vector>

#include "guarded_array.h"
#include "str/case_tables.h"

namespace {

using brelt::str::CapTable;
using brelt::str::LowTable;

TEST(CaseTables, HoldTheWindows1250Pairs) {
  // S caron, A ogonek, L caron, C caron, the plain letters; then bytes without a partner.
  const unsigned pairs[][2] = {{0x8A, 0x9A}, {0xA5, 0xB9}, {0xBC, 0xBE}, {0xC8, 0xE8}, {'A', 'a'},
                               {0xDF, 0xDF}, {0xD7, 0xD7}, {0xFF, 0xFF}};
  for (const auto& [upper, lower] : pairs) {
    EXPECT_EQ(CapTable()[lower], upper) << std::hex << lower;
    EXPECT_EQ(CapTable()[upper], upper) << std::hex << upper;
    EXPECT_EQ(LowTable()[upper], lower) << std::hex << upper;
    EXPECT_EQ(LowTable()[lower], lower) << std::hex << lower;
  }
}

TEST(CaseTables, SetTabsReplacesOnlyTheLowerHalf) {
  const std::vector<unsigned short> cap0(CapTable(), CapTable() + 256);
  const std::vector<unsigned short> low0(LowTable(), LowTable() + 256);
  // Sources of exactly 128 entries: reading one more faults.
  brelt::test::GuardedArray<unsigned short> cap(128), low(128);
  for (unsigned k = 0; k < 128; ++k) {
    cap[k] = static_cast<unsigned short>(0x1000 + k);
    low[k] = static_cast<unsigned short>(0x2000 + k);
  }
  Str::SetTabs(cap.data(), low.data());
  for (unsigned k = 0; k < 256; ++k) {
    EXPECT_EQ(CapTable()[k], k < 128 ? 0x1000 + k : cap0[k]) << k;
    EXPECT_EQ(LowTable()[k], k < 128 ? 0x2000 + k : low0[k]) << k;
  }
  // Nothing reads them: the folds and InitModule go on as before.
  EXPECT_EQ(Str::CapA('a'), 'A');
  Str::InitModule();
  EXPECT_EQ(CapTable()[unsigned{'a'}], 0x1000 + 'a');
  Str::SetTabs(std::vector<unsigned short>(cap0).data(), std::vector<unsigned short>(low0).data());
}

}  // namespace
