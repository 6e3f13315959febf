// Str copies into NUL-terminated and counted strings.
#include <cstdint>

#include "brelt/str/copies.h"

namespace {

// Element by element, so that dst may be the array of src.
template <class T>
unsigned char ToTerminated(unsigned int srcHigh, const T* src, unsigned int dstHigh, T* dst) {
  for (std::uint64_t i = 0;;) {
    if (i > srcHigh) {  // the source filled its array
      dst[i] = T{0};
      return 1;
    }
    const T c = src[i];
    dst[i] = c;
    if (c == T{0}) return 1;
    if (++i > dstHigh) return 0;  // full, and no room for the NUL
  }
}

// The room test comes before the end test, so the last element never holds a success.
// srcHigh + 1 is formed in 32 bits: 0xFFFFFFFF ends the text at once.
template <class T>
unsigned char ToCounted(unsigned int srcHigh, const T* src, unsigned int dstHigh, T* dst) {
  if (dstHigh == 0) {
    dst[0] = T{0};
    return 0;
  }
  const std::uint32_t srcCap = srcHigh + 1u;
  for (std::uint64_t i = 1;;) {
    if (i - 1 >= srcCap || src[i - 1] == T{0}) {
      dst[0] = static_cast<T>(i - 1);  // one byte in the 8-bit form: modulo 256
      return 1;
    }
    dst[i] = src[i - 1];
    if (++i > dstHigh) {
      dst[0] = T{0};
      return 0;
    }
  }
}

}  // namespace

namespace Str {

unsigned char StrToCA(unsigned int srcHigh, const char* src, unsigned int dstHigh, char* dst) {
  return ToTerminated(srcHigh, src, dstHigh, dst);
}
unsigned char StrToCW(unsigned int srcHigh, const WChar* src, unsigned int dstHigh,
                      WChar* dst) {
  return ToTerminated(srcHigh, src, dstHigh, dst);
}

unsigned char StrToPasA(unsigned int srcHigh, const char* src, unsigned int dstHigh,
                        char* dst) {
  return ToCounted(srcHigh, src, dstHigh, dst);
}
unsigned char StrToPasW(unsigned int srcHigh, const WChar* src, unsigned int dstHigh,
                        WChar* dst) {
  return ToCounted(srcHigh, src, dstHigh, dst);
}

}  // namespace Str
