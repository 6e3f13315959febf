// Storage: heap blocks that cannot fail from the caller's view, block copies and fills, the
// memory status and tests of pointer validity.
//
// Every allocating operation takes the address of the caller's pointer variable and updates
// it, so a released block reads null afterwards. Exhausted memory ends the process with the
// message "Not enough memory" and exit code 0xFFFFFFFF; no allocating call returns null for a
// size that is not 0.
#pragma once

#include <brelt/config.h>

namespace Storage {

// Result of GetMemoryStatus, fields in this order.
struct TMemoryStatus {
  brelt::ULong MemoryLoad;      // percentage of physical memory in use
  brelt::UInt64 TotalPhys;      // physical memory in bytes
  brelt::UInt64 AvailPhys;      // free physical memory in bytes
  brelt::UInt64 TotalPageFile;  // commit limit in bytes
  brelt::UInt64 AvailPageFile;  // available commit in bytes
  brelt::UInt64 TotalVirtual;   // the process's address space in bytes
  brelt::UInt64 AvailVirtual;   // unreserved part of that space in bytes
};

// Size 0 leaves *p null without allocating. A new block is filled with 205 (0xCD).
BRELT_API void Allocate(void** p, brelt::UInt64 size);
// Size 0 releases *p (if any) and leaves it null; otherwise the block grows or shrinks and
// may move. Added bytes are left as the heap gives them.
BRELT_API void Reallocate(void** p, brelt::UInt64 size);
// Both release *p when it is not null and leave it null; `size` is not read.
BRELT_API void Deallocate(void** p, brelt::UInt64 size);
BRELT_API void Free(void** p);

// The same four with a source position attached; the position is accepted and never read.
BRELT_API void _DbgAllocate(void** p, brelt::UInt64 size, unsigned int high, char* file,
                            unsigned int line);
BRELT_API void _DbgReallocate(void** p, brelt::UInt64 size, unsigned int high, char* file,
                              unsigned int line);
BRELT_API void _DbgDeallocate(void** p, brelt::UInt64 size, unsigned int high, char* file,
                              unsigned int line);
BRELT_API void _DbgFree(void** p, unsigned int high, char* file, unsigned int line);

// Start-up step of the module.
BRELT_API void InitModule();

// Source first, destination second; counts in bytes. MemoryCopy areas must not overlap.
BRELT_API void MemoryCopy(const void* src, void* dst, brelt::UInt64 n);
BRELT_API void MemoryMove(const void* src, void* dst, brelt::UInt64 n);
BRELT_API void MemoryFill(void* dst, brelt::UInt64 n, unsigned char value);
BRELT_API void MemoryZero(void* dst, brelt::UInt64 n);

// Size in bytes of a heap block from this module (at least what was asked for); 0 when the
// platform cannot tell.
BRELT_API brelt::UInt64 MemorySize(void* p);
// The machine's memory figures, in the order of TMemoryStatus.
BRELT_API void GetMemoryStatus(TMemoryStatus* status);

// 1 when the area (or the NUL-terminated text, looked at for at most n characters) can not
// all be read or written, 0 when it can. Never faults.
BRELT_API unsigned char TestBadReadPtr(const void* p, brelt::UInt64 n);
BRELT_API unsigned char TestBadWritePtr(void* p, brelt::UInt64 n);
BRELT_API unsigned char TestBadStringPtr(const char* p, brelt::UInt64 n);

}  // namespace Storage
