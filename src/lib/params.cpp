// The process's own parameters, from the command line the platform gives.
#include "brelt/lib/process.h"
#include "lib/command_line.h"
#include "platform/process.h"

namespace Lib {

unsigned int ParamCount() {
  return brelt::lib::ParamCountOf(brelt::platform::ProcessCommandLine());
}

void ParamStrA(unsigned int high, char* dst, unsigned int index) {
  brelt::lib::ParamStrOf(brelt::platform::ProcessCommandLine(), high, dst, index);
}

}  // namespace Lib
