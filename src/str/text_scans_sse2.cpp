// The exported character scans at the 16-byte width, which every x86-64 CPU has.
#include "text_scans.h"

template struct brelt::str::TextScans<brelt::scan::Width::kSse2>;
