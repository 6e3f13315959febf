// The 64-bit tick extension and the tick conversions, with the clocks' private state set
// through the test entries.
#include <brelt/os.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "os/clock_state.h"

namespace {

namespace oc = brelt::os_clock;

std::uint32_t g_fakeTick = 0;
std::uint32_t FakeTick() { return g_fakeTick; }

// Puts the clocks back as start-up left them, whatever a test did.
class OsClockState : public testing::Test {
 protected:
  void SetUp() override { oc::SetTickSourceForTest(FakeTick); }
  void TearDown() override {
    oc::SetTickSourceForTest(nullptr);
    os::__INIT();
  }
};

TEST_F(OsClockState, ExtensionAcrossTheWrap) {
  struct Row { std::uint32_t last; std::uint64_t total; std::uint32_t now; std::uint64_t want; }
  rows[] = {
      {0xFFFFFFF0u, 0xFFFFFFF0u, 0x10u, 0x100000010ull},
      {0xFFFFFFFFu, 0x2FFFFFFFFull, 0, 0x300000000ull},  // wrap by one
      {5, 0x100000005ull, 4, 0x200000004ull},            // a step back reads as a wrap
  };
  for (const Row& r : rows) {
    oc::SetTickStateForTest(r.last, r.total);
    g_fakeTick = r.now;
    EXPECT_EQ(static_cast<std::uint64_t>(os::GetUptimeMS64()), r.want) << r.last << "->" << r.now;
    EXPECT_EQ(os::GetUptimeMS(), r.now);
    // The step stored the new count: reading again adds nothing.
    EXPECT_EQ(static_cast<std::uint64_t>(os::GetUptimeMS64()), r.want);
    g_fakeTick = r.now + 7;
    EXPECT_EQ(static_cast<std::uint64_t>(os::GetUptimeMS64()), r.want + 7);
  }
  // Start-up begins the extension at the count itself.
  oc::SetTickStateForTest(0x1000, 0x77777777);
  os::__INIT();
  oc::SetTickSourceForTest(FakeTick);
  g_fakeTick = 0x20;
  EXPECT_EQ(os::GetUptimeMS64(), 0x20);
}

TEST_F(OsClockState, ConversionsAtTenMegahertz) {
  oc::SetHiResForTest(true, 10000000);
  struct Row { brelt::Int64 ticks, ms; double lrms, lrs; } rows[] = {
      {12345678, 1234, 1234.5678, 1.2345678},
      {-15000, -1, -1.5, -0.0015},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(os::HiResTicksToMS(r.ticks), r.ms) << r.ticks;
    EXPECT_DOUBLE_EQ(os::HiResTicksToLRMS(r.ticks), r.lrms) << r.ticks;
    EXPECT_DOUBLE_EQ(os::HiResTicksToLRS(r.ticks), r.lrs) << r.ticks;
  }
  // ticks * 1000 wraps in 64 bits before the division.
  const std::uint64_t big = UINT64_C(0x0010000000000000);
  EXPECT_EQ(os::HiResTicksToMS(static_cast<brelt::Int64>(big)),
            static_cast<brelt::Int64>(big * 1000u) / 10000000);
}

TEST_F(OsClockState, WithoutACounterTicksAreExtendedMilliseconds) {
  oc::SetHiResForTest(false, 1000);
  oc::SetTickStateForTest(0xFFFFFF00u, 0xFFFFFF00u);
  EXPECT_EQ(os::HiResTimerExists(), 0);
  EXPECT_EQ(os::GetHiResHz(), 1000);
  g_fakeTick = 0x00000100u;
  EXPECT_EQ(os::GetHiResTicks(), INT64_C(0x100000100));
  brelt::Int64 last = INT64_C(0x100000100);
  g_fakeTick = 0x00000200u;
  EXPECT_EQ(os::GetHiResDifference(&last), 0x100);
  EXPECT_EQ(last, INT64_C(0x100000200));
  EXPECT_EQ(os::HiResTicksToMS(123456789), 123456789);
}

}  // namespace
