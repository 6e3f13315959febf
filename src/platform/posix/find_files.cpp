// Directory searches over opendir/readdir. The handle is the descriptor of the folder being
// read (handle.h); the layer keeps each open search in a table under that descriptor, so a
// handle that names no search is refused instead of followed. Entries fit the pattern by the
// library's own wildcard rules, ignoring case, and a name without a dot is also tried with one
// at its end, so that "*.*" takes every entry and "*." those without an extension, as on
// Windows. There are no short names: patterns meet the long names only, and the short-name
// field stays empty.
#include "platform/find_files.h"

#include <dirent.h>
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <memory>
#include <mutex>

#include "brelt/str/match.h"
#include "platform/last_error.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/dos_names.h"
#include "platform/posix/errors.h"
#include "platform/posix/file_status.h"
#include "platform/posix/name_text.h"

namespace brelt::platform {
namespace {

using posix::Fail;

struct Search {
  DIR* dir = nullptr;
  char pattern[posix::kNativeMax];  // code page
};

struct Searches {
  std::mutex lock;
  std::map<int, std::unique_ptr<Search>> open;
};

Searches& Table() {
  static Searches table;
  return table;
}

void SplitTime(std::uint64_t t, std::uint32_t (&out)[2]) {
  out[0] = static_cast<std::uint32_t>(t);
  out[1] = static_cast<std::uint32_t>(t >> 32);
}

bool Fits(const char* pattern, const char* name, std::uint32_t n) {
  constexpr unsigned kToNul = 0xFFFFFFFF;
  if (Str::MatchA(kToNul, name, kToNul, pattern)) return true;
  if (std::memchr(name, '.', n) != nullptr || n + 2 > posix::kNativeMax) return false;
  char dotted[posix::kNativeMax];
  std::memcpy(dotted, name, n);
  dotted[n] = '.';
  dotted[n + 1] = '\0';
  return Str::MatchA(kToNul, dotted, kToNul, pattern) != 0;
}

// The next entry of `s` that fits its pattern, into `record`; false at the end of the folder.
bool NextFitting(Search& s, FindRecord* record) {
  const int dirfd = ::dirfd(s.dir);
  for (;;) {
    errno = 0;
    const dirent* e = readdir(s.dir);
    if (e == nullptr) return errno == 0 ? Fail(kErrorNoMoreFiles) : posix::FailFromErrno();
    char name[sizeof record->name];
    const auto native = static_cast<std::uint32_t>(std::strlen(e->d_name));
    const std::uint32_t n = posix::NativeToCodePage(e->d_name, native, name, sizeof name - 1);
    if (n == 0) continue;  // a name the record cannot hold
    name[n] = '\0';
    if (!Fits(s.pattern, name, n)) continue;
    struct stat st;
    if (fstatat(dirfd, e->d_name, &st, 0) != 0 &&
        fstatat(dirfd, e->d_name, &st, AT_SYMLINK_NOFOLLOW) != 0) {
      continue;  // gone since it was listed
    }
    std::memset(record, 0, sizeof *record);
    record->attributes = posix::AttributesOf(st, e->d_name);
    SplitTime(posix::CreationTimeOf(dirfd, e->d_name, st), record->creationTime);
    SplitTime(posix::FileTimeOf(st.st_atim), record->lastAccessTime);
    SplitTime(posix::FileTimeOf(st.st_mtim), record->lastWriteTime);
    const std::uint64_t size = S_ISDIR(st.st_mode) ? 0 : static_cast<std::uint64_t>(st.st_size);
    record->sizeHigh = static_cast<std::uint32_t>(size >> 32);
    record->sizeLow = static_cast<std::uint32_t>(size);
    std::memcpy(record->name, name, n + 1);
    return true;
  }
}

}  // namespace

Handle FindFirst(const char* pattern, FindRecord* record) {
  posix::NativeName n;
  if (!posix::ResolveName(pattern, posix::NameUse::kPattern, &n)) return kInvalidHandle;
  if (n.trailingSeparator || n.lastStart == n.length) {
    return Fail(kErrorFileNotFound), kInvalidHandle;
  }
  auto search = std::make_unique<Search>();
  // The pattern goes back to the code page, in which entries are matched.
  const std::uint32_t p = posix::NativeToCodePage(n.path + n.lastStart, n.length - n.lastStart,
                                                  search->pattern, posix::kNativeMax - 1);
  search->pattern[p] = '\0';
  n.path[n.lastStart - 1 == 0 ? 1 : n.lastStart - 1] = '\0';  // the folder
  const int fd = open(n.path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) {
    if (errno == ENOTDIR) return Fail(kErrorInvalidName), kInvalidHandle;
    return Fail(errno == ENOENT ? kErrorPathNotFound : posix::Win32CodeOf(errno)), kInvalidHandle;
  }
  const Handle h = posix::HandleOfNewDescriptor(fd);
  if (h == kInvalidHandle) return kInvalidHandle;
  search->dir = fdopendir(DescriptorOf(h));
  if (search->dir == nullptr) {
    posix::FailFromErrno();
    close(DescriptorOf(h));
    return kInvalidHandle;
  }
  if (!NextFitting(*search, record)) {
    closedir(search->dir);
    if (LastError() == kErrorNoMoreFiles) SetLastError(kErrorFileNotFound);
    return kInvalidHandle;
  }
  Searches& t = Table();
  std::lock_guard<std::mutex> hold(t.lock);
  t.open[DescriptorOf(h)] = std::move(search);
  return h;
}

bool FindNext(Handle search, FindRecord* record) {
  Searches& t = Table();
  std::lock_guard<std::mutex> hold(t.lock);
  const auto it = t.open.find(DescriptorOf(search));
  if (it == t.open.end()) return Fail(kErrorInvalidHandle);
  return NextFitting(*it->second, record);
}

bool FindEnd(Handle search) {
  std::unique_ptr<Search> s;
  {
    Searches& t = Table();
    std::lock_guard<std::mutex> hold(t.lock);
    const auto it = t.open.find(DescriptorOf(search));
    if (it == t.open.end()) return Fail(kErrorInvalidHandle);
    s = std::move(it->second);
    t.open.erase(it);
  }
  closedir(s->dir);
  return true;
}

}  // namespace brelt::platform
