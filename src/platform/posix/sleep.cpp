#include "platform/sleep.h"

#include <errno.h>
#include <sched.h>
#include <time.h>

namespace brelt::platform {

void SleepMs(std::uint32_t ms) {
  timespec left{static_cast<time_t>(ms / 1000), static_cast<long>(ms % 1000) * 1000000};
  // A signal handled meanwhile does not cut the wait short.
  while (nanosleep(&left, &left) != 0 && errno == EINTR) {
  }
}

void YieldThread() { sched_yield(); }

}  // namespace brelt::platform
