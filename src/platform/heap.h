// What the heap itself knows about its blocks, and the end of the process when it has none
// left to give.
#pragma once

#include <cstdint>

namespace brelt::platform {

// Size in bytes of a block from malloc/realloc, at least what was asked for; 0 when the
// platform cannot tell (a null pointer among others).
std::uint64_t HeapBlockSize(void* block);

// Tells the user "Not enough memory" under the caption "Critical Error" and ends the process
// with exit code 0xFFFFFFFF. Nothing is cleaned up and nothing returns.
[[noreturn]] void OutOfMemory();

}  // namespace brelt::platform
