#include "platform/process.h"

#include <windows.h>

namespace brelt::platform {

const char* ProcessCommandLine() { return GetCommandLineA(); }

bool StartProcess(const char* program, char* commandLine, char* const* /*arguments*/,
                  void* environment, Handle* process, std::uint32_t* processId) {
  STARTUPINFOA startup;
  GetStartupInfoA(&startup);
  PROCESS_INFORMATION info;
  if (CreateProcessA(program, commandLine, nullptr, nullptr, FALSE, 0, environment, nullptr,
                     &startup, &info) == 0) {
    return false;
  }
  // Only the process's handle goes to the caller; the first thread's is not needed.
  CloseHandle(info.hThread);
  *process = info.hProcess;
  *processId = info.dwProcessId;
  return true;
}

}  // namespace brelt::platform
