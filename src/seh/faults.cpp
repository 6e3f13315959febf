// SEH: the module's start-up step, and machine faults as thrown codes.
#include <cstdint>

#include "brelt/seh.h"
#include "platform/fault.h"

namespace {

// The translator: the fault's code, thrown by value as the only type callers catch.
[[noreturn]] void ThrowFaultCode(std::uint32_t code) { throw static_cast<unsigned int>(code); }

}  // namespace

namespace SEH {

// Start-up leaves the float mask and fault handling as the process got them.
void InitModule() {}

void EnableSEH() { brelt::platform::TranslateFaultsOnThisThread(ThrowFaultCode); }

}  // namespace SEH
