#include "platform/wait.h"

#include "platform/handle.h"

#include <errno.h>
#include <poll.h>
#include <time.h>

#include <cstdint>

namespace brelt::platform {

namespace {

std::int64_t NowMs() {
  timespec ts;
  clock_gettime(CLOCK_MONOTONIC, &ts);
  return static_cast<std::int64_t>(ts.tv_sec) * 1000 + ts.tv_nsec / 1000000;
}

// Milliseconds left until `deadline` as poll takes them; -1 waits for ever.
int Remaining(std::uint32_t timeout, std::int64_t deadline) {
  if (timeout == kWaitInfinite) return -1;
  const std::int64_t left = deadline - NowMs();
  return left <= 0 ? 0 : static_cast<int>(left > 0x7FFFFFFF ? 0x7FFFFFFF : left);
}

// poll with the deadline kept across interruptions. Gives poll's result, or -1 on failure.
int PollUntil(pollfd* fds, std::uint32_t count, std::uint32_t timeout, std::int64_t deadline) {
  for (;;) {
    const int n = poll(fds, count, Remaining(timeout, deadline));
    if (n >= 0 || errno != EINTR) return n;
  }
}

}  // namespace

bool MessageQueueEmpty() { return true; }

std::uint32_t WaitForHandlesOrInput(std::uint32_t count, void** handles, std::uint32_t timeout,
                                    std::uint32_t /*wakeMask*/, std::uint32_t flags) {
  if (count > kMaxWaitHandles) return kWaitFailed;
  const std::int64_t deadline = NowMs() + timeout;
  pollfd fds[kMaxWaitHandles];
  for (std::uint32_t i = 0; i < count; ++i) {
    const int fd = DescriptorOf(handles[i]);
    if (fd < 0) return kWaitFailed;
    fds[i] = pollfd{fd, POLLIN, 0};
  }
  if (count == 0 || (flags & kWaitAllFlag) != 0) {
    // Waiting for all handles also waits for queue input, and that never comes: the call
    // ends by its timeout, as it would on Windows for a thread that receives no input.
    // The handles are still checked, so a bad one fails at once.
    if (count != 0) {
      if (poll(fds, count, 0) < 0) return kWaitFailed;
      for (std::uint32_t i = 0; i < count; ++i) {
        if (fds[i].revents & POLLNVAL) return kWaitFailed;
      }
    }
    for (;;) {
      const int left = Remaining(timeout, deadline);
      if (left == 0) return kWaitTimeout;
      poll(nullptr, 0, left);
    }
  }
  const int n = PollUntil(fds, count, timeout, deadline);
  if (n < 0) return kWaitFailed;
  if (n == 0) return kWaitTimeout;
  for (std::uint32_t i = 0; i < count; ++i) {
    if (fds[i].revents & POLLNVAL) return kWaitFailed;
  }
  for (std::uint32_t i = 0; i < count; ++i) {
    if (fds[i].revents != 0) return kWaitObject0 + i;
  }
  return kWaitTimeout;
}

}  // namespace brelt::platform
