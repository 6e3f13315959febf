#include "platform/system_time.h"

#include <windows.h>

namespace brelt::platform {

void UtcTimeFields(_SYSTEMTIME* fields) { GetSystemTime(fields); }

void LocalTimeFields(_SYSTEMTIME* fields) { GetLocalTime(fields); }

bool SetLocalTimeFields(const _SYSTEMTIME& fields) { return SetLocalTime(&fields) != 0; }

}  // namespace brelt::platform
