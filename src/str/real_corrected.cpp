// Str display forms of reals: the corrected shortest text and fixed notation rounded half away
// from zero on the decimal text of a 17-decimal print. Both rework a print in place; the
// order of the steps is what callers see in cut and odd cases, so it is kept as it is.
#include <cmath>
#include <cstdint>

#include "brelt/mathlib.h"
#include "brelt/str/real_format.h"
#include "str/real_print.h"
#include "str/real_text_edit.h"

namespace brelt::str::real {
namespace {

void RealToStrTwin(double v, unsigned d, unsigned char eng, unsigned h, char* s,
                   unsigned char* ok) {
  Str::RealToStrA(v, d, eng, h, s, ok);
}
void RealToStrTwin(double v, unsigned d, unsigned char eng, unsigned h, WChar* s,
                   unsigned char* ok) {
  Str::RealToStrW(v, d, eng, h, s, ok);
}
void FixRealToStrTwin(double v, unsigned d, unsigned h, char* s, unsigned char* ok) {
  Str::FixRealToStrA(v, d, h, s, ok);
}
void FixRealToStrTwin(double v, unsigned d, unsigned h, WChar* s, unsigned char* ok) {
  Str::FixRealToStrW(v, d, h, s, ok);
}

// A fraction below 1 that is not very small reads best in fixed notation with d decimals,
// unless it would show nothing but zeros there: log10 0.2 above the d-th place ends it.
bool TakesFixedBranch(double value, unsigned d) {
  const double a = std::fabs(value);
  if (!(a < 1.0 && a > 1e-14)) return false;
  const double l = std::fabs(MATHLIB::Log10(a));
  return std::trunc((l + 2e-51) + 0.2) < static_cast<double>(d);
}

// Trailing zeros go, and the point with them when it stands right in front of them.
template <class T>
void StripFixed(T* dst, unsigned int high) {
  const std::uint64_t n = EditText<T>::Measure(dst, std::uint64_t{high} + 1);
  std::uint64_t z = 0;
  while (z < n && dst[n - 1 - z] == static_cast<T>('0')) ++z;
  if (z < n && dst[n - 1 - z] == static_cast<T>('.')) ++z;
  if (z != 0 && z != n) dst[n - z] = T{0};
}

template <class T>
void General(double value, unsigned d, unsigned int high, T* dst, unsigned char* ok) {
  *ok = 0;
  if (!PrintStrict(value, {Style::kGeneral, d - 1, d + 1}, high, dst)) return;
  *ok = 1;
  const std::uint64_t cap = std::uint64_t{high} + 1;
  EditText<T> t{dst, cap, EditText<T>::Measure(dst, cap)};
  std::uint64_t blanks = 0;
  while (blanks < t.length && dst[blanks] == static_cast<T>(' ')) ++blanks;
  t.Delete(0, blanks);
  t.Terminate();
  const std::uint64_t posE = t.Find('E');
  if (t.Find('.') == kNone || posE == kNone) return;
  bool negative = false;
  const unsigned e = ReadExponent(t, posE, negative);
  WriteExponent(t, posE, negative, e);
  t.Terminate();
}

template <class T>
void CorrectedRealToStr(double value, unsigned int digits, unsigned char eng, unsigned int high,
                        T* dst, unsigned char* ok) {
  if (IsNaN(value)) {
    *ok = 0;
    return;
  }
  unsigned d = digits == 0 || digits > 15 ? 15 : digits;
  if (high < d) d = high > 2 ? high - 2 : 1;  // room for the mantissa's digits only
  if (eng != 0) return RealToStrTwin(value, d, eng, high, dst, ok);
  if (TakesFixedBranch(value, d)) {
    FixRealToStrTwin(value, d, high, dst, ok);
    return StripFixed(dst, high);
  }
  General(value, d, high, dst, ok);
}

// Rounds the text at the cut, from the rounding digit at `round` and the last kept digit at
// `last`; a carry out of the first digit puts a '1' in front of it.
template <class T>
void RoundText(EditText<T>& t, std::uint64_t round, std::uint64_t last, std::uint64_t& cut) {
  if (t.s[round] <= static_cast<T>('4')) return;
  for (std::uint64_t i = last + 1; i-- != 0;) {
    const T c = t.s[i];
    if (c == static_cast<T>('.')) continue;
    if (c == static_cast<T>('-')) break;
    if (c != static_cast<T>('9')) {
      t.s[i] = static_cast<T>(c + 1);
      return;
    }
    t.s[i] = static_cast<T>('0');
  }
  t.Insert(t.s[0] == static_cast<T>('-') ? 1 : 0, '1', 1);
  t.Terminate();
  ++cut;
}

template <class T>
void CorrFixRealToStr(double value, unsigned int digits, unsigned int high, T* dst,
                      unsigned char* ok) {
  if (IsNaN(value)) {
    *ok = 0;
    return;
  }
  const unsigned d = digits > 17 ? 17 : digits;
  PrintCutting(value, {Style::kFixed, 17}, high, dst);
  *ok = 1;
  const std::uint64_t cap = std::uint64_t{high} + 1;
  EditText<T> t{dst, cap, EditText<T>::Measure(dst, cap)};
  const std::uint64_t point = t.Find('.');
  if (point == kNone) return;  // an infinity, or a text cut in front of the point
  const std::uint64_t decimals = t.length - point - 1;
  std::uint64_t cut;
  if (d == 0) {
    if (decimals == 0) {
      dst[point] = T{0};
      return;
    }
    cut = point;
    RoundText(t, point + 1, point - 1, cut);
  } else {
    if (d >= decimals) return;
    cut = point + d + 1;
    RoundText(t, cut, point + d, cut);
  }
  if (cut < cap) dst[cut] = T{0};
}

}  // namespace
}  // namespace brelt::str::real

namespace Str {

namespace real = brelt::str::real;

void CorrectedRealToStrA(double v, unsigned int digits, unsigned char eng, unsigned int high,
                         char* dst, unsigned char* ok) {
  real::CorrectedRealToStr(v, digits, eng, high, dst, ok);
}
void CorrectedRealToStrW(double v, unsigned int digits, unsigned char eng, unsigned int high,
                         WChar* dst, unsigned char* ok) {
  real::CorrectedRealToStr(v, digits, eng, high, dst, ok);
}
void CorrFixRealToStrA(double v, unsigned int digits, unsigned int high, char* dst,
                       unsigned char* ok) {
  real::CorrFixRealToStr(v, digits, high, dst, ok);
}
void CorrFixRealToStrW(double v, unsigned int digits, unsigned int high, WChar* dst,
                       unsigned char* ok) {
  real::CorrFixRealToStr(v, digits, high, dst, ok);
}

}  // namespace Str
