// FIO: file times. The time record is handed from one system call to the next unchanged; the
// forms with 2 break it into calendar fields in UTC, and they do not clear the last error.
#include "brelt/fio.h"
#include "platform/file_time.h"
#include "platform/last_error.h"

namespace {

namespace pf = brelt::platform;
using brelt::ULong;

FIO::FileTime Halves(std::uint64_t t) {
  return FIO::FileTime{static_cast<ULong>(t), static_cast<ULong>(t >> 32)};
}

std::uint64_t Whole(FIO::FileTime t) {
  return (static_cast<std::uint64_t>(t.dwHighDateTime) << 32) | t.dwLowDateTime;
}

}  // namespace

namespace FIO {

FileTime GetFileTime(FileHandle file) {
  pf::SetLastError(0);
  std::uint64_t written = 0;
  pf::FileTimes(file, nullptr, nullptr, &written);
  return Halves(written);
}

void SetFileTime(FileHandle file, FileTime time) {
  pf::SetLastError(0);
  const std::uint64_t t = Whole(time);
  pf::SetFileTimes(file, &t, &t, &t);
}

void GetFileTime2(FileHandle file, ULong* year, ULong* month, ULong* day, ULong* hour,
                  ULong* minute, ULong* second, ULong* milliseconds) {
  std::uint64_t written = 0;
  pf::FileTimes(file, nullptr, nullptr, &written);
  _SYSTEMTIME st{};
  pf::SplitFileTime(written, &st);
  *year = st.wYear;
  *month = st.wMonth;
  *day = st.wDay;
  *hour = st.wHour;
  *minute = st.wMinute;
  *second = st.wSecond;
  *milliseconds = st.wMilliseconds;
}

// A refused date leaves the time 0, which changes no time of the file.
void SetFileTime2(FileHandle file, ULong year, ULong month, ULong day, ULong hour,
                  ULong minute, ULong second, ULong milliseconds) {
  _SYSTEMTIME st{};
  st.wYear = static_cast<unsigned short>(year);
  st.wMonth = static_cast<unsigned short>(month);
  st.wDay = static_cast<unsigned short>(day);
  st.wHour = static_cast<unsigned short>(hour);
  st.wMinute = static_cast<unsigned short>(minute);
  st.wSecond = static_cast<unsigned short>(second);
  st.wMilliseconds = static_cast<unsigned short>(milliseconds);
  std::uint64_t t = 0;
  pf::JoinFileTime(st, &t);
  pf::SetFileTimes(file, &t, &t, &t);
}

FileTime GetCurrentFileTime() {
  pf::SetLastError(0);
  return Halves(pf::SystemTimeNow());
}

}  // namespace FIO
