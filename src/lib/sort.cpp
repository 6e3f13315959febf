// Lib::QSort and Lib::HSort. Callers may log the callback calls, so the order of every
// comparison and exchange below is part of the interface, not only the final arrangement.
#include <cstdint>

#include "brelt/lib/sort.h"

namespace {

struct Callbacks {
  Lib::SortLess less;
  Lib::SortSwap swap;
};

// Sorts positions lo to hi around the first element of the range. Only the smaller part is
// recursed into, so the depth stays within log2(n).
void QSortRange(const Callbacks* cb, std::uint32_t lo, std::uint32_t hi) {
  while (hi > lo) {
    std::uint32_t i = lo + 1;
    std::uint32_t j = hi;
    while (i <= j) {
      if (cb->less(lo, i) != 0) {
        // Element i goes right: find from the right one that may go left, and exchange.
        for (;;) {
          if (cb->less(lo, j) == 0) {
            cb->swap(i, j);
            --j;
            break;
          }
          --j;
          if (i > j) goto partitioned;
        }
      }
      ++i;
    }
  partitioned:
    if (j != lo) cb->swap(j, lo);
    // Both sides in 32 bits, as the comparison has always been made.
    if (static_cast<std::uint32_t>(2 * j) > static_cast<std::uint32_t>(lo + hi)) {
      QSortRange(cb, j + 1, hi);
      hi = j - 1;
    } else {
      QSortRange(cb, lo, j - 1);
      lo = j + 1;
    }
  }
}

}  // namespace

namespace Lib {

void QSort(unsigned int n, SortLess less, SortSwap swap) {
  const Callbacks cb{less, swap};
  QSortRange(&cb, 1, n);
}

void HSort(unsigned int n, SortLess less, SortSwap swap) {
  if (n < 2) return;
  // Children in 64 bits: 2c must not wrap back into the heap for n above 2^31.
  for (std::uint32_t k = n / 2; k >= 1; --k) {
    std::uint32_t p = k;
    for (std::uint64_t c = 2 * std::uint64_t{k}; c <= n; c *= 2) {
      auto child = static_cast<std::uint32_t>(c);
      if (child < n && less(child, child + 1) != 0) ++child;
      if (less(p, child) == 0) break;
      swap(p, child);
      p = child;
      c = child;
    }
  }
  for (std::uint32_t m = n; m != 0;) {
    swap(1, m);
    --m;
    // The new root sinks all the way down the larger children, one comparison a level,
    // and is then lifted back to its place.
    std::uint32_t p = 1;
    for (std::uint64_t c = 2; c <= m; c *= 2) {
      auto child = static_cast<std::uint32_t>(c);
      if (child < m && less(child, child + 1) != 0) ++child;
      swap(p, child);
      p = child;
      c = child;
    }
    for (std::uint32_t q = p / 2; q != 0; q /= 2) {
      if (less(q, p) == 0) break;
      swap(p, q);
      p = q;
    }
  }
}

}  // namespace Lib
