// The process's own command line, and starting other processes (GetCommandLineA,
// CreateProcessA).
#pragma once

#include <cstdint>

#include "platform/handle.h"

namespace brelt::platform {

// The command line as one NUL-terminated text, for the life of the process. Where the system
// passes an argument vector instead, the text is built from it: arguments joined by one space,
// those with blanks (or none at all) between double quotes, so that the library's parameters
// are the arguments again.
const char* ProcessCommandLine();

// Starts `program` (a file name; no search path is used) and returns without waiting. The
// child gets `commandLine` where the system passes processes one text (the system may write
// into it during the call), and `arguments` (the same line already cut into arguments, ended
// by a null pointer) where it passes a vector. It
// inherits the current directory, the standard streams and nothing else of this process's
// handles, and gets `environment` (a block of "name=value" texts each ending in a NUL, with
// one more NUL after the last), or this process's environment for null.
// On success the process's handle, which the caller closes, and id are stored.
bool StartProcess(const char* program, char* commandLine, char* const* arguments,
                  void* environment, Handle* process, std::uint32_t* processId);

}  // namespace brelt::platform
