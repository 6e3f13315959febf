// Whole pages straight from the operating system, with control over access. The guard-page
// arrays of the tests are built on these.
#pragma once

#include <cstddef>

namespace brelt::platform {

std::size_t PageSize();

// `bytes` must be a multiple of PageSize(). The pages start readable and writable; null on
// failure.
void* MapPages(std::size_t bytes);
void UnmapPages(void* base, std::size_t bytes);

// Makes the pages fault on any access, or readable only.
bool ProtectNoAccess(void* base, std::size_t bytes);
bool ProtectReadOnly(void* base, std::size_t bytes);

}  // namespace brelt::platform
