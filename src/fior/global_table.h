// The one redirection table behind the free functions of FIOR.
#pragma once

#include "brelt/fior.h"

namespace brelt::fior {

// Empty from load on (built with the library's statics, before any export can be called);
// InitA and Done change it.
FIOR::CRed2A& GlobalTable();

// Work arrays of paths: 260 characters.
inline constexpr unsigned int kPathHigh = 259;

// DefaultDir, a backslash unless it ends in one, and `name`, in full form from BaseDir.
void DefaultDirPath(const FIOR::CRed1A& table, unsigned int high, const char* name,
                    unsigned int dsthigh, char* dst);

}  // namespace brelt::fior
