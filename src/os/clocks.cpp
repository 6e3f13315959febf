// os: the high-resolution clock, the uptime clock with its 64-bit extension, the message-queue
// services, and the module's start-up step.
#include <atomic>
#include <cstdint>

#include "brelt/os.h"
#include "os/clock_state.h"
#include "platform/clock.h"
#include "platform/wait.h"

namespace pf = brelt::platform;

namespace {

unsigned char HiResExists = 0;
std::int64_t HiResHz = 1000;
// LastTick and TickTotal change only under TickLock; TickTotal is read after leaving it, so it
// is atomic to make that read well defined.
std::uint32_t LastTick = 0;
std::atomic<std::uint64_t> TickTotal{0};
pf::TickLock TickLock;

std::uint32_t (*TickSource)() = pf::TickCount;

// The millisecond count extended over its 32-bit wrap: correct as long as two steps lie less
// than 2^32 ms apart.
std::int64_t ExtendedTicks() {
  pf::EnterTickLock(&TickLock);
  const std::uint32_t t = TickSource();
  const std::uint32_t delta = t - LastTick;
  TickTotal.store(TickTotal.load(std::memory_order_relaxed) + delta, std::memory_order_relaxed);
  LastTick = t;
  pf::LeaveTickLock(&TickLock);
  return static_cast<std::int64_t>(TickTotal.load(std::memory_order_relaxed));
}

}  // namespace

namespace brelt::os_clock {

void SetTickSourceForTest(std::uint32_t (*source)()) {
  TickSource = source != nullptr ? source : pf::TickCount;
}

void SetTickStateForTest(std::uint32_t lastTick, std::uint64_t total) {
  pf::EnterTickLock(&TickLock);
  LastTick = lastTick;
  TickTotal.store(total, std::memory_order_relaxed);
  pf::LeaveTickLock(&TickLock);
}

void SetHiResForTest(bool exists, std::int64_t hz) {
  HiResExists = exists ? 1 : 0;
  HiResHz = hz;
}

}  // namespace brelt::os_clock

namespace os {

unsigned int Platform = 0;

void __INIT() {
  Platform = 2;
  LastTick = 0;
  TickTotal.store(0, std::memory_order_relaxed);
  pf::InitTickLock(&TickLock, 100);
  std::int64_t hz = 0;
  if (pf::CounterFrequency(&hz)) {
    HiResExists = 1;
    HiResHz = hz;
  } else {
    HiResExists = 0;
    HiResHz = 1000;
  }
}

unsigned char HiResTimerExists() { return HiResExists; }

brelt::Int64 GetHiResHz() { return HiResHz; }

brelt::Int64 GetHiResTicks() {
  return HiResExists ? pf::CounterReading() : ExtendedTicks();
}

brelt::Int64 GetHiResDifference(brelt::Int64* last) {
  const brelt::Int64 before = *last;
  const brelt::Int64 now = GetHiResTicks();
  *last = now;
  return now - before;
}

// ticks * 1000 wraps in 64 bits, as unsigned arithmetic does.
brelt::Int64 HiResTicksToMS(brelt::Int64 ticks) {
  return static_cast<brelt::Int64>(static_cast<brelt::UInt64>(ticks) * 1000u) / HiResHz;
}

double HiResTicksToLRMS(brelt::Int64 ticks) {
  return static_cast<double>(static_cast<brelt::Int64>(static_cast<brelt::UInt64>(ticks) * 1000u)) /
         static_cast<double>(HiResHz);
}

double HiResTicksToLRS(brelt::Int64 ticks) {
  return static_cast<double>(ticks) / static_cast<double>(HiResHz);
}

unsigned int GetUptimeMS() { return TickSource(); }

brelt::Int64 GetUptimeMS64() { return ExtendedTicks(); }

unsigned char WindowsQueueEmpty() { return pf::MessageQueueEmpty() ? 1 : 0; }

brelt::ULong MsgWaitForMultipleObjectsEx(brelt::ULong count, void** handles,
                                         brelt::ULong timeout, brelt::ULong wakeMask,
                                         brelt::ULong flags) {
  return pf::WaitForHandlesOrInput(count, handles, timeout, wakeMask, flags);
}

}  // namespace os
