// File times: 100-nanosecond units since 1 January 1601 UTC, as the system keeps them.
//
// Each call behaves as the Win32 call of the same role (GetFileTime, SetFileTime,
// FileTimeToSystemTime, SystemTimeToFileTime, GetSystemTimeAsFileTime) and leaves its code in
// the last error.
#pragma once

#include <cstdint>

#include "brelt/config.h"
#include "platform/handle.h"

namespace brelt::platform {

// Any of the three may be null.
bool FileTimes(Handle file, std::uint64_t* creation, std::uint64_t* access,
               std::uint64_t* write);
// A null time, or a time of 0, leaves that time as it is. Needs a handle open for writing.
bool SetFileTimes(Handle file, const std::uint64_t* creation, const std::uint64_t* access,
                  const std::uint64_t* write);

// Calendar fields in UTC with the day of the week; times from 2^63 on fail.
bool SplitFileTime(std::uint64_t time, _SYSTEMTIME* fields);
// The day of the week is not read; a field out of its range fails.
bool JoinFileTime(const _SYSTEMTIME& fields, std::uint64_t* time);

std::uint64_t SystemTimeNow();

}  // namespace brelt::platform
