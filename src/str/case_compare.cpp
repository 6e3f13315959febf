// Str: ordering of bounded strings by unsigned code and by the user's locale.
#include "brelt/lib.h"
#include "brelt/str/case.h"
#include "bounded.h"
#include "platform/collate.h"

namespace {

using brelt::WChar;
using brelt::str::MeasuredLength;

std::uint64_t EqualPrefix(const char* a, const char* b, std::uint64_t m) {
  return Lib::Compare(a, b, m);
}
std::uint64_t EqualPrefix(const WChar* a, const WChar* b, std::uint64_t m) {
  return Lib::WordCompare(a, b, m);
}

// The first characters decide most unequal pairs before anything is measured.
template <class T>
int Compare(unsigned int aHigh, const T* a, unsigned int bHigh, const T* b) {
  using U = std::make_unsigned_t<T>;
  if (static_cast<U>(a[0]) != static_cast<U>(b[0])) {
    return static_cast<U>(a[0]) < static_cast<U>(b[0]) ? -1 : 1;
  }
  const std::uint64_t la = MeasuredLength(aHigh, a);
  const std::uint64_t lb = MeasuredLength(bHigh, b);
  const std::uint64_t m = la < lb ? la : lb;
  const std::uint64_t d = EqualPrefix(a, b, m);
  if (d < m) return static_cast<U>(a[d]) < static_cast<U>(b[d]) ? -1 : 1;
  if (la == lb) return 0;
  return la < lb ? -1 : 1;
}

// Empty texts are ordered here, without asking the system.
int LocaleCompare(unsigned int aHigh, const char* a, unsigned int bHigh, const char* b,
                  bool ignoreCase) {
  const std::uint64_t la = MeasuredLength(aHigh, a);
  const std::uint64_t lb = MeasuredLength(bHigh, b);
  if (la == 0) return lb == 0 ? 0 : -1;
  if (lb == 0) return 1;
  return brelt::platform::CollateA(a, static_cast<std::uint32_t>(la), b,
                                   static_cast<std::uint32_t>(lb), ignoreCase) -
         2;
}

}  // namespace

namespace Str {

int CompareA(unsigned int aHigh, const char* a, unsigned int bHigh, const char* b) {
  return Compare(aHigh, a, bHigh, b);
}
int CompareW(unsigned int aHigh, const WChar* a, unsigned int bHigh, const WChar* b) {
  return Compare(aHigh, a, bHigh, b);
}
unsigned char SameA(unsigned int aHigh, const char* a, unsigned int bHigh, const char* b) {
  return Compare(aHigh, a, bHigh, b) == 0 ? 1 : 0;
}
unsigned char SameW(unsigned int aHigh, const WChar* a, unsigned int bHigh, const WChar* b) {
  return Compare(aHigh, a, bHigh, b) == 0 ? 1 : 0;
}

int LocaleCompareA(unsigned int aHigh, const char* a, unsigned int bHigh, const char* b) {
  return LocaleCompare(aHigh, a, bHigh, b, false);
}
int LocaleCompareCaseInsensitiveA(unsigned int aHigh, const char* a, unsigned int bHigh,
                                  const char* b) {
  return LocaleCompare(aHigh, a, bHigh, b, true);
}

}  // namespace Str
