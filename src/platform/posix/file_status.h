// What the POSIX layer reports of a file: Windows attribute words and file times.
#pragma once

#include <sys/stat.h>
#include <time.h>

#include <cstdint>

namespace brelt::platform::posix {

inline constexpr std::uint32_t kAttrReadOnly = 0x01;
inline constexpr std::uint32_t kAttrHidden = 0x02;
inline constexpr std::uint32_t kAttrDirectory = 0x10;
inline constexpr std::uint32_t kAttrArchive = 0x20;
inline constexpr std::uint32_t kAttrNormal = 0x80;

// 0x10 for a folder, else 0x20; 0x01 when the owner may not write; 0x02 when `name` (the
// entry's own name, native) begins with a dot, "." and ".." excepted, as Windows does.
std::uint32_t AttributesOf(const struct stat& st, const char* name);

// A read-only file refuses writing, deleting and truncating whoever asks, as on Windows.
inline bool ReadOnly(const struct stat& st) { return (st.st_mode & S_IWUSR) == 0; }

// 100-nanosecond units since 1 January 1601 UTC, and back; the nanoseconds below 100 are cut.
std::uint64_t FileTimeOf(const timespec& t);
timespec TimespecOf(std::uint64_t fileTime);

// Creation time where the file system keeps one, else the last write time.
std::uint64_t CreationTimeOf(int dirfd, const char* name, const struct stat& st);

}  // namespace brelt::platform::posix
