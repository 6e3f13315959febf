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

// 32 bits: four digits a step, on branches that follow the value's size, which callers tend
// to repeat. 64 bits, where each step costs more: from the bit width, with one table look-up.
template <class U>
inline unsigned DigitCount10(U v) {
  if constexpr (sizeof(U) == 8) {
    // 1233 / 4096 is just above log10(2): the guess is the count or one below it.
    const unsigned guess = (static_cast<unsigned>(std::bit_width(v)) * 1233u) >> 12;
    return guess + (v >= kPowersOf10[guess] ? 1u : 0u) + (v == 0 ? 1u : 0u);
  } else {
    for (unsigned n = 1;; n += 4, v /= 10000u) {
      if (v < 10u) return n;
      if (v < 100u) return n + 1;
      if (v < 1000u) return n + 2;
      if (v < 10000u) return n + 3;
    }
  }
}

// Stores the lowest n digits of v in base 10, the last at `last` and the others before it.
template <class U, class T>
inline void StoreLowDigits10(U v, T* last, unsigned n) {
  for (; n >= 2; n -= 2) {
    const unsigned pair = static_cast<unsigned>(v % 100u) * 2u;
    v /= 100u;
    last[0] = static_cast<T>(kDigitPairs[pair + 1]);
    last[-1] = static_cast<T>(kDigitPairs[pair]);
    last -= 2;
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
  // Base 10 with room for every digit is the common case and is done here in line.
  if (base == 10 && magnitude < 10 && p + 1 <= high) {
    *ok = 1;
    dst[p] = static_cast<T>('0' + static_cast<unsigned>(magnitude));
    dst[p + 1] = T{0};
    return;
  }
  if (base == 10) {
    const unsigned n = DigitCount10(magnitude);
    if (p + n <= std::uint64_t{high} + 1) {
      *ok = 1;
      StoreLowDigits10(magnitude, dst + p + n - 1, n);
      if (p + n <= high) dst[p + n] = T{0};
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
