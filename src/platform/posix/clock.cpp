#include "platform/clock.h"

#include <pthread.h>
#include <time.h>

#include <new>

namespace brelt::platform {

namespace {

std::int64_t MonotonicNanoseconds() {
  timespec ts;
  clock_gettime(CLOCK_MONOTONIC, &ts);
  return static_cast<std::int64_t>(ts.tv_sec) * 1000000000 + ts.tv_nsec;
}

struct SpinMutex {
  pthread_mutex_t mutex;
  unsigned spin;
};
static_assert(sizeof(SpinMutex) <= sizeof(TickLock::storage));

SpinMutex* AsMutex(TickLock* lock) { return std::launder(reinterpret_cast<SpinMutex*>(lock->storage)); }

}  // namespace

std::uint32_t TickCount() {
  return static_cast<std::uint32_t>(MonotonicNanoseconds() / 1000000);
}

// The monotonic clock in nanoseconds serves as the counter.
bool CounterFrequency(std::int64_t* hz) {
  *hz = 1000000000;
  return true;
}

std::int64_t CounterReading() { return MonotonicNanoseconds(); }

void InitTickLock(TickLock* lock, unsigned spinCount) {
  SpinMutex* m = new (lock->storage) SpinMutex;
  pthread_mutex_init(&m->mutex, nullptr);
  m->spin = spinCount;
}

void EnterTickLock(TickLock* lock) {
  SpinMutex* m = AsMutex(lock);
  for (unsigned i = 0; i < m->spin; ++i) {
    if (pthread_mutex_trylock(&m->mutex) == 0) return;
  }
  pthread_mutex_lock(&m->mutex);
}

void LeaveTickLock(TickLock* lock) { pthread_mutex_unlock(&AsMutex(lock)->mutex); }

}  // namespace brelt::platform
