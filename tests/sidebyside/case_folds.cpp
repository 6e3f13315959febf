// Case folding of every 8-bit and every 16-bit character: one character at a time, and in
// strings through the string folds. Each line: upper, lower, string upper, string lower.
#include <brelt/str.h>

#include <vector>

#include "sections.h"

namespace sidebyside {
namespace {

// The string folds over all units from 1 to `last`, in full arrays of 255, so that the NUL
// never stands in them and every unit is folded.
template <class T, class Fold>
std::vector<T> FoldedInStrings(unsigned last, Fold fold) {
  std::vector<T> all(last + 1);
  for (unsigned u = 0; u <= last; ++u) all[u] = static_cast<T>(u);
  for (unsigned start = 1; start <= last; start += 255) {
    const unsigned n = start + 255 <= last + 1 ? 255 : last + 1 - start;
    fold(n - 1, all.data() + start);
  }
  return all;
}

}  // namespace

void CaseFolds(Report& r) {
  const auto upper8 = FoldedInStrings<char>(0xFF, Str::CapsA);
  const auto lower8 = FoldedInStrings<char>(0xFF, Str::LowsA);
  for (unsigned b = 0; b < 0x100; ++b) {
    const char c = static_cast<char>(b);
    auto h = [](char x) { return Hex(static_cast<unsigned char>(x), 2); };
    r.Line("fold8." + Hex(b, 2),
           h(Str::CapA(c)) + " " + h(Str::LowA(c)) + " " + h(upper8[b]) + " " + h(lower8[b]));
  }
  const auto upper16 = FoldedInStrings<Str::WChar>(0xFFFF, Str::CapsW);
  const auto lower16 = FoldedInStrings<Str::WChar>(0xFFFF, Str::LowsW);
  for (unsigned u = 0; u < 0x10000; ++u) {
    const auto w = static_cast<Str::WChar>(u);
    r.Line("fold16." + Hex(u, 4), Hex(Str::CapW(w), 4) + " " + Hex(Str::LowW(w), 4) + " " +
                                      Hex(upper16[u], 4) + " " + Hex(lower16[u], 4));
  }
}

}  // namespace sidebyside
