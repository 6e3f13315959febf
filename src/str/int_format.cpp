// Str whole numbers to text. The digit count is found first, so that the digits are stored
// straight into dst from the right, without a scratch array and without a reversal; a
// destination that is too small gets only the lowest digits that fit.
#include <array>
#include <bit>
#include <cstdint>
#include <type_traits>

#include "brelt/str/integers.h"
#include "int_digits.h"

namespace {

using brelt::str::ClampBase;
using brelt::str::kDigitAlphabet;
using brelt::str::kDigitPairs;

constexpr std::array<std::uint64_t, 20> kPowersOf10 = [] {
  std::array<std::uint64_t, 20> t{};
  std::uint64_t p = 1;
  for (auto& e : t) {
    e = p;
    p *= 10;
  }
  return t;
}();

// From the bit width, with one table look-up: 1233 / 4096 is just above log10(2), so the
// guess is the count or one below it. Zero counts as one, as one does.
template <class U>
inline unsigned DigitCount10(U v) {
  const U w = v | 1u;
  const unsigned guess = (static_cast<unsigned>(std::bit_width(w)) * 1233u) >> 12;
  return guess + (w >= kPowersOf10[guess] ? 1u : 0u);
}

// Two digits with one store where the characters are bytes.
template <class T>
inline void StorePair(T* at, unsigned pair) {
  if constexpr (sizeof(T) == 1) {
    __builtin_memcpy(at, &kDigitPairs[2 * pair], 2);
  } else {
    at[0] = static_cast<T>(kDigitPairs[2 * pair]);
    at[1] = static_cast<T>(kDigitPairs[2 * pair + 1]);
  }
}

// v / 100 for v below 43699, with a multiplication in 32 bits.
inline unsigned Hundreds(unsigned v) { return (v * 5243u) >> 19; }

// Stores all digits of v in base 10, the last just before `end`: four digits a division, the
// two pairs of the four from the remainder without one.
template <class U, class T>
inline void StoreDigits10(U v, T* end) {
  for (; v >= 10000u; v /= 10000u) {
    const unsigned four = static_cast<unsigned>(v % 10000u);
    const unsigned high = Hundreds(four);
    end -= 4;
    StorePair(end, high);
    StorePair(end + 2, four - high * 100u);
  }
  unsigned rest = static_cast<unsigned>(v);
  if (rest >= 100u) {
    const unsigned high = Hundreds(rest);
    end -= 2;
    StorePair(end, rest - high * 100u);
    rest = high;
  }
  if (rest >= 10u) {
    StorePair(end - 2, rest);
  } else {
    end[-1] = static_cast<T>('0' + rest);
  }
}

// Stores the lowest n digits of v in base 10, the last at `last` and the others before it.
template <class U, class T>
inline void StoreLowDigits10(U v, T* last, unsigned n) {
  for (; n >= 2; n -= 2, last -= 2, v /= 100u) {
    StorePair(last - 1, static_cast<unsigned>(v % 100u));
  }
  if (n != 0) *last = static_cast<T>('0' + static_cast<unsigned>(v % 10u));
}

template <class U>
unsigned DigitCount(U v, unsigned base) {
  if (base == 10) return DigitCount10(v);
  if (std::has_single_bit(base)) {
    const unsigned shift = static_cast<unsigned>(std::countr_zero(base));
    const unsigned bits = static_cast<unsigned>(std::bit_width(v | 1u));
    return (bits + shift - 1) / shift;
  }
  unsigned n = 1;
  for (U t = v; t >= base; t /= base) ++n;
  return n;
}

template <class U, class T>
void StoreLowDigits(U v, unsigned base, T* last, unsigned n) {
  if (base == 10) return StoreLowDigits10(v, last, n);
  if (std::has_single_bit(base)) {
    const unsigned shift = static_cast<unsigned>(std::countr_zero(base));
    const U mask = static_cast<U>(base - 1);
    for (; n != 0; --n, v >>= shift) *last-- = static_cast<T>(kDigitAlphabet[v & mask]);
    return;
  }
  for (; n != 0; --n, v /= base) *last-- = static_cast<T>(kDigitAlphabet[v % base]);
}

// Every base and every destination; digits start at dst[p], behind a sign if there is one.
template <class U, class T>
[[gnu::noinline]] void FormatAnyBase(U magnitude, std::uint64_t p, unsigned int high, T* dst,
                                     unsigned int base, unsigned char* ok) {
  base = ClampBase(base);
  *ok = 1;
  const std::uint64_t room = std::uint64_t{high} + 1 - p;
  const unsigned n = DigitCount(magnitude, base);
  if (n > room) {
    *ok = 0;
    StoreLowDigits(magnitude, base, dst + high, static_cast<unsigned>(room));
    return;
  }
  StoreLowDigits(magnitude, base, dst + p + n - 1, n);
  if (p + n <= high) dst[p + n] = T{0};
}

template <class U, class T>
inline void Format(bool negative, U magnitude, unsigned int high, T* dst, unsigned int base,
                   unsigned char* ok) {
  std::uint64_t p = 0;
  if (negative) dst[p++] = static_cast<T>('-');
  // Base 10 with room for every digit and the NUL is the common case and is done here in
  // line.
  if (base == 10) {
    if (magnitude < 10u && p < high) {
      *ok = 1;
      dst[p] = static_cast<T>('0' + static_cast<unsigned>(magnitude));
      dst[p + 1] = T{0};
      return;
    }
    const unsigned n = DigitCount10(magnitude);
    if (p + n <= high) {
      *ok = 1;
      StoreDigits10(magnitude, dst + p + n);
      dst[p + n] = T{0};
      return;
    }
  }
  FormatAnyBase(magnitude, p, high, dst, base, ok);
}

template <class S, class T>
void FormatSigned(S value, unsigned int high, T* dst, unsigned int base, unsigned char* ok) {
  using U = std::make_unsigned_t<S>;
  // Negation in the unsigned type, so that the most negative value keeps its magnitude.
  const U bits = static_cast<U>(value);
  const U magnitude = value < 0 ? static_cast<U>(U{0} - bits) : bits;
  Format(value < 0, magnitude, high, dst, base, ok);
}

}  // namespace

namespace Str {

void IntToStrA(brelt::Long v, unsigned int h, char* d, unsigned int b, unsigned char* ok) {
  FormatSigned(v, h, d, b, ok);
}
void IntToStrW(brelt::Long v, unsigned int h, WChar* d, unsigned int b, unsigned char* ok) {
  FormatSigned(v, h, d, b, ok);
}
void Int64ToStrA(brelt::Int64 v, unsigned int h, char* d, unsigned int b, unsigned char* ok) {
  FormatSigned(v, h, d, b, ok);
}
void Int64ToStrW(brelt::Int64 v, unsigned int h, WChar* d, unsigned int b, unsigned char* ok) {
  FormatSigned(v, h, d, b, ok);
}
void IntPtrToStrA(std::intptr_t v, unsigned int h, char* d, unsigned int b, unsigned char* ok) {
  FormatSigned(v, h, d, b, ok);
}
void IntPtrToStrW(std::intptr_t v, unsigned int h, WChar* d, unsigned int b, unsigned char* ok) {
  FormatSigned(v, h, d, b, ok);
}
void CardToStrA(brelt::ULong v, unsigned int h, char* d, unsigned int b, unsigned char* ok) {
  Format(false, v, h, d, b, ok);
}
void CardToStrW(brelt::ULong v, unsigned int h, WChar* d, unsigned int b, unsigned char* ok) {
  Format(false, v, h, d, b, ok);
}
void Card64ToStrA(brelt::UInt64 v, unsigned int h, char* d, unsigned int b, unsigned char* ok) {
  Format(false, v, h, d, b, ok);
}
void Card64ToStrW(brelt::UInt64 v, unsigned int h, WChar* d, unsigned int b, unsigned char* ok) {
  Format(false, v, h, d, b, ok);
}
void CardPtrToStrA(std::uintptr_t v, unsigned int h, char* d, unsigned int b, unsigned char* ok) {
  Format(false, v, h, d, b, ok);
}
void CardPtrToStrW(std::uintptr_t v, unsigned int h, WChar* d, unsigned int b,
                   unsigned char* ok) {
  Format(false, v, h, d, b, ok);
}

}  // namespace Str
