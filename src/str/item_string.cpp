// Str items with the separators given as a string.
#include "brelt/str/items.h"
#include "bounded.h"
#include "item_walk.h"
#include "lib/bit_set.h"

namespace bits = brelt::bits;

namespace {

// Constant, so that each call starts from it without clearing a set of its own first.
constexpr unsigned char kEmptySet8[bits::kSetSize8] = {};

}  // namespace

namespace Str {

// Every 8-bit code fits a 32-byte set, so the separator text is turned into one once per call.
void ItemSA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
            unsigned int sepHigh, const char* seps, unsigned int index) {
  unsigned char set[bits::kSetSize8];
  bits::SetCopy(set, kEmptySet8, bits::kSetSize8);
  const std::uint64_t sepLen = brelt::str::MeasuredLength(sepHigh, seps);
  for (std::uint64_t k = 0; k < sepLen; ++k) {
    bits::SetIncl(set, static_cast<unsigned char>(seps[k]), bits::kSetSize8);
  }
  ItemA(dstHigh, dst, srcHigh, src, set, index);
}

// A set of every 16-bit code would be 8 KiB; each character is compared against the separator
// text instead, so that any code can separate.
void ItemSW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
            unsigned int sepHigh, const WChar* seps, unsigned int index) {
  const std::uint64_t sepLen = brelt::str::MeasuredLength(sepHigh, seps);
  brelt::str::CopyItem(dstHigh, dst, srcHigh, src, index, [seps, sepLen](WChar c) {
    return brelt::scan::FindEq(seps, sepLen, c) < sepLen;
  });
}

}  // namespace Str
