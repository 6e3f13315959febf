// The process locale that the library sets while it loads.
#pragma once

namespace brelt::platform {

// All categories to the system's default, then the numeric category back to "C", so that
// reals are always written and read with '.'. On POSIX this also fixes the 8-bit code page
// that 8-bit text is taken to be in from then on.
void SetStartupLocale();

}  // namespace brelt::platform
