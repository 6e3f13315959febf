#include "platform/pointer_check.h"

#include <windows.h>

namespace brelt::platform {

bool CanRead(const void* p, std::uint64_t n) { return !IsBadReadPtr(p, n); }
bool CanWrite(void* p, std::uint64_t n) { return !IsBadWritePtr(p, n); }
bool CanReadText(const char* p, std::uint64_t n) { return !IsBadStringPtrA(p, n); }

}  // namespace brelt::platform
