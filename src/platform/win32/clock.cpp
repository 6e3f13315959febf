#include "platform/clock.h"

#include <windows.h>

#include <new>

namespace brelt::platform {

static_assert(sizeof(CRITICAL_SECTION) <= sizeof(TickLock::storage));

namespace {
CRITICAL_SECTION* AsSection(TickLock* lock) {
  return std::launder(reinterpret_cast<CRITICAL_SECTION*>(lock->storage));
}
}  // namespace

std::uint32_t TickCount() { return GetTickCount(); }

bool CounterFrequency(std::int64_t* hz) {
  LARGE_INTEGER f;
  if (!QueryPerformanceFrequency(&f)) return false;
  *hz = f.QuadPart;
  return true;
}

std::int64_t CounterReading() {
  LARGE_INTEGER c;
  QueryPerformanceCounter(&c);
  return c.QuadPart;
}

void InitTickLock(TickLock* lock, unsigned spinCount) {
  InitializeCriticalSectionAndSpinCount(new (lock->storage) CRITICAL_SECTION, spinCount);
}

void EnterTickLock(TickLock* lock) { EnterCriticalSection(AsSection(lock)); }
void LeaveTickLock(TickLock* lock) { LeaveCriticalSection(AsSection(lock)); }

}  // namespace brelt::platform
