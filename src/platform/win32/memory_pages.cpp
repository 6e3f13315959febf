#include "platform/memory_pages.h"

#include <windows.h>

namespace brelt::platform {

std::size_t PageSize() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  return info.dwPageSize;
}

void* MapPages(std::size_t bytes) {
  return VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void UnmapPages(void* base, std::size_t) { VirtualFree(base, 0, MEM_RELEASE); }

bool ProtectNoAccess(void* base, std::size_t bytes) {
  DWORD old;
  return VirtualProtect(base, bytes, PAGE_NOACCESS, &old) != 0;
}

bool ProtectReadOnly(void* base, std::size_t bytes) {
  DWORD old;
  return VirtualProtect(base, bytes, PAGE_READONLY, &old) != 0;
}

}  // namespace brelt::platform
