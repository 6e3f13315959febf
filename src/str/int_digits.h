// Digits shared by the number formatters and parsers: the alphabet, the value of each
// character from '0' to 'F', the decimal pairs, and the clamp that every operation applies
// to its base.
#pragma once

#include <array>
#include <cstdint>

namespace brelt::str {

inline constexpr char kDigitAlphabet[] = "0123456789ABCDEF";

// Indexed by (character - '0'). The seven characters between '9' and 'A' are no digits and
// hold 255, a value above every base, so that a walk treats them as a digit too large.
inline constexpr std::uint8_t kDigitValue[23] = {0,   1,   2,   3,   4,   5,   6,   7,
                                                 8,   9,   255, 255, 255, 255, 255, 255,
                                                 255, 10,  11,  12,  13,  14,  15};

// "00" to "99": decimal text is stored two digits per division.
inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> t{};
  for (int i = 0; i < 100; ++i) {
    t[2 * i] = static_cast<char>('0' + i / 10);
    t[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return t;
}();

inline constexpr unsigned int ClampBase(unsigned int base) {
  return base < 2 ? 2 : (base > 16 ? 16 : base);
}

}  // namespace brelt::str
