// os clocks through the shared library: what start-up set, readings that move forward and
// agree with each other, and the two queue services without a queue.
#include <brelt/os.h>
#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(OsStartup, PlatformAndCounter) {
  EXPECT_EQ(os::Platform, 2u);
  EXPECT_EQ(os::HiResTimerExists(), 1);
  EXPECT_GT(os::GetHiResHz(), 1000);
}

TEST(OsGetHiResDifference, FromZeroGivesTheWholeReadingThenASmallStep) {
  brelt::Int64 last = 0;
  const brelt::Int64 first = os::GetHiResDifference(&last);
  EXPECT_EQ(first, last);
  EXPECT_GT(first, 0);
  const brelt::Int64 before = last;
  const brelt::Int64 second = os::GetHiResDifference(&last);
  EXPECT_GE(second, 0);
  EXPECT_LT(second, os::GetHiResHz());  // well under a second
  EXPECT_EQ(last, before + second);
}

TEST(OsClocks, MeasureASleepAndAgree) {
  brelt::Int64 last = os::GetHiResTicks();
  const brelt::Int64 uptime = os::GetUptimeMS64();
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  const brelt::Int64 ticks = os::GetHiResDifference(&last);
  const brelt::Int64 ms = os::HiResTicksToMS(ticks);
  EXPECT_GE(ms, 55);
  EXPECT_LT(ms, 5000);
  EXPECT_NEAR(os::HiResTicksToLRMS(ticks), static_cast<double>(ms), 1.0);
  EXPECT_NEAR(os::HiResTicksToLRS(ticks) * 1000.0, os::HiResTicksToLRMS(ticks), 1e-6);
  const brelt::Int64 wide = os::GetUptimeMS64();
  EXPECT_GE(wide - uptime, 50);
  // The 32-bit reading, taken a moment later, is the low part of the extension.
  EXPECT_LT(static_cast<unsigned int>(os::GetUptimeMS() - static_cast<unsigned int>(wide)), 1000u);
}

TEST(OsQueue, FreshThreadHasNoInputAndNoHandlesWaitsForTheTimeout) {
  unsigned char empty = 0;
  std::thread([&] { empty = os::WindowsQueueEmpty(); }).join();
  EXPECT_EQ(empty, 1);
  for (brelt::ULong timeout : {0u, 40u}) {
    const brelt::Int64 start = os::GetUptimeMS64();
    EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(0, nullptr, timeout, 0, 0), 258u) << timeout;
    const brelt::Int64 waited = os::GetUptimeMS64() - start;
    EXPECT_GE(waited + 2, static_cast<brelt::Int64>(timeout)) << timeout;
    EXPECT_LT(waited, 2000) << timeout;
  }
}

}  // namespace
