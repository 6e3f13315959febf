#include "platform/collate.h"

#include <windows.h>

namespace brelt::platform {

int CollateA(const char* a, std::uint32_t la, const char* b, std::uint32_t lb, bool ignoreCase) {
  return CompareStringA(LOCALE_USER_DEFAULT, ignoreCase ? NORM_IGNORECASE : 0, a,
                        static_cast<int>(la), b, static_cast<int>(lb));
}

}  // namespace brelt::platform
