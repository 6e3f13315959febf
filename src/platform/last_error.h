// The calling thread's last error: a 32-bit Win32 code, 0 meaning success. Every module that
// reaches the system clears it right before the call and leaves what the call set; FIO::IOresult
// reads it. Windows keeps it itself; the POSIX layer keeps one per thread, mapped from errno by
// one table, so that an application sees the same numbers on both targets.
#pragma once

#include <cstdint>

namespace brelt::platform {

std::uint32_t LastError();
void SetLastError(std::uint32_t code);

// The codes the layers give for the failures both targets share.
inline constexpr std::uint32_t kErrorInvalidFunction = 1;
inline constexpr std::uint32_t kErrorFileNotFound = 2;
inline constexpr std::uint32_t kErrorPathNotFound = 3;
inline constexpr std::uint32_t kErrorTooManyOpenFiles = 4;
inline constexpr std::uint32_t kErrorAccessDenied = 5;
inline constexpr std::uint32_t kErrorInvalidHandle = 6;
inline constexpr std::uint32_t kErrorNotEnoughMemory = 8;
inline constexpr std::uint32_t kErrorNotSameDevice = 17;
inline constexpr std::uint32_t kErrorNoMoreFiles = 18;
inline constexpr std::uint32_t kErrorWriteProtect = 19;
inline constexpr std::uint32_t kErrorGenFailure = 31;
inline constexpr std::uint32_t kErrorSharingViolation = 32;
inline constexpr std::uint32_t kErrorBadNetPath = 53;
inline constexpr std::uint32_t kErrorFileExists = 80;
inline constexpr std::uint32_t kErrorInvalidParameter = 87;
inline constexpr std::uint32_t kErrorBrokenPipe = 109;
inline constexpr std::uint32_t kErrorDiskFull = 112;
inline constexpr std::uint32_t kErrorInvalidName = 123;
inline constexpr std::uint32_t kErrorNegativeSeek = 131;
inline constexpr std::uint32_t kErrorDirNotEmpty = 145;
inline constexpr std::uint32_t kErrorBusy = 170;
inline constexpr std::uint32_t kErrorAlreadyExists = 183;
inline constexpr std::uint32_t kErrorBadExeFormat = 193;
inline constexpr std::uint32_t kErrorEnvVarNotFound = 203;
inline constexpr std::uint32_t kErrorFilenameTooLong = 206;
inline constexpr std::uint32_t kErrorFileTooLarge = 223;
inline constexpr std::uint32_t kErrorDirectory = 267;
inline constexpr std::uint32_t kErrorPrivilegeNotHeld = 1314;
inline constexpr std::uint32_t kErrorCantResolveFilename = 1921;

}  // namespace brelt::platform
