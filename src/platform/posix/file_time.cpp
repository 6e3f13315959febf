// File times over stat and futimens, and the calendar of the system's time record. POSIX
// keeps no settable creation time: setting one changes nothing, and reading it gives the
// birth time where the file system records it.
#include "platform/file_time.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>

#include "platform/last_error.h"
#include "platform/posix/errors.h"
#include "platform/posix/file_status.h"

namespace brelt::platform {
namespace {

using posix::Fail;

constexpr std::uint64_t kPerMs = 10000;
constexpr std::uint64_t kPerDay = 864000000000;

bool Leap(unsigned y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

unsigned DaysIn(unsigned y, unsigned m) {
  static constexpr unsigned char kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && Leap(y) ? 29 : kDays[m - 1];
}

// Days from 1 January 1601 to the start of year y.
std::uint64_t DaysBefore(unsigned y) {
  const std::uint64_t n = y - 1601;
  return n * 365 + n / 4 - n / 100 + n / 400;
}

int Descriptor(Handle file) {
  const int fd = DescriptorOf(file);
  if (fd < 0) Fail(kErrorInvalidHandle);
  return fd;
}

}  // namespace

bool FileTimes(Handle file, std::uint64_t* creation, std::uint64_t* access,
               std::uint64_t* write) {
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  struct stat st;
  if (fstat(fd, &st) != 0) return posix::FailFromErrno();
  if (creation != nullptr) *creation = posix::CreationTimeOf(fd, "", st);
  if (access != nullptr) *access = posix::FileTimeOf(st.st_atim);
  if (write != nullptr) *write = posix::FileTimeOf(st.st_mtim);
  return true;
}

bool SetFileTimes(Handle file, const std::uint64_t* /*creation*/, const std::uint64_t* access,
                  const std::uint64_t* write) {
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  const int flags = fcntl(fd, F_GETFL);
  if (flags == -1) return posix::FailFromErrno();
  if ((flags & O_ACCMODE) == O_RDONLY) return Fail(kErrorAccessDenied);
  timespec times[2];
  times[0] = access != nullptr && *access != 0 ? posix::TimespecOf(*access)
                                               : timespec{0, UTIME_OMIT};
  times[1] = write != nullptr && *write != 0 ? posix::TimespecOf(*write)
                                             : timespec{0, UTIME_OMIT};
  return futimens(fd, times) == 0 || posix::FailFromErrno();
}

bool SplitFileTime(std::uint64_t time, _SYSTEMTIME* fields) {
  if (time >= 0x8000000000000000u) return Fail(kErrorInvalidParameter);
  std::uint64_t days = time / kPerDay;
  const std::uint64_t ms = (time % kPerDay) / kPerMs;
  fields->wDayOfWeek = static_cast<unsigned short>((days + 1) % 7);  // 1601-01-01 was a Monday
  unsigned y = 1601 + static_cast<unsigned>(days / 146097) * 400;
  days %= 146097;
  while (days >= (Leap(y) ? 366u : 365u)) days -= Leap(y) ? 366 : 365, ++y;
  unsigned m = 1;
  while (days >= DaysIn(y, m)) days -= DaysIn(y, m), ++m;
  fields->wYear = static_cast<unsigned short>(y);
  fields->wMonth = static_cast<unsigned short>(m);
  fields->wDay = static_cast<unsigned short>(days + 1);
  fields->wHour = static_cast<unsigned short>(ms / 3600000);
  fields->wMinute = static_cast<unsigned short>(ms / 60000 % 60);
  fields->wSecond = static_cast<unsigned short>(ms / 1000 % 60);
  fields->wMilliseconds = static_cast<unsigned short>(ms % 1000);
  return true;
}

bool JoinFileTime(const _SYSTEMTIME& f, std::uint64_t* time) {
  if (f.wYear < 1601 || f.wYear > 30827 || f.wMonth < 1 || f.wMonth > 12 || f.wDay < 1 ||
      f.wDay > DaysIn(f.wYear, f.wMonth) || f.wHour > 23 || f.wMinute > 59 || f.wSecond > 59 ||
      f.wMilliseconds > 999) {
    return Fail(kErrorInvalidParameter);
  }
  std::uint64_t days = DaysBefore(f.wYear) + f.wDay - 1;
  for (unsigned m = 1; m < f.wMonth; ++m) days += DaysIn(f.wYear, m);
  const std::uint64_t ms =
      ((f.wHour * 60u + f.wMinute) * 60u + f.wSecond) * 1000u + f.wMilliseconds;
  *time = days * kPerDay + ms * kPerMs;
  return true;
}

std::uint64_t SystemTimeNow() {
  timespec now;
  clock_gettime(CLOCK_REALTIME, &now);
  return posix::FileTimeOf(now);
}

}  // namespace brelt::platform
