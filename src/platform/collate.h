// Ordering of 8-bit text under the user's locale.
#pragma once

#include <cstdint>

namespace brelt::platform {

// Orders a[0..la) against b[0..lb); neither needs a NUL. Gives 1, 2 or 3 for less, equal and
// greater, and 0 when the texts cannot be ordered. With ignoreCase, letters that differ only
// in case are equal.
int CollateA(const char* a, std::uint32_t la, const char* b, std::uint32_t lb, bool ignoreCase);

}  // namespace brelt::platform
