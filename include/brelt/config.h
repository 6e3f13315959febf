// Public types and the export marker shared by every brelt header.
//
// The widths here are the interface: an application built with any compiler sees the same
// sizes, whatever the target calls its own `long` or `wchar_t`.
#pragma once

#include <cstddef>
#include <cstdint>

// BRELT_API marks what the shared library exports. BRELT_BUILDING is set while the library
// itself is compiled; BRELT_STATIC when a program links the objects directly (internal tests).
#if defined(BRELT_STATIC)
#  define BRELT_API
#elif defined(_WIN32)
#  if defined(BRELT_BUILDING)
#    define BRELT_API __declspec(dllexport)
#  else
#    define BRELT_API __declspec(dllimport)
#  endif
#else
#  define BRELT_API __attribute__((visibility("default")))
#endif

namespace brelt {

// The character of every W operation: a 16-bit unit on every target, never Linux's 32-bit
// wchar_t.
#if defined(_WIN32)
using WChar = wchar_t;
#else
using WChar = char16_t;
#endif

// The "long" of the exported signatures is 32 bits everywhere.
using Long = std::int32_t;
using ULong = std::uint32_t;
using Int64 = std::int64_t;
using UInt64 = std::uint64_t;

// The platform's file handle, passed unchanged; all bits set means failure.
using FileHandle = void*;
inline FileHandle const kInvalidFileHandle = reinterpret_cast<FileHandle>(~std::uintptr_t{0});

// Not-found value of every position search.
inline constexpr std::uint32_t kNotFound = 0xFFFFFFFFu;

static_assert(sizeof(WChar) == 2 && static_cast<WChar>(-1) > 0, "W character is 16-bit unsigned");
static_assert(sizeof(char) == 1 && sizeof(unsigned char) == 1 && sizeof(signed char) == 1);
static_assert(sizeof(short) == 2 && sizeof(unsigned short) == 2);
static_assert(sizeof(int) == 4 && sizeof(unsigned int) == 4);
static_assert(sizeof(Long) == 4 && sizeof(ULong) == 4);
static_assert(sizeof(Int64) == 8 && sizeof(UInt64) == 8);
static_assert(sizeof(float) == 4 && sizeof(double) == 8);
static_assert(sizeof(void*) == 8, "brelt targets 64-bit platforms only");
static_assert(sizeof(FileHandle) == sizeof(void*));

}  // namespace brelt

// The platform's time record: eight 16-bit fields. On Windows it is the system's own
// SYSTEMTIME, so a record from the system passes unchanged; whichever of this header and the
// system's headers comes first defines it, under the system's own guard.
#if defined(_WIN32)
#  ifndef _SYSTEMTIME_
#    define _SYSTEMTIME_
typedef struct _SYSTEMTIME {
  unsigned short wYear;
  unsigned short wMonth;
  unsigned short wDayOfWeek;
  unsigned short wDay;
  unsigned short wHour;
  unsigned short wMinute;
  unsigned short wSecond;
  unsigned short wMilliseconds;
} SYSTEMTIME, *PSYSTEMTIME, *LPSYSTEMTIME;
#  endif
#else
struct _SYSTEMTIME {
  unsigned short wYear;
  unsigned short wMonth;
  unsigned short wDayOfWeek;  // 0 Sunday to 6 Saturday
  unsigned short wDay;
  unsigned short wHour;
  unsigned short wMinute;
  unsigned short wSecond;
  unsigned short wMilliseconds;
};
#endif
static_assert(sizeof(_SYSTEMTIME) == 16);
