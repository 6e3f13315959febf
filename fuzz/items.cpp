// Items: ItemA/W (separators as a bit set, itself in a guarded array of exactly its size) and
// ItemSA/W (separators as a text), into a guarded destination of random size or into the source
// array itself.
// Invariants: the destination holds the wanted item of a plain split of the text (runs of
// separators are one gap, none at either end), cut to the capacity, a NUL behind it when there is
// room; nothing behind the item's end and its NUL is written, and nothing behind `dstHigh`.
//
// Input: the text, the separator text and the set's bytes; then from the back the twin, the scan
// width, the flags of text and separators, the index, the form (set or text), the destination's
// bound, spare elements and flags, and whether it is the source array.
#include <brelt/str/items.h>

#include <vector>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr auto Item = Str::ItemA;
  static constexpr auto ItemS = Str::ItemSA;
  static constexpr unsigned kSetBytes = 32;
};
template <>
struct Twin<WChar> {
  static constexpr auto Item = Str::ItemW;
  static constexpr auto ItemS = Str::ItemSW;
  static constexpr unsigned kSetBytes = 16;
};

template <class T, class IsSep>
String<T> ItemRef(const String<T>& s, unsigned index, IsSep isSep) {
  std::vector<String<T>> items;
  for (std::size_t i = 0; i < s.size();) {
    if (isSep(s[i])) {
      ++i;
      continue;
    }
    std::size_t j = i;
    while (j < s.size() && !isSep(s[j])) ++j;
    items.push_back(s.substr(i, j - i));
    i = j;
  }
  return index < items.size() ? items[index] : String<T>();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string text = in.ConsumeRandomLengthString(600);
  const std::string seps = in.ConsumeRandomLengthString(16);
  const std::string setBytes = in.ConsumeRandomLengthString(32);
  ForTwin(in, [&](auto twin) {
    using T = decltype(twin);
    using Ops = Twin<T>;
    Text<T> src = Make<T>(in, text);
    const Text<T> sep = Make<T>(in, seps);
    const unsigned index = in.ConsumeIntegralInRange(0, 6) == 6 ? in.ConsumeIntegral<unsigned>()
                                                                : in.ConsumeIntegralInRange(0, 5);
    const bool bySet = in.ConsumeBool();
    Guarded<unsigned char> set(Ops::kSetBytes);
    for (unsigned k = 0; k < Ops::kSetBytes; ++k) {
      set[k] = k < setBytes.size() ? static_cast<unsigned char>(setBytes[k]) : 0;
    }
    auto isSep = [&](T c) {
      if (bySet) return Code(c) < 8 * Ops::kSetBytes && (set[Code(c) / 8] >> (Code(c) % 8) & 1);
      return sep.text.find(c) != String<T>::npos;
    };
    const String<T> item = ItemRef(src.text, index, isSep);

    // The destination: its own array, or the source's (then its bound is the source's).
    const unsigned dstHigh = TakeIndex(in, src.text.size() + 2);
    const std::size_t spare = in.ConsumeIntegralInRange(0, 2);
    const unsigned dstFlags = in.ConsumeIntegral<std::uint8_t>();
    const bool inPlace = in.ConsumeBool() && src.high != kAll;
    // A bound of all ones is no bound: the array must then hold the item and its NUL.
    const bool ones = !inPlace && dstHigh == kAll && (dstFlags & kAllOnes) != 0;
    const std::size_t cap = inPlace ? src.high + 1 : ones ? item.size() + 1 : (dstHigh & 0xFF) + 1;
    Text<T> own = Place<T>({}, dstFlags | kNoNul, inPlace ? 1 : cap + spare);
    Text<T>& dst = inPlace ? src : own;
    const unsigned high = ones ? kAll : static_cast<unsigned>(cap - 1);

    const String<T> before = dst.Now();
    if (bySet) {
      Ops::Item(high, dst.data(), src.high, src.array.data(), set.data(), index);
    } else {
      Ops::ItemS(high, dst.data(), src.high, src.array.data(), sep.high, sep.array.data(), index);
    }
    const String<T> now = dst.Now();
    const std::size_t kept = std::min(item.size(), cap);
    BRELT_FUZZ_CHECK(now.compare(0, kept, item, 0, kept) == 0);
    if (kept < cap) BRELT_FUZZ_CHECK(now[kept] == T{0});
    const std::size_t reach = std::min(kept + 1, cap);
    BRELT_FUZZ_CHECK(now.compare(reach, String<T>::npos, before, reach) == 0);
  });
  return 0;
}
