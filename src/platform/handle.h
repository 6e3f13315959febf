// The one encoding of every handle the library hands out: files, directory searches, processes.
//
// A handle is pointer-sized, and all bits set means failure on both targets. On Windows it is
// the system's HANDLE, unchanged. On POSIX it is a file descriptor carried in the pointer: a
// file's descriptor, the descriptor of the folder a directory search reads, a process
// descriptor. The layer never hands out descriptors 0, 1 or 2 (it moves such a descriptor
// higher), so no handle of the library is null, and a null handle is refused as invalid.
#pragma once

#include <cstdint>

namespace brelt::platform {

using Handle = void*;

inline Handle const kInvalidHandle = reinterpret_cast<Handle>(~std::uintptr_t{0});

// POSIX encoding. The descriptor inside a handle, or -1 for a value that cannot carry one:
// null, all ones, and anything outside the descriptor range.
inline int DescriptorOf(Handle h) {
  const auto v = reinterpret_cast<std::uintptr_t>(h);
  return v == 0 || v > 0x7FFFFFFF ? -1 : static_cast<int>(v);
}

inline Handle HandleOfDescriptor(int fd) {
  return fd < 0 ? kInvalidHandle : reinterpret_cast<Handle>(static_cast<std::uintptr_t>(fd));
}

}  // namespace brelt::platform
