#include "platform/heap.h"

#include <malloc.h>
#include <unistd.h>

namespace brelt::platform {

std::uint64_t HeapBlockSize(void* block) {
  return block == nullptr ? 0 : malloc_usable_size(block);
}

// Without a window system the two texts go to standard error. The exit status keeps the low
// eight bits of 0xFFFFFFFF, which is what a POSIX parent can see of it.
void OutOfMemory() {
  static const char kText[] = "Critical Error: Not enough memory\n";
  ssize_t written = write(STDERR_FILENO, kText, sizeof kText - 1);
  (void)written;
  _exit(static_cast<int>(0xFFFFFFFFu));
}

}  // namespace brelt::platform
