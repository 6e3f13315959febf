#include "platform/memory_pages.h"

#include <sys/mman.h>
#include <unistd.h>

namespace brelt::platform {

std::size_t PageSize() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }

void* MapPages(std::size_t bytes) {
  void* p = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return p == MAP_FAILED ? nullptr : p;
}

void UnmapPages(void* base, std::size_t bytes) { munmap(base, bytes); }

bool ProtectNoAccess(void* base, std::size_t bytes) {
  return mprotect(base, bytes, PROT_NONE) == 0;
}

bool ProtectReadOnly(void* base, std::size_t bytes) {
  return mprotect(base, bytes, PROT_READ) == 0;
}

}  // namespace brelt::platform
