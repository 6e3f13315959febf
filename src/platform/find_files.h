// Searching a folder for the entries that fit a pattern, as FindFirstFileA, FindNextFileA and
// FindClose do: the pattern's last component may hold the wildcards * and ?, entries come one
// by one in no fixed order, and the end is the failure kErrorNoMoreFiles. A search that finds
// nothing at all fails at once with kErrorFileNotFound.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/handle.h"

namespace brelt::platform {

// The system's record of one entry, field for field (WIN32_FIND_DATAA).
struct FindRecord {
  std::uint32_t attributes;
  std::uint32_t creationTime[2];  // file times, lower half first
  std::uint32_t lastAccessTime[2];
  std::uint32_t lastWriteTime[2];
  std::uint32_t sizeHigh;
  std::uint32_t sizeLow;
  std::uint32_t reserved0;
  std::uint32_t reserved1;
  char name[260];
  char shortName[14];
};
static_assert(sizeof(FindRecord) == 320 && offsetof(FindRecord, name) == 44);

// The search handle, or kInvalidHandle; the first entry goes to `record`.
Handle FindFirst(const char* pattern, FindRecord* record);
bool FindNext(Handle search, FindRecord* record);
bool FindEnd(Handle search);

}  // namespace brelt::platform
