// The control word as start-up left it, and after each mask operation. The precision field
// (0x30000) is the runtime's, not the library's; it is shown once on its own line and taken
// out of every other word.
#include <brelt/seh.h>

#include "sections.h"

namespace sidebyside {
namespace {
constexpr unsigned int kPrecisionField = 0x30000;
std::string Word(unsigned int w) { return Hex(w & ~kPrecisionField, 8); }
}  // namespace

void FloatMaskWords(Report& r) {
  const unsigned int start = SEH::GetFloatExceptionsMask();
  r.Line("floatmask.startup.precision", Hex(start & kPrecisionField, 8));
  r.Line("floatmask.startup", Word(start));
  const unsigned int masks[] = {0x0, 0x1, 0x2, 0x4, 0x8, 0x10, 0x80000, 0x8001F, 0xFFFFFFFF,
                                0x1234567};
  for (unsigned int m : masks) {
    const unsigned int before = SEH::SetFloatExceptionsMask(m);
    r.Line("floatmask.set." + Hex(m, 8), Word(before) + " -> " + Word(SEH::GetFloatExceptionsMask()));
  }
  unsigned int before = SEH::EnableFloatExceptions();
  r.Line("floatmask.enable", Word(before) + " -> " + Word(SEH::GetFloatExceptionsMask()));
  before = SEH::DisableFloatExceptions();
  r.Line("floatmask.disable", Word(before) + " -> " + Word(SEH::GetFloatExceptionsMask()));
  SEH::SetFloatExceptionsMask(start);
  r.Line("floatmask.restored", Word(SEH::GetFloatExceptionsMask()));
}

}  // namespace sidebyside
