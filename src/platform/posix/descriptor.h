// Descriptors that the POSIX layer hands out as handles.
#pragma once

#include "platform/handle.h"

namespace brelt::platform::posix {

// The lowest descriptor a handle may carry: 0, 1 and 2 stay the standard streams, so that a
// handle is never null and a stream closed by the application is never reused for a file.
inline constexpr int kFirstHandleDescriptor = 3;

// Takes ownership of a fresh descriptor and gives its handle: a descriptor below
// kFirstHandleDescriptor is moved above it (close-on-exec kept). -1 (or a failed move, with
// the last error set) gives kInvalidHandle.
Handle HandleOfNewDescriptor(int fd);

}  // namespace brelt::platform::posix
