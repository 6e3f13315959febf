// Storage: allocation, reallocation and release through the caller's pointer variable.
#include <cstdlib>
#include <cstring>

#include "brelt/storage.h"
#include "platform/heap.h"

namespace {

// What Allocate does to a new block: 0 leaves it, 1 zeroes it, any other value fills it with
// that byte. 0 as loaded; start-up sets 205.
unsigned char fill_byte = 0;

}  // namespace

namespace Storage {

void Allocate(void** p, brelt::UInt64 size) {
  if (size == 0) {
    *p = nullptr;
    return;
  }
  void* block = std::malloc(size);
  *p = block;
  if (block == nullptr) brelt::platform::OutOfMemory();
  const unsigned char fill = fill_byte;
  if (fill != 0) std::memset(block, fill == 1 ? 0 : fill, size);
}

void Reallocate(void** p, brelt::UInt64 size) {
  if (size == 0) {
    Free(p);
    return;
  }
  void* block = std::realloc(*p, size);
  *p = block;
  if (block == nullptr) brelt::platform::OutOfMemory();
}

void Deallocate(void** p, brelt::UInt64) { Free(p); }

void Free(void** p) {
  if (*p == nullptr) return;
  std::free(*p);
  *p = nullptr;
}

void _DbgAllocate(void** p, brelt::UInt64 size, unsigned int, char*, unsigned int) {
  Allocate(p, size);
}
void _DbgReallocate(void** p, brelt::UInt64 size, unsigned int, char*, unsigned int) {
  Reallocate(p, size);
}
void _DbgDeallocate(void** p, brelt::UInt64, unsigned int, char*, unsigned int) {
  Free(p);
}
void _DbgFree(void** p, unsigned int, char*, unsigned int) { Free(p); }

void InitModule() { fill_byte = 205; }

}  // namespace Storage
