// Str editing at the ends of the text: trims of blanks and padding with one character.
#include <cstring>

#include "brelt/lib.h"
#include "brelt/str/edit.h"
#include "bounded.h"

namespace {

using brelt::WChar;
using brelt::str::MeasuredLength;

// Blank means TAB, LF, CR or space in both widths; 11, 12 and everything above 32 are text.
template <class T>
bool IsBlank(T c) {
  return c == T{9} || c == T{10} || c == T{13} || c == T{32};
}

template <class T>
void LTrim(unsigned int high, T* s) {
  if (s[0] == T{0}) return;
  const std::uint64_t len = MeasuredLength(high, s);
  std::uint64_t k = 0;
  while (k < len && IsBlank(s[k])) ++k;
  if (k == 0) return;
  Lib::Move(s + k, s, (len - k) * sizeof(T));
  s[len - k] = T{0};
}

// A full array without trailing blanks keeps its missing NUL: only a cut writes one.
template <class T>
void RTrim(unsigned int high, T* s) {
  if (s[0] == T{0}) return;
  const std::uint64_t len = MeasuredLength(high, s);
  std::uint64_t end = len;
  while (end > 0 && IsBlank(s[end - 1])) --end;
  if (end < len) s[end] = T{0};
}

// The width the text is padded to: the capacity, formed in 32 bits, caps it.
inline std::uint64_t PadWidth(unsigned int high, unsigned int width) {
  const std::uint32_t cap = high + 1u;
  return width < cap ? width : cap;
}

// Same result as prepending ch one at a time: the text moves up by the pad count, its
// terminator with it unless the padded text fills the array. A NUL pads nothing.
template <class T>
void LPadCh(unsigned int high, T* s, unsigned int width, T ch) {
  const std::uint64_t w = PadWidth(high, width);
  const std::uint64_t len = MeasuredLength(high, s);
  if (len >= w || ch == T{0}) return;
  const std::uint64_t pad = w - len;
  const bool full = w == std::uint64_t{high} + 1;
  Lib::Move(s, s + pad, (full ? len : len + 1) * sizeof(T));
  for (std::uint64_t i = 0; i < pad; ++i) s[i] = ch;
}

// Same result as appending ch one at a time.
template <class T>
void RPadCh(unsigned int high, T* s, unsigned int width, T ch) {
  const std::uint64_t w = PadWidth(high, width);
  const std::uint64_t len = MeasuredLength(high, s);
  if (len >= w || ch == T{0}) return;
  for (std::uint64_t i = len; i < w; ++i) s[i] = ch;
  if (w <= high) s[w] = T{0};
}

}  // namespace

namespace Str {

void LTrimA(unsigned int high, char* s) { LTrim(high, s); }
void LTrimW(unsigned int high, WChar* s) { LTrim(high, s); }
void RTrimA(unsigned int high, char* s) { RTrim(high, s); }
void RTrimW(unsigned int high, WChar* s) { RTrim(high, s); }
void TrimA(unsigned int high, char* s) {
  LTrim(high, s);
  RTrim(high, s);
}
void TrimW(unsigned int high, WChar* s) {
  LTrim(high, s);
  RTrim(high, s);
}

void LPadChA(unsigned int high, char* s, unsigned int width, char ch) {
  LPadCh(high, s, width, ch);
}
void LPadChW(unsigned int high, WChar* s, unsigned int width, WChar ch) {
  LPadCh(high, s, width, ch);
}
void RPadChA(unsigned int high, char* s, unsigned int width, char ch) {
  RPadCh(high, s, width, ch);
}
void RPadChW(unsigned int high, WChar* s, unsigned int width, WChar ch) {
  RPadCh(high, s, width, ch);
}

}  // namespace Str
