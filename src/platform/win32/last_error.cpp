#include "platform/last_error.h"

#include <windows.h>

namespace brelt::platform {

std::uint32_t LastError() { return ::GetLastError(); }
void SetLastError(std::uint32_t code) { ::SetLastError(code); }

}  // namespace brelt::platform
