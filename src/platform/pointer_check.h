// Whether memory can be read or written, answered without touching memory that might fault.
#pragma once

#include <cstdint>

namespace brelt::platform {

// True when all `n` bytes at `p` can be read (written). n = 0 is always true.
bool CanRead(const void* p, std::uint64_t n);
bool CanWrite(void* p, std::uint64_t n);
// True when the text at `p` can be read up to its NUL or up to `n` characters, whichever
// comes first. n = 0 is always true.
bool CanReadText(const char* p, std::uint64_t n);

}  // namespace brelt::platform
