// How the platform's load event reaches the start-up sequence.
#include "startup.h"

#if defined(_WIN32)

#include <windows.h>

// Process attach runs start-up; every other reason does nothing. The result is always 1.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) brelt::frame::RunStartup();
  return TRUE;
}

#else

// The ELF constructor of libbrelt.so runs when the library is mapped, before any caller can
// enter an export; thread creation never reaches it.
__attribute__((constructor)) static void BreltOnLoad() { brelt::frame::RunStartup(); }

#endif
