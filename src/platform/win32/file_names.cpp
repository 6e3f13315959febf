#include "platform/file_names.h"

#include <windows.h>

namespace brelt::platform {

std::uint32_t FileAttributes(const char* name) { return GetFileAttributesA(name); }

bool SetAttributes(const char* name, std::uint32_t attrs) {
  return SetFileAttributesA(name, attrs) != 0;
}

bool MakeDirectory(const char* name) { return CreateDirectoryA(name, nullptr) != 0; }
bool RemoveEmptyDirectory(const char* name) { return RemoveDirectoryA(name) != 0; }
bool RemoveFile(const char* name) { return DeleteFileA(name) != 0; }
bool RenameEntry(const char* from, const char* to) { return MoveFileA(from, to) != 0; }

std::uint32_t CurrentDirectory(std::uint32_t cap, char* buf) {
  return GetCurrentDirectoryA(cap, buf);
}

bool ChangeDirectory(const char* name) { return SetCurrentDirectoryA(name) != 0; }

// A drive defined this way is only as good as the system's support for it (Wine accepts the
// definition but does not resolve names through it), so the root is checked before the answer.
bool MapDrive(char letter, const char* folder) {
  const char device[3] = {letter, ':', '\0'};
  if (folder == nullptr) return DefineDosDeviceA(DDD_REMOVE_DEFINITION, device, nullptr) != 0;
  if (DefineDosDeviceA(0, device, folder) == 0) return false;
  const char root[4] = {letter, ':', '\\', '\0'};
  const DWORD attrs = GetFileAttributesA(root);
  if (attrs != INVALID_FILE_ATTRIBUTES && (attrs & FILE_ATTRIBUTE_DIRECTORY) != 0) return true;
  DefineDosDeviceA(DDD_REMOVE_DEFINITION, device, nullptr);
  return false;
}

}  // namespace brelt::platform
