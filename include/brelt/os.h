// os: calendar arithmetic on Julian dates, the high-resolution and uptime clocks, and the two
// message-queue services.
#pragma once

#include <brelt/config.h>

namespace os {

// Set to 2 at start-up, for callers to read; the library itself never reads it.
BRELT_API extern unsigned int Platform;

// Start-up step of the module: Platform, the tick extension and its lock, the counter's
// frequency. Calling it again resets the tick extension; no other thread may use the clocks
// meanwhile.
BRELT_API void __INIT();

// --- Calendar. A Julian date counts days from noon of 1 January -4712; years are
// astronomical (year 0 exists). Dates up to 4 October 1582 are Julian, from 15 October 1582
// Gregorian. Nothing is range-checked: a day the month lacks runs on into the next month.
BRELT_API double JD(int year, int month, int day, double fraction);
BRELT_API void iJD(double jd, int* year, int* month, int* day, double* fraction);
BRELT_API double SystemTimeToJD(const _SYSTEMTIME& st);
BRELT_API void JDToSystemTime(double jd, _SYSTEMTIME* st);

// Day fraction (0 at midnight) to and from clock fields. fd2HMS gives 1 when the rounding of
// the milliseconds carried all the way to 24 hours, which it leaves in `hours`.
BRELT_API double HMS2fd(unsigned int hours, unsigned int minutes, unsigned int seconds,
                        unsigned int milliseconds);
BRELT_API unsigned char fd2HMS(double fd, unsigned int* hours, unsigned int* minutes,
                               unsigned int* seconds, unsigned int* milliseconds);

// Spans: a year counts 365.25 days, a month 30.6001 days.
BRELT_API double Days(unsigned int years, unsigned int months, unsigned int days,
                      double fraction);
BRELT_API void iDays(double value, unsigned int* years, unsigned int* months,
                     unsigned int* days, double* fraction);

// The fractional part, with the sign of x.
BRELT_API double frac(double x);

// --- Clocks. A high-resolution tick is one count of the performance counter, or one
// millisecond of the extended uptime where no counter exists.
BRELT_API unsigned char HiResTimerExists();
BRELT_API brelt::Int64 GetHiResHz();
BRELT_API brelt::Int64 GetHiResTicks();
// Ticks since the reading stored behind `last`; the new reading is stored there.
BRELT_API brelt::Int64 GetHiResDifference(brelt::Int64* last);
BRELT_API brelt::Int64 HiResTicksToMS(brelt::Int64 ticks);
BRELT_API double HiResTicksToLRMS(brelt::Int64 ticks);
BRELT_API double HiResTicksToLRS(brelt::Int64 ticks);

// Milliseconds since the system started: as the platform counts them, wrapping in 32 bits,
// and extended to 64 bits across the wrap.
BRELT_API unsigned int GetUptimeMS();
BRELT_API brelt::Int64 GetUptimeMS64();

// 1 when the calling thread's message queue holds nothing.
BRELT_API unsigned char WindowsQueueEmpty();
// Waits for one (or all) of `handles` or for queue input, up to `timeout` milliseconds, and
// answers 0 + index of the handle, 258 on timeout, 0xFFFFFFFF on failure. On Linux a handle
// is a file descriptor carried in the pointer (a process descriptor signals when the process
// ends); there is no message queue, so input never arrives.
BRELT_API brelt::ULong MsgWaitForMultipleObjectsEx(brelt::ULong count, void** handles,
                                                   brelt::ULong timeout, brelt::ULong wakeMask,
                                                   brelt::ULong flags);

}  // namespace os
