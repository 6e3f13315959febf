// The one redirection table behind the free functions of FIOR.
#pragma once

#include "brelt/fior.h"

namespace brelt::fior {

// Empty from load on (built with the library's statics, before any export can be called);
// InitA and Done change it.
FIOR::CRed2A& GlobalTable();

// Work arrays of paths: 260 characters.
inline constexpr unsigned int kPathHigh = 259;

}  // namespace brelt::fior
