// In-place edits of a printed real, shared by the formatters that rewrite the print: the
// text stands in an array of `cap` elements, `length` of them used; an edit keeps within the
// array, dropping what falls behind it, and `Terminate` puts the NUL where room is left.
#pragma once

#include <cstdint>

namespace brelt::str::real {

inline constexpr std::uint64_t kNone = ~std::uint64_t{0};

template <class T>
struct EditText {
  T* s;
  std::uint64_t cap;
  std::uint64_t length;

  std::uint64_t Find(char c, std::uint64_t from = 0) const {
    for (std::uint64_t i = from; i < length; ++i) {
      if (s[i] == static_cast<T>(c)) return i;
    }
    return kNone;
  }
  // The length of a text that ends at its first NUL or at the end of the array.
  static std::uint64_t Measure(const T* s, std::uint64_t cap) {
    std::uint64_t n = 0;
    while (n < cap && s[n] != T{0}) ++n;
    return n;
  }
  void Terminate() {
    if (length < cap) s[length] = T{0};
  }
  void Insert(std::uint64_t pos, char c, std::uint64_t count) {
    const std::uint64_t grown = length + count < cap ? length + count : cap;
    for (std::uint64_t i = grown; i-- > pos + count;) s[i] = s[i - count];
    for (std::uint64_t i = pos; i < pos + count && i < cap; ++i) s[i] = static_cast<T>(c);
    length = grown;
  }
  void Delete(std::uint64_t pos, std::uint64_t count) {
    for (std::uint64_t i = pos; i + count < length; ++i) s[i] = s[i + count];
    length -= count;
  }
  void Append(char c) {
    if (length < cap) s[length++] = static_cast<T>(c);
  }
};

// The exponent behind the 'E' at posE: an optional sign, two digits, and a third if the text
// goes on.
template <class T>
unsigned ReadExponent(const EditText<T>& t, std::uint64_t posE, bool& negative) {
  std::uint64_t i = posE + 1;
  negative = i < t.length && t.s[i] == static_cast<T>('-');
  if (i < t.length && (t.s[i] == static_cast<T>('-') || t.s[i] == static_cast<T>('+'))) ++i;
  unsigned e = 0;
  for (const std::uint64_t end = i + 3; i < t.length && i < end; ++i) {
    e = e * 10 + static_cast<unsigned>(t.s[i] - static_cast<T>('0'));
  }
  return e;
}

// The text cut right behind the 'E' at posE, then the sign and the magnitude without leading
// zeros appended, as far as the array holds them.
template <class T>
void WriteExponent(EditText<T>& t, std::uint64_t posE, bool negative, unsigned magnitude) {
  t.length = posE + 1;
  t.Append(negative ? '-' : '+');
  char digits[10];
  int n = 0;
  do {
    digits[n++] = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  while (n != 0) t.Append(digits[--n]);
}

}  // namespace brelt::str::real
