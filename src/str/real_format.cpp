// Str reals in scientific, engineering and fixed notation. RealToStr prints "%{d+1}.{d-1}E" and
// then rewrites that text in place, step by step, as callers know it: the exponent, the move
// of the point for engineering notation, the trailing zeros.
#include <cstdint>

#include "brelt/str/real_format.h"
#include "platform/locale.h"
#include "str/real_print.h"
#include "str/real_text_edit.h"

namespace brelt::str::real {
namespace {

// Moves the point at `point` r places to the right, over the digits behind it.
template <class T>
void MovePoint(EditText<T>& t, std::uint64_t point, unsigned r) {
  for (unsigned k = 0; k < r; ++k) t.s[point + k] = t.s[point + k + 1];
  t.s[point + r] = static_cast<T>('.');
}

template <class T>
void Rewrite(EditText<T>& t, bool eng) {
  std::uint64_t point = t.Find('.');
  if (point == kNone) return;  // digits 1 and infinities stand as printed
  std::uint64_t posE = t.Find('E', point);
  bool negative = false;
  const unsigned e = ReadExponent(t, posE, negative);
  t.length = posE + 1;
  unsigned magnitude = e;
  if (eng) {
    unsigned q = e / 3 * 3;
    unsigned r;
    if (negative && e != q) {
      q += 3;
      r = q - e;
    } else {
      r = e - q;
    }
    magnitude = q;
    // Digits enough behind the point for the move: below two, or below three, add zeros.
    if (r == 1 && posE - point < 3) t.Insert(posE++, '0', 1);
    if (r == 2 && posE - point < 4) {
      t.Insert(posE, '0', 2);
      posE += 2;
    }
    MovePoint(t, point, r);
    point += r;
  }
  WriteExponent(t, posE, negative, magnitude);
  std::uint64_t keep = posE;  // the mantissa without its trailing zeros
  while (keep - 1 > point && t.s[keep - 1] == static_cast<T>('0')) --keep;
  if (keep - 1 == point) --keep;
  t.Delete(keep, posE - keep);
  t.Terminate();
}

template <class T>
void RealToStr(double value, unsigned int digits, unsigned char eng, unsigned int high, T* dst,
               unsigned char* ok) {
  *ok = 0;
  if (IsNaN(value)) return;
  if (digits == 0) {  // the format would ask for a precision of -1: no print can be made
    dst[0] = T{0};
    return;
  }
  const unsigned d = digits > 17 ? 17 : digits;
  if (!PrintStrict(value, {Style::kScientific, d - 1, d + 1}, high, dst)) return;
  *ok = 1;
  const std::uint64_t cap = std::uint64_t{high} + 1;
  EditText<T> t{dst, cap, EditText<T>::Measure(dst, cap)};
  Rewrite(t, eng != 0);
}

template <class T>
void FixRealToStr(double value, unsigned int digits, unsigned int high, T* dst,
                  unsigned char* ok) {
  // Only the 8-bit twin refuses a NaN; the 16-bit one prints it.
  if (sizeof(T) == 1 && IsNaN(value)) {
    *ok = 0;
    return;
  }
  PrintCutting(value, {Style::kFixed, digits}, high, dst);
  *ok = 1;
}

unsigned UserPoint(char (&p)[platform::kMaxPointUnits]) { return platform::UserDecimalPointA(p); }
unsigned UserPoint(WChar (&p)[platform::kMaxPointUnits]) { return platform::UserDecimalPointW(p); }

template <class T>
void LocaleFixRealToStr(double value, int digits, unsigned int high, T* dst, unsigned char* ok) {
  *ok = 1;
  const auto d = static_cast<unsigned>(digits < 1 ? 1 : (digits > 15 ? 15 : digits));
  T point[platform::kMaxPointUnits];
  const unsigned length = UserPoint(point);
  if (!PrintStrict(value, {Style::kFixed, d, d}, high, dst, {point, length})) *ok = 0;
}

}  // namespace
}  // namespace brelt::str::real

namespace Str {

namespace real = brelt::str::real;

void RealToStrA(double v, unsigned int digits, unsigned char eng, unsigned int high, char* dst,
                unsigned char* ok) {
  real::RealToStr(v, digits, eng, high, dst, ok);
}
void RealToStrW(double v, unsigned int digits, unsigned char eng, unsigned int high, WChar* dst,
                unsigned char* ok) {
  real::RealToStr(v, digits, eng, high, dst, ok);
}
void FixRealToStrA(double v, unsigned int digits, unsigned int high, char* dst,
                   unsigned char* ok) {
  real::FixRealToStr(v, digits, high, dst, ok);
}
void FixRealToStrW(double v, unsigned int digits, unsigned int high, WChar* dst,
                   unsigned char* ok) {
  real::FixRealToStr(v, digits, high, dst, ok);
}
void LocaleFixRealToStrA(double v, int digits, unsigned int high, char* dst, unsigned char* ok) {
  real::LocaleFixRealToStr(v, digits, high, dst, ok);
}
void LocaleFixRealToStrW(double v, int digits, unsigned int high, WChar* dst,
                         unsigned char* ok) {
  real::LocaleFixRealToStr(v, digits, high, dst, ok);
}

}  // namespace Str
