// Str text to whole numbers. One walk per accumulator width and character width reads the
// digits; the exported operations add the sign rules of their result type.
#include <cstdint>
#include <limits>
#include <type_traits>

#include "brelt/str/integers.h"
#include "int_digits.h"

namespace {

using brelt::str::ClampBase;
using brelt::str::kDigitValue;

// Reads from index `i` up to a NUL or the end of the array. A digit too large for the base
// or an overflow clears `good` but the walk goes on, accumulating modulo the width; only a
// character outside '0'..'F' (after folding 'a'..'f') ends it early.
template <class U, class T>
U Walk(unsigned int high, const T* src, std::uint64_t i, unsigned int base, bool& good) {
  U acc = 0;
  for (; i <= high; ++i) {
    unsigned c = static_cast<std::make_unsigned_t<T>>(src[i]);
    if (c == 0) break;
    if (c - 'a' < 6u) c -= 'a' - 'A';
    const unsigned k = c - '0';
    if (k >= sizeof kDigitValue) {
      good = false;
      break;
    }
    const unsigned d = kDigitValue[k];
    if (d >= base) {
      good = false;
    } else {
      // Same test as acc > (max - d) / base, without a division per digit.
      U next;
      if (__builtin_mul_overflow(acc, static_cast<U>(base), &next) ||
          __builtin_add_overflow(next, static_cast<U>(d), &next)) {
        good = false;
      }
    }
    acc = static_cast<U>(acc * base + d);
  }
  return acc;
}

// The digits after an optional sign at index 0; `negative` tells whether that sign was '-'.
template <class U, class T>
U Magnitude(unsigned int high, const T* src, unsigned int base, bool& good, bool& negative) {
  good = true;
  negative = src[0] == T('-');
  const std::uint64_t start = (negative || src[0] == T('+')) ? 1 : 0;
  if (start > high || src[start] == T{0}) {
    good = false;
    return 0;
  }
  return Walk<U>(high, src, start, ClampBase(base), good);
}

template <class S, class T>
S ParseSigned(unsigned int high, const T* src, unsigned int base, unsigned char* ok) {
  using U = std::make_unsigned_t<S>;
  bool good, negative;
  U m = Magnitude<U>(high, src, base, good, negative);
  // The range is symmetric: the most negative value's own text clears ok too.
  if (m > static_cast<U>(std::numeric_limits<S>::max())) good = false;
  if (negative) m = static_cast<U>(U{0} - m);
  *ok = good ? 1 : 0;
  return static_cast<S>(m);
}

template <class U, class T>
U ParseUnsigned(unsigned int high, const T* src, unsigned int base, unsigned char* ok) {
  bool good, negative;
  const U m = Magnitude<U>(high, src, base, good, negative);
  *ok = good && !negative ? 1 : 0;
  return m;
}

}  // namespace

namespace Str {

brelt::Long StrToIntA(unsigned int h, const char* s, unsigned int b, unsigned char* ok) {
  return ParseSigned<brelt::Long>(h, s, b, ok);
}
brelt::Long StrToIntW(unsigned int h, const WChar* s, unsigned int b, unsigned char* ok) {
  return ParseSigned<brelt::Long>(h, s, b, ok);
}
brelt::Int64 StrToInt64A(unsigned int h, const char* s, unsigned int b, unsigned char* ok) {
  return ParseSigned<brelt::Int64>(h, s, b, ok);
}
brelt::Int64 StrToInt64W(unsigned int h, const WChar* s, unsigned int b, unsigned char* ok) {
  return ParseSigned<brelt::Int64>(h, s, b, ok);
}
std::intptr_t StrToIntPtrA(unsigned int h, const char* s, unsigned int b, unsigned char* ok) {
  return ParseSigned<std::intptr_t>(h, s, b, ok);
}
std::intptr_t StrToIntPtrW(unsigned int h, const WChar* s, unsigned int b, unsigned char* ok) {
  return ParseSigned<std::intptr_t>(h, s, b, ok);
}
brelt::ULong StrToCardA(unsigned int h, const char* s, unsigned int b, unsigned char* ok) {
  return ParseUnsigned<brelt::ULong>(h, s, b, ok);
}
brelt::ULong StrToCardW(unsigned int h, const WChar* s, unsigned int b, unsigned char* ok) {
  return ParseUnsigned<brelt::ULong>(h, s, b, ok);
}
brelt::UInt64 StrToCard64A(unsigned int h, const char* s, unsigned int b, unsigned char* ok) {
  return ParseUnsigned<brelt::UInt64>(h, s, b, ok);
}
brelt::UInt64 StrToCard64W(unsigned int h, const WChar* s, unsigned int b, unsigned char* ok) {
  return ParseUnsigned<brelt::UInt64>(h, s, b, ok);
}
std::uintptr_t StrToCardPtrA(unsigned int h, const char* s, unsigned int b, unsigned char* ok) {
  return ParseUnsigned<std::uintptr_t>(h, s, b, ok);
}
std::uintptr_t StrToCardPtrW(unsigned int h, const WChar* s, unsigned int b,
                             unsigned char* ok) {
  return ParseUnsigned<std::uintptr_t>(h, s, b, ok);
}

}  // namespace Str
