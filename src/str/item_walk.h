// The walk shared by the item operations of both widths: skip to the wanted item, then copy
// it. The separator test is a parameter, so the set forms and the string forms share it.
#pragma once

#include <cstdint>

#include "bounded.h"

namespace brelt::str {

// Writes item `index` of (srcHigh, src) into (dstHigh, dst). The length is measured before
// anything is stored and the write index never passes the read index, so dst may be src.
template <class T, class IsSep>
void CopyItem(unsigned int dstHigh, T* dst, unsigned int srcHigh, const T* src,
              std::uint32_t index, IsSep isSep) {
  const std::uint64_t n = MeasuredLength(srcHigh, src);
  std::uint64_t i = 0;
  for (std::uint32_t left = index;; --left) {
    while (i < n && isSep(src[i])) ++i;
    if (left == 0) break;
    if (i == n) {
      dst[0] = T{0};
      return;
    }
    while (i < n && !isSep(src[i])) ++i;
  }
  if (i >= n) {
    dst[0] = T{0};
    return;
  }
  std::uint64_t j = 0;
  for (; i < n && !isSep(src[i]); ++i, ++j) {
    if (j > dstHigh) return;  // cut: dst is full and has no NUL
    dst[j] = src[i];
  }
  if (j <= dstHigh) dst[j] = T{0};
}

}  // namespace brelt::str
