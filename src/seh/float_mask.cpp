// SEH: the calling thread's floating-point exception mask.
#include "brelt/seh.h"
#include "platform/fault.h"

namespace pf = brelt::platform;

namespace {
constexpr unsigned int kAllMaskBits = 0x8001F;
constexpr unsigned int kOnlyInexactMasked = 0x1;
}  // namespace

namespace SEH {

unsigned int GetFloatExceptionsMask() { return pf::FloatControlWord(); }

unsigned int SetFloatExceptionsMask(unsigned int mask) {
  // Pending flags go first, so that unmasking does not trap on an old exception.
  pf::ClearFloatFlags();
  const unsigned int before = pf::FloatControlWord();
  pf::SetFloatMaskBits(mask & kAllMaskBits);
  return before;
}

unsigned int EnableFloatExceptions() { return SetFloatExceptionsMask(kOnlyInexactMasked); }

// Masking cannot trap, so pending flags stay for whoever looks at them.
unsigned int DisableFloatExceptions() {
  const unsigned int before = pf::FloatControlWord();
  pf::SetFloatMaskBits(kAllMaskBits);
  return before;
}

}  // namespace SEH
