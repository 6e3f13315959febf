// Str text to whole numbers. One walk per accumulator width and character width reads the
// digits; the exported operations add the sign rules of their result type.
#include <immintrin.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "brelt/str/integers.h"
#include "int_digits.h"
#include "lib/page_room.h"

namespace {

using brelt::str::ClampBase;
using brelt::str::kDigitValue;

template <class U>
struct Walked {
  U value;
  bool good;
};

// Reads from index `i` up to a NUL or the end of the array, going on from `acc`. A digit too
// large for the base or an overflow clears `good` but the walk goes on, accumulating modulo
// the width; only a character outside '0'..'F' (after folding 'a'..'f') ends it early.
template <class U, class T>
[[gnu::noinline]] Walked<U> WalkAnyBase(unsigned int high, const T* src, std::uint64_t i,
                                        unsigned int base, U acc) {
  // max = limit * base + lastDigit.
  const U limit = static_cast<U>(std::numeric_limits<U>::max() / base);
  const unsigned lastDigit = static_cast<unsigned>(std::numeric_limits<U>::max() % base);
  bool good = true;
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
    // acc > (max - d) / base, for a digit valid in the base, without a division per digit.
    const bool over = (acc > limit) | ((acc == limit) & (d > lastDigit));
    good &= (d < base) & !over;
    acc = static_cast<U>(acc * base + d);
  }
  return {acc, good};
}

// The eight bytes at s as one word, lowest address in the lowest byte. Bytes behind a NUL may
// be read here, on the page of the text, hence no address sanitizing.
__attribute__((no_sanitize_address)) inline std::uint64_t LoadEight(const char* s) {
  return static_cast<std::uint64_t>(
      _mm_cvtsi128_si64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(s))));
}

// Up to eight leading decimal digits of the 8-bit characters at s, all eight of which lie on
// one page, at once. Gives their count and, in `value`, their value.
inline unsigned LeadingDigits8(const char* s, std::uint32_t& value) {
  constexpr std::uint64_t kEach = 0x0101010101010101u;
  const std::uint64_t w = LoadEight(s);
  // Each byte XOR '0': a digit becomes 0..9; a byte is no digit if that is 10 or more.
  const std::uint64_t t = w ^ (kEach * '0');
  const std::uint64_t bad = (((t & (kEach * 0x7F)) + kEach * (0x80 - 10)) | t) & (kEach * 0x80);
  const unsigned n = bad == 0 ? 8u : static_cast<unsigned>(std::countr_zero(bad)) / 8u;
  value = 0;
  if (n == 0) return 0;
  // The first character is the lowest byte; moved to the top, the bytes below read as
  // leading zeros. Then neighbours are joined: pairs, fours, all eight.
  std::uint64_t v = t << (8 * (8 - n));
  v = (v * 10 + (v >> 8)) & 0x00FF00FF00FF00FFu;
  v = (v * 100 + (v >> 16)) & 0x0000FFFF0000FFFFu;
  v = (v * 10000 + (v >> 32)) & 0xFFFFFFFFu;
  value = static_cast<std::uint32_t>(v);
  return n;
}

// The digits after an optional sign at index 0; `negative` tells whether that sign was '-'.
template <class U, class T>
[[gnu::always_inline]] inline Walked<U> Magnitude(unsigned int high, const T* src,
                                                  unsigned int base, bool& negative) {
  negative = src[0] == T('-');
  std::uint64_t i = (negative || src[0] == T('+')) ? 1 : 0;
  if (i > high || src[i] == T{0}) return {0, false};
  if (base != 10) return WalkAnyBase<U>(high, src, i, ClampBase(base), U{0});
  // A single digit, frequent in counts and fields, needs no more.
  const unsigned first = static_cast<unsigned>(static_cast<std::make_unsigned_t<T>>(src[i])) - '0';
  if (first <= 9 && (i + 1 > high || src[i + 1] == T{0})) return {static_cast<U>(first), true};
  // So many decimal digits cannot overflow: they are read here without the tests of the
  // full walk, which takes over at the first other character.
  const std::uint64_t stop = std::min<std::uint64_t>(i + std::numeric_limits<U>::digits10,
                                                     std::uint64_t{high} + 1);
  U acc = 0;
  if constexpr (sizeof(T) == 1) {
    if (i + 8 <= stop && brelt::scan::PageRoom(src + i) >= 8) {
      std::uint32_t first;
      const unsigned n = LeadingDigits8(src + i, first);
      acc = first;
      i += n;
    }
  }
  for (; i < stop; ++i) {
    const unsigned d = static_cast<unsigned>(static_cast<std::make_unsigned_t<T>>(src[i])) - '0';
    if (d > 9) break;
    acc = static_cast<U>(acc * 10u + d);
  }
  if (i > high || src[i] == T{0}) return {acc, true};
  return WalkAnyBase<U>(high, src, i, 10, acc);
}

// Most digits a plain text may have to be read into 64 bits without wrapping there: one more
// than the accumulator always holds, so that the overflow of a 32-bit accumulator is seen.
template <class U>
inline constexpr unsigned kPlainDigits = sizeof(U) == 4 ? 10 : 19;

// The common text: an optional '-', at most kPlainDigits decimal digits, then a NUL, in an
// array with room for all of them. Gives its magnitude, wrapped to the accumulator only by the
// caller, and in `fits` whether it is at most `limit`: a bound the full walk would not clear
// ok for. Gives false for every other text ('+' among them), which the walk then reads afresh.
template <class U, class T>
[[gnu::always_inline]] inline bool PlainDecimal(unsigned int high, const T* src,
                                                std::uint64_t limit, std::uint64_t& magnitude,
                                                bool& fits) {
  using C = std::make_unsigned_t<T>;
  // A sign and every digit and the NUL behind them lie within the array: no index is tested
  // against `high` below. A smaller array goes to the walk.
  if (high < kPlainDigits<U> + 1) return false;
  const std::uint64_t negative = src[0] == T('-');
  std::uint64_t acc = static_cast<C>(src[negative]) - std::uint64_t{'0'};
  if (acc > 9) return false;
  const T* p = src + negative + 1;
  std::uint64_t c = static_cast<C>(*p);
  // A single digit, frequent in counts and fields, is done without the loop, and fits.
  fits = true;
  if (c != 0) [[unlikely]] {
    const T* const stop = p + (kPlainDigits<U> - 1);
    while (c - '0' <= 9 && p < stop) {
      acc = acc * 10 + (c - '0');
      c = static_cast<C>(*++p);
    }
    if (c != 0) return false;
    fits = acc <= limit;
  }
  magnitude = acc;
  return true;
}

template <class S, class T>
[[gnu::noinline]] S ParseSignedWalk(unsigned int high, const T* src, unsigned int base,
                                    unsigned char* ok) {
  using U = std::make_unsigned_t<S>;
  bool negative;
  const Walked<U> m = Magnitude<U>(high, src, base, negative);
  // The range is symmetric: the most negative value's own text clears ok too.
  const bool good = m.good && m.value <= static_cast<U>(std::numeric_limits<S>::max());
  *ok = good ? 1 : 0;
  return static_cast<S>(negative ? static_cast<U>(U{0} - m.value) : m.value);
}

template <class U, class T>
[[gnu::noinline]] U ParseUnsignedWalk(unsigned int high, const T* src, unsigned int base,
                                      unsigned char* ok) {
  bool negative;
  const Walked<U> m = Magnitude<U>(high, src, base, negative);
  *ok = m.good && !negative ? 1 : 0;
  return m.value;
}

// The plain decimal text is done here without a frame; anything else goes on to the walk.
template <class S, class T>
[[gnu::always_inline]] inline S ParseSigned(unsigned int high, const T* src, unsigned int base,
                                            unsigned char* ok) {
  using U = std::make_unsigned_t<S>;
  std::uint64_t magnitude;
  bool fits;
  // The range is symmetric, as in the walk.
  if (base == 10 && PlainDecimal<U>(high, src, std::numeric_limits<S>::max(), magnitude, fits)) {
    // Negated without a branch: the sign of a run of numbers is no pattern to predict. The
    // sign is read before ok is stored, which may alias the text.
    const U flip = U{0} - U{src[0] == T('-')};
    *ok = fits ? 1 : 0;
    return static_cast<S>(static_cast<U>((static_cast<U>(magnitude) ^ flip) - flip));
  }
  return ParseSignedWalk<S>(high, src, base, ok);
}

template <class U, class T>
[[gnu::always_inline]] inline U ParseUnsigned(unsigned int high, const T* src, unsigned int base,
                                              unsigned char* ok) {
  std::uint64_t magnitude;
  bool fits;
  if (base == 10 && PlainDecimal<U>(high, src, std::numeric_limits<U>::max(), magnitude, fits)) {
    *ok = fits && src[0] != T('-') ? 1 : 0;
    return static_cast<U>(magnitude);
  }
  return ParseUnsignedWalk<U>(high, src, base, ok);
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
