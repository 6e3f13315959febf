// Str text to real. The digits go into one double, ten times the old value plus the digit,
// each step rounded; one power of ten, built by multiplying 10.0 up one step at a time,
// scales the result. Callers rely on exactly these roundings, so they are kept as they are:
// no wider accumulator, no exact table beyond what the multiplications give anyway.
#include <cstdint>
#include <limits>
#include <type_traits>

#include "brelt/str/reals.h"
#include "platform/text_fold.h"

namespace {

// The powers that repeated multiplication reaches without rounding; the chain goes on from
// the last of them, so the scale is the same as if it had started at 1.0.
constexpr int kExactPowers = 22;
constexpr double kPowerOfTen[kExactPowers + 1] = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double Scale(std::uint32_t magnitude) {
  if (magnitude <= kExactPowers) return kPowerOfTen[magnitude];
  double scale = kPowerOfTen[kExactPowers];
  for (std::uint32_t k = kExactPowers; k < magnitude; ++k) {
    scale *= 10.0;
    // Infinity times ten stays infinity: the rest of a long exponent changes nothing.
    if (scale == std::numeric_limits<double>::infinity()) break;
  }
  return scale;
}

// The exponent letter is judged by the platform's fold of the twin's width.
bool IsExponentLetter(char c) { return brelt::platform::UpperCharA(c) == 'E'; }
bool IsExponentLetter(brelt::WChar c) { return brelt::platform::UpperW(c) == u'E'; }

template <class T>
double Parse(unsigned int high, const T* src, unsigned char* ok) {
  *ok = 1;
  // The character at i, or NUL behind the array: a NUL ends the text either way.
  std::uint64_t i = 0;
  auto at = [&](std::uint64_t k) -> std::uint32_t {
    return k <= high ? static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<T>>(src[k]))
                     : 0u;
  };
  auto digit = [](std::uint32_t c) { return c - '0'; };  // a digit when below 10

  bool negative = false;
  if (at(0) == '+' || at(0) == '-') {
    negative = at(0) == '-';
    i = 1;
  }
  double acc = 0.0;
  for (std::uint32_t d; (d = digit(at(i))) < 10; ++i) acc = acc * 10.0 + static_cast<double>(d);
  if (at(i) == '.') ++i;
  std::int32_t fraction = 0;
  std::uint32_t c = at(i);
  for (; c != 0; c = at(++i)) {
    const std::uint32_t d = digit(c);
    if (d >= 10) {
      if (IsExponentLetter(static_cast<T>(c))) break;
      *ok = 0;
      return 0.0;
    }
    acc = acc * 10.0 + static_cast<double>(d);
    ++fraction;
  }

  std::uint32_t exponent = 0;  // wraps modulo 2^32 by design
  if (c != 0) {
    if (i == 0) {
      *ok = 0;
      return 0.0;
    }
    c = at(++i);
    const bool negativeExponent = c == '-';
    if (c == '+' || c == '-') c = at(++i);
    if (c == 0) {
      *ok = 0;
      return 0.0;
    }
    for (; c != 0; c = at(++i)) {
      const std::uint32_t d = digit(c);
      if (d >= 10) {
        *ok = 0;
        return 0.0;
      }
      exponent = exponent * 10u + d;
    }
    if (negativeExponent) exponent = 0u - exponent;
  }

  const auto e = static_cast<std::int32_t>(exponent - static_cast<std::uint32_t>(fraction));
  const std::uint32_t magnitude =
      e < 0 ? 0u - static_cast<std::uint32_t>(e) : static_cast<std::uint32_t>(e);
  const double scale = Scale(magnitude);
  if (negative) acc = -acc;
  return e < 0 ? acc / scale : scale * acc;
}

}  // namespace

namespace Str {

double StrToRealA(unsigned int high, const char* src, unsigned char* ok) {
  return Parse(high, src, ok);
}
double StrToRealW(unsigned int high, const WChar* src, unsigned char* ok) {
  return Parse(high, src, ok);
}

}  // namespace Str
