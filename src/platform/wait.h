// Waiting on handles, and the calling thread's message queue.
//
// Wait handles: on Windows the system's own handles (processes, events, ...). On POSIX a wait
// handle is a file descriptor carried in the pointer-sized handle, as file handles are. It is
// signalled while the descriptor is readable: a process descriptor (pidfd) once the process
// has ended, a pipe or eventfd while it holds data. Process handles made by this library on
// POSIX are process descriptors, so that a caller waits for a child exactly as on Windows.
// POSIX has no message queue: it is always empty and input never arrives.
#pragma once

#include <cstdint>

namespace brelt::platform {

inline constexpr std::uint32_t kWaitObject0 = 0;
inline constexpr std::uint32_t kWaitTimeout = 0x102;
inline constexpr std::uint32_t kWaitFailed = 0xFFFFFFFF;
inline constexpr std::uint32_t kWaitInfinite = 0xFFFFFFFF;
inline constexpr std::uint32_t kWaitAllFlag = 0x1;
// The most handles one wait takes (one slot of the system's limit is the queue's).
inline constexpr std::uint32_t kMaxWaitHandles = 63;

// 1 when the calling thread's message queue holds nothing.
bool MessageQueueEmpty();

// The system's MsgWaitForMultipleObjectsEx with the same arguments and result: index of the
// signalled handle from kWaitObject0, count for queue input, kWaitTimeout, or kWaitFailed.
std::uint32_t WaitForHandlesOrInput(std::uint32_t count, void** handles, std::uint32_t timeout,
                                    std::uint32_t wakeMask, std::uint32_t flags);

}  // namespace brelt::platform
