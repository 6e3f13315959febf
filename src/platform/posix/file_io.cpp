// Files by handle over descriptors. Share modes have no meaning here and are not looked at.
// Windows rules the layer keeps where POSIX would differ: a folder cannot be opened as a file,
// a read-only file cannot be opened for writing (not even by root), and a handle opened for
// reading refuses writing, truncating and flushing with "access denied", not "invalid handle";
// a read at the end of a pipe fails with "broken pipe".
#include "platform/file_io.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/last_error.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/dos_names.h"
#include "platform/posix/errors.h"
#include "platform/posix/file_status.h"

namespace brelt::platform {
namespace {

using posix::Fail;
using posix::FailFromErrno;

int OpenFlags(std::uint32_t access) {
  const bool read = (access & kGenericRead) != 0, write = (access & kGenericWrite) != 0;
  return (write ? (read ? O_RDWR : O_WRONLY) : O_RDONLY) | O_CLOEXEC;
}

int OpenRetrying(const char* path, int flags) {
  int fd;
  do fd = open(path, flags, 0666); while (fd < 0 && errno == EINTR);
  return fd;
}

// A descriptor that the handle carries, or the invalid-handle error.
int Descriptor(Handle file) {
  const int fd = DescriptorOf(file);
  if (fd < 0) Fail(kErrorInvalidHandle);
  return fd;
}

// After EBADF: a live descriptor that lacks the access asked for is "access denied".
bool FailBadDescriptor(int fd) {
  if (errno == EBADF && fcntl(fd, F_GETFD) != -1) return Fail(kErrorAccessDenied);
  return FailFromErrno();
}

// 0: not open for writing; 1: open for writing; -1: not a descriptor (last error set).
int Writable(int fd) {
  const int flags = fcntl(fd, F_GETFL);
  if (flags == -1) return FailFromErrno(), -1;
  return (flags & O_ACCMODE) != O_RDONLY ? 1 : 0;
}

// Opens an existing entry, refusing folders and, for writing, read-only files.
int OpenExisting(const char* path, int flags) {
  const int fd = OpenRetrying(path, flags & ~O_TRUNC);
  if (fd < 0) return -1;
  struct stat st;
  const bool writing = (flags & O_ACCMODE) != O_RDONLY;
  if (fstat(fd, &st) != 0 || S_ISDIR(st.st_mode) || (writing && posix::ReadOnly(st))) {
    close(fd);
    errno = EACCES;
    return -1;
  }
  if ((flags & O_TRUNC) != 0 && ftruncate(fd, 0) != 0) {
    const int saved = errno;
    close(fd);
    errno = saved;
    return -1;
  }
  return fd;
}

// Where a move by `method` counts from.
off_t Origin(int fd, std::uint32_t method) {
  return method == kFromBegin ? 0 : lseek(fd, 0, method == kFromEnd ? SEEK_END : SEEK_CUR);
}

}  // namespace

Handle OpenNamedFile(const char* name, std::uint32_t access, std::uint32_t /*share*/,
                     std::uint32_t disposition, std::uint32_t /*flags*/) {
  posix::NativeName n;
  if (!posix::ResolveName(name, posix::NameUse::kPlain, &n)) return kInvalidHandle;
  if (n.trailingSeparator) return Fail(kErrorInvalidName), kInvalidHandle;
  const int flags = OpenFlags(access);
  int fd = -1;
  bool existed = false;
  switch (disposition) {
    case kCreateNew:
    case kCreateAlways:
    case kOpenAlways:
      // Create first, so that an existing file is never cut before its checks.
      fd = OpenRetrying(n.path, flags | O_CREAT | O_EXCL);
      if (fd >= 0 || errno != EEXIST || disposition == kCreateNew) {
        if (fd < 0 && errno == EEXIST) return Fail(kErrorFileExists), kInvalidHandle;
        break;
      }
      existed = true;
      // An existing file is cut only after the checks of OpenExisting.
      fd = OpenExisting(n.path, disposition == kCreateAlways ? (flags | O_TRUNC) : flags);
      break;
    case kOpenExisting:
      fd = OpenExisting(n.path, flags);
      break;
    case kTruncateExisting:
      fd = OpenExisting(n.path, flags | O_TRUNC);
      break;
    default:
      return Fail(kErrorInvalidParameter), kInvalidHandle;
  }
  if (fd < 0) return posix::FailForName(n), kInvalidHandle;
  const Handle h = posix::HandleOfNewDescriptor(fd);
  if (h != kInvalidHandle && existed) SetLastError(kErrorAlreadyExists);
  return h;
}

bool CloseFile(Handle file) {
  // On Windows all ones also names the process itself, whose closing succeeds and does
  // nothing; so closing the failure value is harmless on both targets.
  if (file == kInvalidHandle) return true;
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  // A process handle from StartProcess: a child that has ended is reaped as its handle goes,
  // so that it does not stay behind as a zombie. For any other descriptor this fails at once.
  siginfo_t ended;
  waitid(P_PIDFD, static_cast<id_t>(fd), &ended, WEXITED | WNOHANG);
  // A close interrupted by a signal has released the descriptor all the same on Linux.
  return close(fd) == 0 || errno == EINTR || FailFromErrno();
}

bool ReadFromFile(Handle file, void* buf, std::uint32_t count, std::uint32_t* done) {
  *done = 0;
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  ssize_t n;
  do n = read(fd, buf, count); while (n < 0 && errno == EINTR);
  if (n < 0) return FailBadDescriptor(fd);
  *done = static_cast<std::uint32_t>(n);
  // A pipe whose writers are all gone: Windows fails such a read with "broken pipe".
  struct stat st;
  if (n == 0 && count > 0 && fstat(fd, &st) == 0 && S_ISFIFO(st.st_mode)) {
    return Fail(kErrorBrokenPipe);
  }
  return true;
}

// A disk file takes all of it or fails; only pipes and the like take part of it at a time.
bool WriteToFile(Handle file, const void* buf, std::uint32_t count, std::uint32_t* done) {
  *done = 0;
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  const auto* p = static_cast<const unsigned char*>(buf);
  std::uint32_t total = 0;
  do {
    const ssize_t n = write(fd, p + total, count - total);
    if (n < 0) {
      if (errno == EINTR) continue;
      *done = total;
      return FailBadDescriptor(fd);
    }
    total += static_cast<std::uint32_t>(n);
  } while (total < count);
  *done = total;
  return true;
}

bool MoveFilePointer(Handle file, std::int64_t distance, std::uint64_t* position,
                     std::uint32_t method) {
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  if (method > kFromEnd) return Fail(kErrorInvalidParameter);
  const off_t base = Origin(fd, method);
  if (base < 0) return FailFromErrno();
  if (distance < 0 && -static_cast<std::uint64_t>(distance) > static_cast<std::uint64_t>(base)) {
    return Fail(kErrorNegativeSeek);
  }
  const off_t to = lseek(fd, base + distance, SEEK_SET);
  if (to < 0) return FailFromErrno();
  if (position != nullptr) *position = static_cast<std::uint64_t>(to);
  return true;
}

std::uint32_t MoveFilePointer32(Handle file, std::int32_t distance, std::int32_t* high,
                                std::uint32_t method) {
  const int fd = Descriptor(file);
  if (fd < 0) return kInvalid32;
  std::int64_t whole = distance;
  if (high != nullptr) {
    const std::uint64_t upper = static_cast<std::uint32_t>(*high);
    whole = static_cast<std::int64_t>(upper << 32 | static_cast<std::uint32_t>(distance));
  } else {
    // The position must fit in 32 bits: find it before moving.
    const off_t base = Origin(fd, method);
    if (base < 0) return FailFromErrno(), kInvalid32;
    if (base + distance > 0xFFFFFFFE) return Fail(kErrorInvalidParameter), kInvalid32;
  }
  std::uint64_t to = 0;
  if (!MoveFilePointer(file, whole, &to, method)) return kInvalid32;
  if (high != nullptr) *high = static_cast<std::int32_t>(to >> 32);
  return static_cast<std::uint32_t>(to);
}

std::uint32_t FileSize32(Handle file, std::uint32_t* high) {
  std::uint64_t size = 0;
  if (!FileSize(file, &size)) return kInvalid32;
  if (high != nullptr) *high = static_cast<std::uint32_t>(size >> 32);
  return static_cast<std::uint32_t>(size);
}

bool FileSize(Handle file, std::uint64_t* size) {
  *size = 0;
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  struct stat st;
  if (fstat(fd, &st) != 0) return FailFromErrno();
  *size = static_cast<std::uint64_t>(st.st_size);
  return true;
}

bool DiskFileSize(Handle file, std::uint64_t* size) {
  *size = 0;
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  struct stat st;
  if (fstat(fd, &st) != 0) return FailFromErrno();
  if (!S_ISREG(st.st_mode)) return false;
  *size = static_cast<std::uint64_t>(st.st_size);
  return true;
}

bool CutFileAtPosition(Handle file) {
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  const int writable = Writable(fd);
  if (writable <= 0) return writable == 0 ? Fail(kErrorAccessDenied) : false;
  const off_t at = lseek(fd, 0, SEEK_CUR);
  if (at < 0 || ftruncate(fd, at) != 0) return FailFromErrno();
  return true;
}

bool FlushFile(Handle file) {
  const int fd = Descriptor(file);
  if (fd < 0) return false;
  const int writable = Writable(fd);
  if (writable <= 0) return writable == 0 ? Fail(kErrorAccessDenied) : false;
  // Pipes and terminals have nothing to flush.
  return fsync(fd) == 0 || errno == EINVAL || errno == EROFS || FailFromErrno();
}

}  // namespace brelt::platform
