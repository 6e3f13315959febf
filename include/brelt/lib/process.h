// Lib process services: the process's command line, child processes, environment variables,
// delays, the speaker, and the local date and time.
#pragma once

#include <brelt/config.h>

namespace Lib {

// The days of the week as the platform counts them.
enum DayType : brelt::Long {
  Sunday = 0,
  Monday = 1,
  Tuesday = 2,
  Wednesday = 3,
  Thursday = 4,
  Friday = 5,
  Saturday = 6,
};

// --- The command line. Parameters are cut at spaces and tabs outside double-quoted stretches;
// a backslash is a plain character. Parameter 0 is the program as the command line names it.

// The number of parameters after the program's name.
BRELT_API unsigned int ParamCount();
// Parameter `index` into (high, dst), cut to the array without report; empty past the last
// one. A parameter that begins with a quote loses that quote and its last one.
BRELT_API void ParamStrA(unsigned int high, char* dst, unsigned int index);

// --- Child processes. Starts `program` (a file name; no search path) with the command line
// `command`, which names the program again as its first parameter, and returns at once with
// 1, the new process's handle and id; 0 when either text is over 260 characters (nothing is
// started or stored) or the platform refused, with its code in FIO::IOresult. The caller owns
// the handle: it may wait on it with os::MsgWaitForMultipleObjectsEx and closes it with
// FIO::Close. `environment` is a block of "name=value" texts each ending in a NUL, with one
// more NUL at its end; null passes this process's environment on.
BRELT_API unsigned char ExecA(unsigned int highProgram, const char* program,
                              unsigned int highCommand, const char* command, void* environment,
                              void** process, brelt::ULong* processId);

// --- Environment variables. A name or value without a NUL in its array is refused. A value
// that does not fit `value` whole gives an empty string, never a cut one.
BRELT_API void GetEnvironmentStringA(unsigned int highName, const char* name,
                                     unsigned int highValue, char* value);
BRELT_API void SetEnvironmentStringA(unsigned int highName, const char* name,
                                     unsigned int highValue, const char* value);

// --- Waiting and sound.
// Waits `ms` milliseconds.
BRELT_API void Delay(unsigned int ms);
// A tone of `frequency` hertz for `duration` ms, where the platform has a speaker.
BRELT_API void Speaker(unsigned int frequency, unsigned int duration);
// These two do nothing at all.
BRELT_API void Sound(unsigned int frequency);
BRELT_API void NoSound();

// --- The local date and time. The setters change only their own fields; the platform checks
// them and the result is 1 when it accepted the new clock.
BRELT_API void GetDate(unsigned int* year, unsigned int* month, unsigned int* day,
                       DayType* dayType);
BRELT_API void GetTime(unsigned int* hour, unsigned int* minute, unsigned int* second,
                       unsigned int* milliseconds);
BRELT_API unsigned char SetDate(unsigned int year, unsigned int month, unsigned int day);
BRELT_API unsigned char SetTime(unsigned int hour, unsigned int minute, unsigned int second,
                                unsigned int milliseconds);

}  // namespace Lib
