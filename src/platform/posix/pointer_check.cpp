// Permissions come from the kernel's list of the process's mappings, so no byte of the area is
// touched: unmapped, read-only and guard pages answer without a fault.
#include "platform/pointer_check.h"

#include <cstring>

#include "platform/posix/proc_reader.h"

namespace brelt::platform {

namespace {

using posix::ProcReader;

// End of the run of adjacent mappings, all carrying permission `flag` ('r' or 'w') at the
// position given by `column`, that covers `from`; `from` itself when no such mapping does.
std::uintptr_t AccessibleEnd(std::uintptr_t from, int column, char flag) {
  ProcReader maps("/proc/self/maps");
  std::uintptr_t reach = from;
  if (!maps.ok()) return reach;
  for (;;) {
    int stop;
    const std::uintptr_t start = maps.Number(16, &stop);
    if (stop != '-') return reach;
    const std::uintptr_t end = maps.Number(16, &stop);
    char perms[4];
    for (char& p : perms) p = static_cast<char>(maps.Next());
    // The list is sorted by address: once a mapping starts above the reach, the run is over.
    if (start > reach) return reach;
    if (end > reach) {
      if (perms[column] != flag) return reach;
      reach = end;
    }
    if (!maps.NextLine()) return reach;
  }
}

bool Covered(const void* p, std::uint64_t n, int column, char flag) {
  if (n == 0) return true;
  const auto from = reinterpret_cast<std::uintptr_t>(p);
  if (n - 1 > UINTPTR_MAX - from) return false;  // the area wraps around the address space
  return AccessibleEnd(from, column, flag) - from >= n;
}

}  // namespace

bool CanRead(const void* p, std::uint64_t n) { return Covered(p, n, 0, 'r'); }
bool CanWrite(void* p, std::uint64_t n) { return Covered(p, n, 1, 'w'); }

bool CanReadText(const char* p, std::uint64_t n) {
  if (n == 0) return true;
  const auto from = reinterpret_cast<std::uintptr_t>(p);
  const std::uint64_t readable = AccessibleEnd(from, 0, 'r') - from;
  const std::uint64_t look = readable < n ? readable : n;
  // Nothing readable (a null pointer among others): memchr may not be given it.
  if (look == 0) return false;
  if (std::memchr(p, 0, look) != nullptr) return true;
  return look == n;
}

}  // namespace brelt::platform
