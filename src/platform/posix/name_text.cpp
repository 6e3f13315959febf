#include "platform/posix/name_text.h"

#include <cstring>

#include "platform/code_page_convert.h"
#include "platform/posix/code_page.h"
#include "platform/posix/unicode_case.h"

namespace brelt::platform::posix {
namespace {

// A component has at most 255 bytes on the file systems the layer serves, and a path at most
// 4096; 16-bit units never outnumber the bytes they came from.
constexpr std::uint32_t kUnitsMax = 4096;

std::uint32_t CopyBytes(const char* src, std::uint32_t n, char* dst, std::uint32_t cap) {
  if (n == 0 || n > cap) return 0;
  std::memcpy(dst, src, n);
  return n;
}

}  // namespace

std::uint32_t CodePageToNative(const char* src, std::uint32_t n, char* dst, std::uint32_t cap) {
  if (ActiveCodePage() == CodePage::kUtf8) return CopyBytes(src, n, dst, cap);
  WChar units[kUnitsMax];
  const std::uint32_t count = n > kUnitsMax ? 0 : CodePageToUnits(src, n, units, kUnitsMax);
  return count == 0 ? 0 : UnitsToUtf8(units, count, dst, cap);
}

std::uint32_t NativeToCodePage(const char* src, std::uint32_t n, char* dst, std::uint32_t cap) {
  if (ActiveCodePage() == CodePage::kUtf8) return CopyBytes(src, n, dst, cap);
  WChar units[kUnitsMax];
  const std::uint32_t count = n > kUnitsMax ? 0 : Utf8ToUnits(src, n, units, kUnitsMax);
  return count == 0 ? 0 : UnitsToCodePage(units, count, dst, cap, false);
}

bool SameNameIgnoringCase(const char* a, std::uint32_t na, const char* b, std::uint32_t nb) {
  WChar ua[256], ub[256];
  if (na > 256 || nb > 256) return false;
  const std::uint32_t la = Utf8ToUnits(a, na, ua, 256);
  const std::uint32_t lb = Utf8ToUnits(b, nb, ub, 256);
  if (la == 0 || la != lb) return false;
  for (std::uint32_t i = 0; i < la; ++i) {
    if (SimpleUpper(ua[i]) != SimpleUpper(ub[i])) return false;
  }
  return true;
}

}  // namespace brelt::platform::posix
