// Lib sorts: arrange positions 1 to n through two callbacks of the caller's, never seeing an
// element. Both sorts make a fixed sequence of callback calls for a given input, so a caller
// may count and log them; neither is stable, and neither allocates.
#pragma once

#include <brelt/config.h>

namespace Lib {

// Nonzero exactly when the element now at position i must stand before the one at j.
using SortLess = unsigned char (*)(unsigned int i, unsigned int j);
// Exchanges the elements at positions i and j; i may equal j.
using SortSwap = void (*)(unsigned int i, unsigned int j);

// Quicksort with the first element of each range as pivot, recursing on the smaller part:
// stack in log2(n), but quadratic on sorted and all-equal input.
BRELT_API void QSort(unsigned int n, SortLess less, SortSwap swap);
// Bottom-up heapsort: constant stack, no quadratic case.
BRELT_API void HSort(unsigned int n, SortLess less, SortSwap swap);

}  // namespace Lib
