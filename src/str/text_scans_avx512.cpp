// The exported character scans, compiled with AVX-512 enabled; bound only where the CPU has it.
#include "text_scans.h"

template struct brelt::str::TextScans<brelt::scan::Width::kAvx512>;
