#include "platform/posix/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/posix/errors.h"

namespace brelt::platform::posix {

Handle HandleOfNewDescriptor(int fd) {
  if (fd < 0) return kInvalidHandle;
  if (fd < kFirstHandleDescriptor) {
    const int moved = fcntl(fd, F_DUPFD_CLOEXEC, kFirstHandleDescriptor);
    const bool ok = moved >= 0 || FailFromErrno();
    close(fd);
    if (!ok) return kInvalidHandle;
    fd = moved;
  }
  return HandleOfDescriptor(fd);
}

}  // namespace brelt::platform::posix
