// Str: measure, copy, append and concatenate bounded strings.
#include "brelt/lib.h"
#include "brelt/str/core.h"
#include "bounded.h"
#include "platform/bound_at_load.h"
#include "text_scans.h"

namespace {

using brelt::str::Capacity;
using brelt::str::MeasuredLength;

template <class T>
void Copy(unsigned int dstHigh, T* dst, unsigned int srcHigh, const T* src) {
  std::uint64_t n = MeasuredLength(srcHigh, src);
  // The capacity wraps in 32 bits here: a dstHigh of 0xFFFFFFFF copies nothing.
  const std::uint32_t cap = dstHigh + 1u;
  if (n > cap) n = cap;
  Lib::Move(src, dst, n * sizeof(T));
  if (n < cap) dst[n] = T{0};
}

// Character by character: a source that overlaps the destination reads what was just
// written, as callers of the original walk have seen.
template <class T>
void Append(unsigned int dstHigh, T* dst, unsigned int srcHigh, const T* src) {
  std::uint64_t len = MeasuredLength(dstHigh, dst);
  if (len > dstHigh) return;
  for (std::uint64_t i = 0; i <= srcHigh; ++i) {
    const T c = src[i];
    if (c == T{0}) break;
    dst[len++] = c;
    if (len > dstHigh) return;
  }
  dst[len] = T{0};
}

// dst may be the same array as a: every character of a is stored where it already stands.
template <class T>
void Concat(unsigned int dstHigh, T* dst, unsigned int aHigh, const T* a, unsigned int bHigh,
            const T* b) {
  std::uint64_t i = 0;
  for (; i <= aHigh && a[i] != T{0};) {
    dst[i] = a[i];
    if (++i > dstHigh) return;
  }
  for (std::uint64_t j = 0;; ++j) {
    if (j > bHigh) {
      dst[i] = T{0};
      return;
    }
    const T c = b[j];
    dst[i] = c;
    if (c == T{0}) return;
    if (++i > dstHigh) return;
  }
}

}  // namespace

BRELT_BOUND_AT_LOAD(Str, LengthA, unsigned int, (unsigned int high, const char* s), (high, s),
                    BRELT_TEXT_SCAN_FOR_CPU(LengthA))
BRELT_BOUND_AT_LOAD(Str, LengthW, unsigned int, (unsigned int high, const WChar* s), (high, s),
                    BRELT_TEXT_SCAN_FOR_CPU(LengthW))

namespace Str {

void CopyA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src) {
  Copy(dstHigh, dst, srcHigh, src);
}
void CopyW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src) {
  Copy(dstHigh, dst, srcHigh, src);
}

void AppendA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src) {
  Append(dstHigh, dst, srcHigh, src);
}
void AppendW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src) {
  Append(dstHigh, dst, srcHigh, src);
}

void ConcatA(unsigned int dstHigh, char* dst, unsigned int aHigh, const char* a,
             unsigned int bHigh, const char* b) {
  Concat(dstHigh, dst, aHigh, a, bHigh, b);
}
void ConcatW(unsigned int dstHigh, WChar* dst, unsigned int aHigh, const WChar* a,
             unsigned int bHigh, const WChar* b) {
  Concat(dstHigh, dst, aHigh, a, bHigh, b);
}

}  // namespace Str
