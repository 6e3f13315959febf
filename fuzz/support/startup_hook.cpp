// The targets link the library's objects directly, so no load event runs start-up for them:
// libFuzzer calls this once before the first input, as the shared library's load would.
#include "frame/startup.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  brelt::frame::RunStartup();
  return 0;
}
