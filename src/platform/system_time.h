// The wall clock as calendar fields: in universal time (GetSystemTime), in local time
// (GetLocalTime), and setting it in local time (SetLocalTime).
#pragma once

#include "brelt/config.h"

namespace brelt::platform {

void UtcTimeFields(_SYSTEMTIME* fields);
void LocalTimeFields(_SYSTEMTIME* fields);

// Sets the clock to the local time `fields`; the day of the week is not read. A field out of
// its range (30 February, hour 24, ...) fails with kErrorInvalidParameter and leaves the clock;
// so does a process without the right to set it, with the platform's code.
bool SetLocalTimeFields(const _SYSTEMTIME& fields);

}  // namespace brelt::platform
