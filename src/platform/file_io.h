// Files by handle: open, transfer, position, size, truncation, flushing, closing.
//
// Each call behaves as the Win32 call of the same role (CreateFileA, ReadFile, WriteFile,
// SetFilePointer, SetFilePointerEx, GetFileSize, GetFileSizeEx, SetEndOfFile,
// FlushFileBuffers, CloseHandle), with its arguments and results, and leaves its code in the
// last error. Names are NUL-terminated 8-bit text in the system code page. Handles are those
// of handle.h.
#pragma once

#include <cstdint>

#include "platform/handle.h"

namespace brelt::platform {

inline constexpr std::uint32_t kGenericRead = 0x80000000;
inline constexpr std::uint32_t kGenericWrite = 0x40000000;

inline constexpr std::uint32_t kCreateNew = 1;
inline constexpr std::uint32_t kCreateAlways = 2;
inline constexpr std::uint32_t kOpenExisting = 3;
inline constexpr std::uint32_t kOpenAlways = 4;
inline constexpr std::uint32_t kTruncateExisting = 5;

inline constexpr std::uint32_t kAttributeNormal = 0x80;

inline constexpr std::uint32_t kFromBegin = 0;
inline constexpr std::uint32_t kFromCurrent = 1;
inline constexpr std::uint32_t kFromEnd = 2;

// The failure value of the 32-bit position and size calls.
inline constexpr std::uint32_t kInvalid32 = 0xFFFFFFFF;

// No security attributes, no template. `share` reaches the platform unchanged. Where
// kCreateAlways or kOpenAlways find the file already there, the call succeeds and the last
// error is kErrorAlreadyExists.
Handle OpenNamedFile(const char* name, std::uint32_t access, std::uint32_t share,
                     std::uint32_t disposition, std::uint32_t flags);

bool CloseFile(Handle file);
bool ReadFromFile(Handle file, void* buf, std::uint32_t count, std::uint32_t* done);
bool WriteToFile(Handle file, const void* buf, std::uint32_t count, std::uint32_t* done);

// With `high` null, `distance` is the whole signed distance and a position beyond 32 bits
// fails; otherwise `*high` holds the upper half of the distance and receives that of the new
// position. The lower half of the new position is the result, kInvalid32 on failure.
std::uint32_t MoveFilePointer32(Handle file, std::int32_t distance, std::int32_t* high,
                                std::uint32_t method);
bool MoveFilePointer(Handle file, std::int64_t distance, std::uint64_t* position,
                     std::uint32_t method);

// The lower half of the size, kInvalid32 on failure; `high` (may be null) the upper half.
std::uint32_t FileSize32(Handle file, std::uint32_t* high);
bool FileSize(Handle file, std::uint64_t* size);

// The file ends at the current position.
bool CutFileAtPosition(Handle file);
bool FlushFile(Handle file);

}  // namespace brelt::platform
