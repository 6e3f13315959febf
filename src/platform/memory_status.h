// The machine's and the process's memory figures, all from one query.
#pragma once

#include "brelt/storage.h"

namespace brelt::platform {

void QueryMemoryStatus(Storage::TMemoryStatus* status);

}  // namespace brelt::platform
