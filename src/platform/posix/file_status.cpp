#include "platform/posix/file_status.h"

#include <fcntl.h>

namespace brelt::platform::posix {
namespace {

// From 1601-01-01 to 1970-01-01, in seconds.
constexpr std::int64_t kEpochGap = 11644473600;

}  // namespace

std::uint32_t AttributesOf(const struct stat& st, const char* name) {
  std::uint32_t attrs = S_ISDIR(st.st_mode) ? kAttrDirectory : kAttrArchive;
  if (ReadOnly(st)) attrs |= kAttrReadOnly;
  const bool dots = name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
  if (name[0] == '.' && !dots) attrs |= kAttrHidden;
  return attrs;
}

std::uint64_t FileTimeOf(const timespec& t) {
  const std::int64_t seconds = static_cast<std::int64_t>(t.tv_sec) + kEpochGap;
  if (seconds < 0) return 0;
  return static_cast<std::uint64_t>(seconds) * 10000000u +
         static_cast<std::uint64_t>(t.tv_nsec) / 100u;
}

timespec TimespecOf(std::uint64_t fileTime) {
  timespec t;
  t.tv_sec = static_cast<time_t>(static_cast<std::int64_t>(fileTime / 10000000u) - kEpochGap);
  t.tv_nsec = static_cast<long>(fileTime % 10000000u) * 100;
  return t;
}

std::uint64_t CreationTimeOf(int dirfd, const char* name, const struct stat& st) {
  struct statx sx;
  if (statx(dirfd, name, AT_EMPTY_PATH, STATX_BTIME, &sx) == 0 && (sx.stx_mask & STATX_BTIME)) {
    return FileTimeOf(timespec{static_cast<time_t>(sx.stx_btime.tv_sec),
                               static_cast<long>(sx.stx_btime.tv_nsec)});
  }
  return FileTimeOf(st.st_mtim);
}

}  // namespace brelt::platform::posix
