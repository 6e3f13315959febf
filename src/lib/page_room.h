// How far a read may run from an address without touching the next page.
#pragma once

#include <cstdint>

namespace brelt::scan {

// Bytes from p up to the next 4 KiB boundary, the smallest page of every target. The bound
// of a text read as far as its NUL says nothing of where readable memory ends; the page of
// its first byte does.
inline std::uint64_t PageRoom(const void* p) {
  return 4096 - (reinterpret_cast<std::uintptr_t>(p) & 4095);
}

// Where p stands in its 4 KiB page.
inline std::uint64_t PageOffset(const void* p) {
  return reinterpret_cast<std::uintptr_t>(p) & 4095;
}

}  // namespace brelt::scan
