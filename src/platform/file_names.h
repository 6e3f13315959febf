// Files and folders by name: attributes, creating and removing folders, deleting and renaming
// files, and the current directory.
//
// Each call behaves as the Win32 call of the same role (GetFileAttributesA,
// SetFileAttributesA, CreateDirectoryA, RemoveDirectoryA, DeleteFileA, MoveFileA,
// GetCurrentDirectoryA, SetCurrentDirectoryA) and leaves its code in the last error. Names
// are NUL-terminated 8-bit text in the system code page.
#pragma once

#include <cstdint>

namespace brelt::platform {

inline constexpr std::uint32_t kInvalidAttributes = 0xFFFFFFFF;
inline constexpr std::uint32_t kDirectoryAttribute = 0x10;

std::uint32_t FileAttributes(const char* name);
bool SetAttributes(const char* name, std::uint32_t attrs);

bool MakeDirectory(const char* name);
bool RemoveEmptyDirectory(const char* name);
bool RemoveFile(const char* name);
// Files and folders; an existing `to` is not replaced.
bool RenameEntry(const char* from, const char* to);

// The current directory, as the full name with its drive. With room for it and a NUL in
// `cap` bytes it is stored and its length is the result; otherwise nothing is stored and the
// result is the room it needs. 0 on failure.
std::uint32_t CurrentDirectory(std::uint32_t cap, char* buf);
// "X:" alone goes to the current directory of drive X.
bool ChangeDirectory(const char* name);

// For tests: makes drive `letter` show the folder `folder` (a name as the platform writes it),
// or removes it when `folder` is null. False where the platform cannot give the drive.
bool MapDrive(char letter, const char* folder);

}  // namespace brelt::platform
