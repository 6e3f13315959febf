#include "platform/file_io.h"

#include <windows.h>

namespace brelt::platform {

Handle OpenNamedFile(const char* name, std::uint32_t access, std::uint32_t share,
                     std::uint32_t disposition, std::uint32_t flags) {
  return CreateFileA(name, access, share, nullptr, disposition, flags, nullptr);
}

bool CloseFile(Handle file) { return CloseHandle(file) != 0; }

bool ReadFromFile(Handle file, void* buf, std::uint32_t count, std::uint32_t* done) {
  DWORD n = 0;
  const bool ok = ReadFile(file, buf, count, &n, nullptr) != 0;
  *done = n;
  return ok;
}

bool WriteToFile(Handle file, const void* buf, std::uint32_t count, std::uint32_t* done) {
  DWORD n = 0;
  const bool ok = WriteFile(file, buf, count, &n, nullptr) != 0;
  *done = n;
  return ok;
}

std::uint32_t MoveFilePointer32(Handle file, std::int32_t distance, std::int32_t* high,
                                std::uint32_t method) {
  LONG h = high != nullptr ? *high : 0;
  const DWORD low = SetFilePointer(file, distance, high != nullptr ? &h : nullptr, method);
  if (high != nullptr) *high = h;
  return low;
}

bool MoveFilePointer(Handle file, std::int64_t distance, std::uint64_t* position,
                     std::uint32_t method) {
  LARGE_INTEGER d, to;
  d.QuadPart = distance;
  to.QuadPart = 0;
  const bool ok = SetFilePointerEx(file, d, &to, method) != 0;
  if (position != nullptr) *position = static_cast<std::uint64_t>(to.QuadPart);
  return ok;
}

std::uint32_t FileSize32(Handle file, std::uint32_t* high) {
  DWORD h = 0;
  const DWORD low = GetFileSize(file, &h);
  if (high != nullptr) *high = h;
  return low;
}

bool FileSize(Handle file, std::uint64_t* size) {
  LARGE_INTEGER s;
  s.QuadPart = 0;
  const bool ok = GetFileSizeEx(file, &s) != 0;
  *size = static_cast<std::uint64_t>(s.QuadPart);
  return ok;
}

bool CutFileAtPosition(Handle file) { return SetEndOfFile(file) != 0; }

bool FlushFile(Handle file) { return FlushFileBuffers(file) != 0; }

}  // namespace brelt::platform
