// Storage: byte-block copies and fills, the memory status and the pointer tests.
#include <cstring>

#include "brelt/storage.h"
#include "platform/heap.h"
#include "platform/memory_status.h"
#include "platform/pointer_check.h"

namespace Storage {

void MemoryCopy(const void* src, void* dst, brelt::UInt64 n) { std::memcpy(dst, src, n); }
void MemoryMove(const void* src, void* dst, brelt::UInt64 n) { std::memmove(dst, src, n); }
void MemoryFill(void* dst, brelt::UInt64 n, unsigned char value) { std::memset(dst, value, n); }
void MemoryZero(void* dst, brelt::UInt64 n) { std::memset(dst, 0, n); }

brelt::UInt64 MemorySize(void* p) { return brelt::platform::HeapBlockSize(p); }

void GetMemoryStatus(TMemoryStatus* status) { brelt::platform::QueryMemoryStatus(status); }

unsigned char TestBadReadPtr(const void* p, brelt::UInt64 n) {
  return brelt::platform::CanRead(p, n) ? 0 : 1;
}
unsigned char TestBadWritePtr(void* p, brelt::UInt64 n) {
  return brelt::platform::CanWrite(p, n) ? 0 : 1;
}
unsigned char TestBadStringPtr(const char* p, brelt::UInt64 n) {
  return brelt::platform::CanReadText(p, n) ? 0 : 1;
}

}  // namespace Storage
