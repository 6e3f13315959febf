// Lib::RANDOM and Lib::RAND through the shared library: every draw within its range, and both
// ends of small ranges reached.
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

TEST(LibRandom, DrawsStayWithinTheirRange) {
  for (unsigned range : {1u, 2u, 7u, 65535u, 0x80000001u}) {
    std::set<unsigned> seen;
    for (int k = 0; k < 3000; ++k) {
      const unsigned v = Lib::RANDOM(range);
      ASSERT_LT(v, range) << range;
      seen.insert(v);
    }
    if (range <= 7) {
      EXPECT_EQ(seen.size(), range) << range;
    }
  }
  double low = 1.0, high = 0.0;
  for (int k = 0; k < 3000; ++k) {
    const double r = Lib::RAND();
    ASSERT_GE(r, 0.0);
    ASSERT_LT(r, 1.0);
    low = std::min(low, r), high = std::max(high, r);
  }
  EXPECT_LT(low, 0.01);
  EXPECT_GT(high, 0.99);
}

}  // namespace
