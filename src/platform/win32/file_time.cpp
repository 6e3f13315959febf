#include "platform/file_time.h"

#include <windows.h>

namespace brelt::platform {
namespace {

FILETIME ToFiletime(std::uint64_t t) {
  FILETIME f;
  f.dwLowDateTime = static_cast<DWORD>(t);
  f.dwHighDateTime = static_cast<DWORD>(t >> 32);
  return f;
}

std::uint64_t FromFiletime(const FILETIME& f) {
  return (static_cast<std::uint64_t>(f.dwHighDateTime) << 32) | f.dwLowDateTime;
}

}  // namespace

bool FileTimes(Handle file, std::uint64_t* creation, std::uint64_t* access,
               std::uint64_t* write) {
  FILETIME c{}, a{}, w{};
  if (GetFileTime(file, &c, &a, &w) == 0) return false;
  if (creation != nullptr) *creation = FromFiletime(c);
  if (access != nullptr) *access = FromFiletime(a);
  if (write != nullptr) *write = FromFiletime(w);
  return true;
}

bool SetFileTimes(Handle file, const std::uint64_t* creation, const std::uint64_t* access,
                  const std::uint64_t* write) {
  FILETIME c, a, w;
  if (creation != nullptr) c = ToFiletime(*creation);
  if (access != nullptr) a = ToFiletime(*access);
  if (write != nullptr) w = ToFiletime(*write);
  return SetFileTime(file, creation != nullptr ? &c : nullptr, access != nullptr ? &a : nullptr,
                     write != nullptr ? &w : nullptr) != 0;
}

bool SplitFileTime(std::uint64_t time, _SYSTEMTIME* fields) {
  const FILETIME f = ToFiletime(time);
  return FileTimeToSystemTime(&f, fields) != 0;
}

bool JoinFileTime(const _SYSTEMTIME& fields, std::uint64_t* time) {
  FILETIME f{};
  if (SystemTimeToFileTime(&fields, &f) == 0) return false;
  *time = FromFiletime(f);
  return true;
}

std::uint64_t SystemTimeNow() {
  FILETIME f;
  GetSystemTimeAsFileTime(&f);
  return FromFiletime(f);
}

}  // namespace brelt::platform
