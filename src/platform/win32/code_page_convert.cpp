#include "platform/code_page_convert.h"

#include <windows.h>

#include <climits>

namespace brelt::platform {
namespace {

// The services count in int; a capacity beyond that is as good as unbounded.
int Count(std::uint32_t n) { return n > INT_MAX ? INT_MAX : static_cast<int>(n); }

}  // namespace

std::uint32_t CodePageToUnits(const char* src, std::uint32_t n, WChar* dst, std::uint32_t cap) {
  if (n > INT_MAX) return 0;
  const int r = MultiByteToWideChar(CP_ACP, MB_PRECOMPOSED, src, static_cast<int>(n), dst,
                                    Count(cap));
  return r > 0 ? static_cast<std::uint32_t>(r) : 0;
}

std::uint32_t UnitsToCodePage(const WChar* src, std::uint32_t n, char* dst, std::uint32_t cap,
                              bool composite) {
  if (n > INT_MAX) return 0;
  const int r = WideCharToMultiByte(CP_ACP, composite ? WC_COMPOSITECHECK : 0, src,
                                    static_cast<int>(n), dst, Count(cap), nullptr, nullptr);
  return r > 0 ? static_cast<std::uint32_t>(r) : 0;
}

unsigned int ActiveCodePageId() { return GetACP(); }

bool PinCodePage(unsigned int id) { return GetACP() == id; }

}  // namespace brelt::platform
