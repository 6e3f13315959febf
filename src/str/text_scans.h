// The character scans of a bounded string: its length, the first and last place of a
// character before its end, and how often a character occurs there. Written once over the
// scans they use: scan::Dispatched, or scan::Fixed for the bodies of the exports, which are
// compiled once per vector width (text_scans_<width>.cpp) and bound to the CPU at load.
#pragma once

#include "brelt/config.h"
#include "bounded.h"

namespace brelt::str {

// Each scan is an operation over the scans S it uses. With scans that defer (S::kDefers), a
// scan that would need the long walks makes the operation give kLong as well.
#define BRELT_PASS_ON_DEFERRED(S, r)          \
  if constexpr (S::kDefers) {                 \
    if ((r) == scan::kLong) return scan::kLong; \
  }

struct LengthOp {
  template <class S, class T>
  [[gnu::always_inline]] static std::uint64_t Run(unsigned int high, const T* s) {
    return S::FindEq(s, Capacity(high), T{0});
  }
};

// First ch at or behind start, stopping at the first NUL; NUL itself is never found.
struct CharPosOp {
  template <class S, class T>
  [[gnu::always_inline]] static std::uint64_t Run(unsigned int high, const T* s, T ch,
                                                  std::uint64_t start) {
    const std::uint64_t n = Capacity(high);
    if (start >= n) return kNotFound;
    const std::uint64_t at = S::FindEither(s + start, n - start, T{0}, ch);
    BRELT_PASS_ON_DEFERRED(S, at)
    const std::uint64_t i = start + at;
    if (i >= n || s[i] == T{0}) return kNotFound;
    return i;
  }
};

// One walk to the first ch or the end: a text without ch is read once. From the first ch
// on, the end is found and the walk goes back from it to the last ch.
struct RCharPosOp {
  template <class S, class T>
  [[gnu::always_inline]] static std::uint64_t Run(unsigned int high, const T* s, T ch) {
    if (ch == T{0}) return kNotFound;
    const std::uint64_t n = Capacity(high);
    // A short text is answered from one look at its start.
    if (const std::uint64_t i = S::LastBeforeEnd(s, n, ch, kNotFound); i != scan::kLong) {
      return i;
    }
    const std::uint64_t first = S::FindEither(s, n, T{0}, ch);
    BRELT_PASS_ON_DEFERRED(S, first)
    if (first >= n || s[first] == T{0}) return kNotFound;
    const std::uint64_t rest = S::FindEq(s + first + 1, n - first - 1, T{0});
    BRELT_PASS_ON_DEFERRED(S, rest)
    const std::uint64_t len = first + 1 + rest;
    const std::uint64_t back = S::FindEqBackward(s + len - 1, len - first, ch);
    BRELT_PASS_ON_DEFERRED(S, back)
    return len - 1 - back;
  }
};

struct CountOp {
  template <class S, class T>
  [[gnu::always_inline]] static std::uint64_t Run(unsigned int high, const T* s, T ch) {
    const std::uint64_t len = S::FindEq(s, Capacity(high), T{0});
    BRELT_PASS_ON_DEFERRED(S, len)
    return S::CountEq(s, len, ch);
  }
};

#undef BRELT_PASS_ON_DEFERRED

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
  return scan::ShortRun<unsigned int, w, LengthOp>(high, s);
}
template <scan::Width w>
unsigned int TextScans<w>::LengthW(unsigned int high, const WChar* s) {
  return scan::ShortRun<unsigned int, w, LengthOp>(high, s);
}
template <scan::Width w>
unsigned int TextScans<w>::CharPosA(unsigned int high, const char* s, char ch) {
  return scan::ShortRun<unsigned int, w, CharPosOp>(high, s, ch, std::uint64_t{0});
}
template <scan::Width w>
unsigned int TextScans<w>::CharPosW(unsigned int high, const WChar* s, WChar ch) {
  return scan::ShortRun<unsigned int, w, CharPosOp>(high, s, ch, std::uint64_t{0});
}
template <scan::Width w>
unsigned int TextScans<w>::RCharPosA(unsigned int high, const char* s, char ch) {
  return scan::ShortRun<unsigned int, w, RCharPosOp>(high, s, ch);
}
template <scan::Width w>
unsigned int TextScans<w>::RCharPosW(unsigned int high, const WChar* s, WChar ch) {
  return scan::ShortRun<unsigned int, w, RCharPosOp>(high, s, ch);
}
template <scan::Width w>
unsigned int TextScans<w>::CountA(unsigned int high, const char* s, char ch) {
  return scan::ShortRun<unsigned int, w, CountOp>(high, s, ch);
}
template <scan::Width w>
unsigned int TextScans<w>::CountW(unsigned int high, const WChar* s, WChar ch) {
  return scan::ShortRun<unsigned int, w, CountOp>(high, s, ch);
}

}  // namespace brelt::str

// The body of the export Str::Name for this CPU.
#define BRELT_TEXT_SCAN_FOR_CPU(Name) \
  BRELT_BODY_AT_WIDTH(::brelt::scan::CpuWidth(), ::brelt::str::TextScans, Name)
