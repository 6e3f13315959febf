#include "platform/find_files.h"

#include <windows.h>

#include <cstring>

namespace brelt::platform {
namespace {

static_assert(sizeof(WIN32_FIND_DATAA) == sizeof(FindRecord));
static_assert(offsetof(WIN32_FIND_DATAA, cFileName) == offsetof(FindRecord, name));
static_assert(offsetof(WIN32_FIND_DATAA, cAlternateFileName) == offsetof(FindRecord, shortName));

void Copy(const WIN32_FIND_DATAA& from, FindRecord* to) { std::memcpy(to, &from, sizeof *to); }

}  // namespace

Handle FindFirst(const char* pattern, FindRecord* record) {
  WIN32_FIND_DATAA data;
  const HANDLE h = FindFirstFileA(pattern, &data);
  if (h != INVALID_HANDLE_VALUE) Copy(data, record);
  return h;
}

bool FindNext(Handle search, FindRecord* record) {
  WIN32_FIND_DATAA data;
  if (FindNextFileA(search, &data) == 0) return false;
  Copy(data, record);
  return true;
}

bool FindEnd(Handle search) { return FindClose(search) != 0; }

}  // namespace brelt::platform
