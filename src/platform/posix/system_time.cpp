// The wall clock in calendar fields. Local time follows the process's time zone (TZ, else the
// system's); setting the clock needs the right to, which processes seldom have.
#include "platform/system_time.h"

#include <errno.h>
#include <time.h>

#include <cstdint>

#include "platform/file_time.h"
#include "platform/last_error.h"
#include "platform/posix/errors.h"

namespace brelt::platform {

void UtcTimeFields(_SYSTEMTIME* fields) { SplitFileTime(SystemTimeNow(), fields); }

void LocalTimeFields(_SYSTEMTIME* fields) {
  timespec now;
  clock_gettime(CLOCK_REALTIME, &now);
  tm local;
  localtime_r(&now.tv_sec, &local);
  fields->wYear = static_cast<unsigned short>(local.tm_year + 1900);
  fields->wMonth = static_cast<unsigned short>(local.tm_mon + 1);
  fields->wDayOfWeek = static_cast<unsigned short>(local.tm_wday);
  fields->wDay = static_cast<unsigned short>(local.tm_mday);
  fields->wHour = static_cast<unsigned short>(local.tm_hour);
  fields->wMinute = static_cast<unsigned short>(local.tm_min);
  fields->wSecond = static_cast<unsigned short>(local.tm_sec);
  fields->wMilliseconds = static_cast<unsigned short>(now.tv_nsec / 1000000);
}

bool SetLocalTimeFields(const _SYSTEMTIME& fields) {
  // The calendar of file times decides what a valid date and time are, as on Windows.
  std::uint64_t unused;
  if (!JoinFileTime(fields, &unused)) return false;
  tm local{};
  local.tm_year = fields.wYear - 1900;
  local.tm_mon = fields.wMonth - 1;
  local.tm_mday = fields.wDay;
  local.tm_hour = fields.wHour;
  local.tm_min = fields.wMinute;
  local.tm_sec = fields.wSecond;
  local.tm_isdst = -1;  // whatever the zone has in force on that day
  errno = 0;
  const time_t seconds = mktime(&local);
  if (seconds == static_cast<time_t>(-1) && errno != 0) return posix::Fail(kErrorInvalidParameter);
  const timespec when{seconds, static_cast<long>(fields.wMilliseconds) * 1000000};
  if (clock_settime(CLOCK_REALTIME, &when) == 0) return true;
  return errno == EPERM ? posix::Fail(kErrorPrivilegeNotHeld) : posix::FailFromErrno();
}

}  // namespace brelt::platform
