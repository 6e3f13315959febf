// Lib random numbers: one additive generator shared by the whole process and by every thread,
// seeded from the clock at load. Each draw is taken under a lock, so no draw is lost or
// repeated; the two draws of RAND are separate.
#pragma once

#include <brelt/config.h>

namespace Lib {

// The next number modulo `range` (0 to range - 1); with range 0 the whole 32-bit number.
BRELT_API unsigned int RANDOM(unsigned int range);
// From 0 up to below 1, built from two draws of RANDOM(65535).
BRELT_API double RAND();
// Seeds the generator from the clock in universal time: its second times its millisecond.
// Readings with the same product restart the same sequence.
BRELT_API void RANDOMIZE();

}  // namespace Lib
