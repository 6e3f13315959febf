// The character scans of a bounded string: its length, the first and last place of a
// character before its end, and how often a character occurs there. Written once over the
// scans they use: scan::Dispatched, or scan::Fixed for the bodies of the exports, which are
// compiled once per vector width (text_scans_<width>.cpp) and bound to the CPU at load. All
// inline, so that each body is one function.
#pragma once

#include "brelt/config.h"
#include "bounded.h"

namespace brelt::str {

template <class S, class T>
[[gnu::always_inline]] inline unsigned int Length(unsigned int high, const T* s) {
  return static_cast<unsigned int>(S::FindEq(s, Capacity(high), T{0}));
}

// First ch at or behind start, stopping at the first NUL; NUL itself is never found.
template <class S, class T>
[[gnu::always_inline]] inline unsigned int NextCharPos(unsigned int high, const T* s, T ch, std::uint64_t start) {
  const std::uint64_t n = Capacity(high);
  if (start >= n) return kNotFound;
  const std::uint64_t i = start + S::FindEither(s + start, n - start, T{0}, ch);
  if (i >= n || s[i] == T{0}) return kNotFound;
  return static_cast<unsigned int>(i);
}

// One walk to the first ch or the end: a text without ch is read once. From the first ch
// on, the end is found and the walk goes back from it to the last ch.
template <class S, class T>
[[gnu::always_inline]] inline unsigned int RCharPos(unsigned int high, const T* s, T ch) {
  if (ch == T{0}) return kNotFound;
  const std::uint64_t n = Capacity(high);
  // A short text is answered from one look at its start.
  if (const std::uint64_t i = scan::FrontLastBeforeEnd(s, n, ch); i != scan::kLong) {
    return i == n ? kNotFound : static_cast<unsigned int>(i);
  }
  const std::uint64_t first = S::FindEither(s, n, T{0}, ch);
  if (first >= n || s[first] == T{0}) return kNotFound;
  const std::uint64_t len = first + 1 + S::FindEq(s + first + 1, n - first - 1, T{0});
  const std::uint64_t back = S::FindEqBackward(s + len - 1, len - first, ch);
  return static_cast<unsigned int>(len - 1 - back);
}

template <class S, class T>
[[gnu::always_inline]] inline unsigned int Count(unsigned int high, const T* s, T ch) {
  return static_cast<unsigned int>(S::CountEq(s, S::FindEq(s, Capacity(high), T{0}), ch));
}

// The exported scans at one vector width.
template <scan::Width w>
struct TextScans {
  static unsigned int LengthA(unsigned int high, const char* s);
  static unsigned int LengthW(unsigned int high, const WChar* s);
  static unsigned int CharPosA(unsigned int high, const char* s, char ch);
  static unsigned int CharPosW(unsigned int high, const WChar* s, WChar ch);
  static unsigned int RCharPosA(unsigned int high, const char* s, char ch);
  static unsigned int RCharPosW(unsigned int high, const WChar* s, WChar ch);
  static unsigned int CountA(unsigned int high, const char* s, char ch);
  static unsigned int CountW(unsigned int high, const WChar* s, WChar ch);
};

extern template struct TextScans<scan::Width::kSse2>;
extern template struct TextScans<scan::Width::kAvx2>;
extern template struct TextScans<scan::Width::kAvx512>;

template <scan::Width w>
unsigned int TextScans<w>::LengthA(unsigned int high, const char* s) {
  return Length<scan::Fixed<w>>(high, s);
}
template <scan::Width w>
unsigned int TextScans<w>::LengthW(unsigned int high, const WChar* s) {
  return Length<scan::Fixed<w>>(high, s);
}
template <scan::Width w>
unsigned int TextScans<w>::CharPosA(unsigned int high, const char* s, char ch) {
  return NextCharPos<scan::Fixed<w>>(high, s, ch, 0);
}
template <scan::Width w>
unsigned int TextScans<w>::CharPosW(unsigned int high, const WChar* s, WChar ch) {
  return NextCharPos<scan::Fixed<w>>(high, s, ch, 0);
}
template <scan::Width w>
unsigned int TextScans<w>::RCharPosA(unsigned int high, const char* s, char ch) {
  return RCharPos<scan::Fixed<w>>(high, s, ch);
}
template <scan::Width w>
unsigned int TextScans<w>::RCharPosW(unsigned int high, const WChar* s, WChar ch) {
  return RCharPos<scan::Fixed<w>>(high, s, ch);
}
template <scan::Width w>
unsigned int TextScans<w>::CountA(unsigned int high, const char* s, char ch) {
  return Count<scan::Fixed<w>>(high, s, ch);
}
template <scan::Width w>
unsigned int TextScans<w>::CountW(unsigned int high, const WChar* s, WChar ch) {
  return Count<scan::Fixed<w>>(high, s, ch);
}

}  // namespace brelt::str

// The body of the export Str::Name for this CPU.
#define BRELT_TEXT_SCAN_FOR_CPU(Name)                                       \
  ::brelt::scan::ForCpu(&::brelt::str::TextScans<::brelt::scan::Width::kSse2>::Name, \
                        &::brelt::str::TextScans<::brelt::scan::Width::kAvx2>::Name, \
                        &::brelt::str::TextScans<::brelt::scan::Width::kAvx512>::Name)
