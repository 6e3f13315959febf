// What one character weighs in the word sort of the POSIX layer, in the manner of the Windows
// word sort: most characters give one or two sort elements (a letter, digit or symbol, with
// its accent and case); the hyphen, the apostrophe, the dashes and the control characters
// give only a weight of the last level, where they count with their place; a few characters
// weigh nothing at all.
#pragma once

#include <cstdint>

namespace brelt::platform::posix {

struct SortElement {
  std::uint32_t primary;    // symbols before digits before letters
  std::uint8_t diacritic;   // 0 for none
  std::uint8_t upper;       // 1 for a capital
};

struct CharWeight {
  enum class Kind { kIgnored, kSpecial, kElements } kind;
  std::uint32_t special;  // kSpecial: its weight on the last level
  int count;              // kElements: 1, or 2 for a letter that sorts as two (ae, ss, th)
  SortElement element[2];
};

CharWeight WeighForSort(char32_t cp);

}  // namespace brelt::platform::posix
