// The last error of the POSIX layer: a Win32 code per thread, with the one table from errno.
#include "platform/last_error.h"

#include <errno.h>

#include "platform/posix/errors.h"

namespace brelt::platform {
namespace {

thread_local std::uint32_t t_lastError = 0;

struct ErrnoCode {
  int error;
  std::uint32_t code;
};

// ENOENT says "file not found"; callers that know a folder on the way is missing turn it into
// kErrorPathNotFound themselves, since errno does not tell the two apart.
constexpr ErrnoCode kTable[] = {
    {0, 0},
    {EPERM, kErrorAccessDenied},
    {ENOENT, kErrorFileNotFound},
    {EIO, kErrorGenFailure},
    {ENXIO, kErrorFileNotFound},
    {EBADF, kErrorInvalidHandle},
    {EAGAIN, kErrorSharingViolation},
    {ENOMEM, kErrorNotEnoughMemory},
    {EACCES, kErrorAccessDenied},
    {EFAULT, kErrorInvalidParameter},
    {EBUSY, kErrorBusy},
    {EEXIST, kErrorAlreadyExists},
    {EXDEV, kErrorNotSameDevice},
    {ENODEV, kErrorPathNotFound},
    {ENOTDIR, kErrorPathNotFound},
    {EISDIR, kErrorAccessDenied},
    {EINVAL, kErrorInvalidParameter},
    {ENFILE, kErrorTooManyOpenFiles},
    {EMFILE, kErrorTooManyOpenFiles},
    {ETXTBSY, kErrorSharingViolation},
    {EFBIG, kErrorFileTooLarge},
    {ENOSPC, kErrorDiskFull},
    {ESPIPE, kErrorInvalidFunction},
    {EROFS, kErrorWriteProtect},
    {EMLINK, kErrorAccessDenied},
    {ENAMETOOLONG, kErrorFilenameTooLong},
    {ENOTEMPTY, kErrorDirNotEmpty},
    {ELOOP, kErrorCantResolveFilename},
    {EOVERFLOW, kErrorFileTooLarge},
    {EDQUOT, kErrorDiskFull},
    {ENOEXEC, kErrorBadExeFormat},
    {ENOSYS, kErrorInvalidFunction},
    {EOPNOTSUPP, kErrorInvalidFunction},
};

}  // namespace

std::uint32_t LastError() { return t_lastError; }
void SetLastError(std::uint32_t code) { t_lastError = code; }

namespace posix {

std::uint32_t Win32CodeOf(int error) {
  for (const ErrnoCode& row : kTable) {
    if (row.error == error) return row.code;
  }
  return kErrorGenFailure;
}

bool FailFromErrno() {
  t_lastError = Win32CodeOf(errno);
  return false;
}

bool Fail(std::uint32_t code) {
  t_lastError = code;
  return false;
}

}  // namespace posix
}  // namespace brelt::platform
