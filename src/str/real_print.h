// The library's own print engine, text side: the conversions %E, %f and %G of a double with a
// width and a precision, into a bounded string, in the two ways the formatters print.
//
// - Strict: the text and its NUL must fit in high + 1 elements. If they do not, dst becomes
//   the empty string and the print is refused (false).
// - Cutting: at most high + 1 characters are stored and the rest dropped; a NUL follows only
//   where one more element is left.
//
// Texts are those of the C conversions without flags: a '-' for a set sign bit (zero
// included), exponents of at least two digits, blanks in front up to the width. %E writes
// "INF" and "NAN", %f "inf" and "nan"; every NaN is written without a sign. %G takes the
// precision 0 as 1 and drops trailing zeros of the fraction, and its point when none is left.
#pragma once

#include <bit>
#include <cstdint>

#include "brelt/config.h"

namespace brelt::str::real {

inline bool IsNaN(double value) {
  return (std::bit_cast<std::uint64_t>(value) << 1) > (std::uint64_t{0x7FF} << 53);
}

enum class Style : char { kScientific = 'E', kFixed = 'f', kGeneral = 'G' };

struct Conversion {
  Style style;
  std::uint64_t precision;
  std::uint64_t width = 0;
};

// The text that stands for the decimal point: '.', or the user's in the locale form.
template <class T>
struct PointText {
  const T* text;
  unsigned length;
};
template <class T>
inline constexpr T kDot[1] = {static_cast<T>('.')};

template <class T>
bool PrintStrict(double value, const Conversion& c, unsigned int high, T* dst,
                 PointText<T> point = {kDot<T>, 1});

template <class T>
void PrintCutting(double value, const Conversion& c, unsigned int high, T* dst);

extern template bool PrintStrict(double, const Conversion&, unsigned int, char*,
                                 PointText<char>);
extern template bool PrintStrict(double, const Conversion&, unsigned int, WChar*,
                                 PointText<WChar>);
extern template void PrintCutting(double, const Conversion&, unsigned int, char*);
extern template void PrintCutting(double, const Conversion&, unsigned int, WChar*);

}  // namespace brelt::str::real
