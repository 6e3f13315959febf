// Str items with the separators given as a bit set.
#include "brelt/str/items.h"
#include "item_walk.h"
#include "lib/bit_set.h"

namespace bits = brelt::bits;

namespace Str {

void ItemA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
           const unsigned char* set, unsigned int index) {
  brelt::str::CopyItem(dstHigh, dst, srcHigh, src, index, [set](char c) {
    return bits::SetIn(static_cast<unsigned char>(c), set, bits::kSetSize8) != 0;
  });
}

// The 16-byte set holds codes 0..127 only; the bound rule of SetIn keeps every character from
// 128 up out of it.
void ItemW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
           const unsigned char* set, unsigned int index) {
  brelt::str::CopyItem(dstHigh, dst, srcHigh, src, index, [set](WChar c) {
    return bits::SetIn(static_cast<std::uint16_t>(c), set, bits::kSetSize16) != 0;
  });
}

}  // namespace Str
