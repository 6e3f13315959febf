// Case and ordering: CapsA/W and LowsA/W in place, CompareA/W, SameA/W, LocaleCompareA and
// LocaleCompareCaseInsensitiveA, and the block compares Lib::Compare and Lib::WordCompare that they
// stand on, under either 8-bit code page.
// Invariants: a fold keeps the length and writes nothing behind the text; a 16-bit fold is
// CapW/LowW of each character, and so is an 8-bit one (CapA/LowA) under Windows-1252; under UTF-8
// ASCII folds as ASCII and no other byte becomes ASCII; Compare orders by unsigned codes, shorter
// first on a common prefix, and Same says whether it gave 0; the locale orderings give -2..1, order
// empty texts themselves and are antisymmetric; the block compares give the first difference and,
// with a count behind it, read nothing there.
//
// Input: the two texts; then from the back the twin, the scan width, the code page, the texts'
// flags, how much of the first text the second takes over, and the block compare's count.
#include <brelt/lib.h>
#include <brelt/str/case.h>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr auto Caps = Str::CapsA, Lows = Str::LowsA;
  static constexpr auto Compare = Str::CompareA;
  static constexpr auto Same = Str::SameA;
  // Bound at load to the body of the CPU's width: called at the input's scan width.
  static auto Blocks() {
    return BRELT_BODY_AT_WIDTH(ScanWidth(), brelt::scan::BlockScans, Compare);
  }
  static char Cap(char c) { return Str::CapA(c); }
  static char Low(char c) { return Str::LowA(c); }
  static bool PerCharacter() { return brelt::platform::ActiveCodePageId() == 1252; }
};
template <>
struct Twin<WChar> {
  static constexpr auto Caps = Str::CapsW, Lows = Str::LowsW;
  static constexpr auto Compare = Str::CompareW;
  static constexpr auto Same = Str::SameW;
  static auto Blocks() {
    return BRELT_BODY_AT_WIDTH(ScanWidth(), brelt::scan::BlockScans, WordCompare);
  }
  static WChar Cap(WChar c) { return Str::CapW(c); }
  static WChar Low(WChar c) { return Str::LowW(c); }
  static bool PerCharacter() { return true; }
};

template <class T>
void CheckFold(const Text<T>& t, bool upper) {
  using Ops = Twin<T>;
  // A copy of the same shape to fold, so that the other checks see the text unchanged.
  Text<T> f = Place<T>(t.Now(), kNoNul);
  f.high = t.high;
  (upper ? Ops::Caps : Ops::Lows)(f.high, f.data());
  const String<T> now = f.Now(), before = t.Now();
  const std::size_t n = t.text.size();
  BRELT_FUZZ_CHECK(now.compare(n, String<T>::npos, before, n) == 0);
  const bool perCharacter = Ops::PerCharacter();
  for (std::size_t i = 0; i < n; ++i) {
    if (perCharacter) {
      BRELT_FUZZ_CHECK(now[i] == (upper ? Ops::Cap(before[i]) : Ops::Low(before[i])));
      continue;
    }
    // UTF-8: a character whose partner has another byte count stays, so bytes keep their kind.
    const unsigned was = Code(before[i]), is = Code(now[i]);
    const unsigned ascii = upper && was - 'a' < 26u    ? was - 32
                           : !upper && was - 'A' < 26u ? was + 32
                                                       : was;
    BRELT_FUZZ_CHECK(was < 0x80 ? is == ascii : is >= 0x80);
  }
}

int Sign(int v) { return (v > 0) - (v < 0); }

template <class T>
void CheckOrder(const Text<T>& a, const Text<T>& b) {
  using Ops = Twin<T>;
  const int got = Ops::Compare(a.high, a.array.data(), b.high, b.array.data());
  // Unsigned codes, as the string comparison of their unsigned forms gives them.
  const auto ua = String<Unsigned<T>>(a.text.begin(), a.text.end());
  const auto ub = String<Unsigned<T>>(b.text.begin(), b.text.end());
  BRELT_FUZZ_CHECK(got == Sign(ua.compare(ub)));
  BRELT_FUZZ_CHECK(Ops::Same(a.high, a.array.data(), b.high, b.array.data()) == (got == 0));
  if constexpr (sizeof(T) == 1) {
    for (auto order : {Str::LocaleCompareA, Str::LocaleCompareCaseInsensitiveA}) {
      const int ab = order(a.high, a.array.data(), b.high, b.array.data());
      const int ba = order(b.high, b.array.data(), a.high, a.array.data());
      BRELT_FUZZ_CHECK(ab >= -2 && ab <= 1);
      if (a.text.empty() || b.text.empty()) BRELT_FUZZ_CHECK(ab == Sign(ua.compare(ub)));
      if (ab != -2 && ba != -2) BRELT_FUZZ_CHECK(ab == -ba);
    }
  }
}

// Counts beyond the shorter array are allowed only behind a difference within it.
template <class T>
void CheckBlocks(const Text<T>& a, const Text<T>& b, std::uint64_t n) {
  const String<T> x = a.Now(), y = b.Now();
  const std::size_t common = std::min(x.size(), y.size());
  std::size_t first = 0;
  while (first < common && x[first] == y[first]) ++first;
  if (n > common && first == common) n = common;
  const auto got = Twin<T>::Blocks()(a.array.data(), b.array.data(), n);
  BRELT_FUZZ_CHECK(got == std::min<std::uint64_t>(first, n));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string first = in.ConsumeRandomLengthString(400);
  const std::string second = in.ConsumeRandomLengthString(400);
  ForTwin(in, [&](auto twin) {
    using T = decltype(twin);
    TakeCodePage(in);
    const Text<T> a = Make<T>(in, first);
    // The second text mostly begins with a part of the first, so that orderings look far.
    const unsigned fa = in.ConsumeIntegral<std::uint8_t>();
    const String<T> own = Chars<T>(second, fa);
    const std::size_t shared = in.ConsumeIntegralInRange<std::size_t>(0, a.text.size() + 1);
    const Text<T> b = Place<T>(a.text.substr(0, shared) + own, fa);
    CheckFold(a, true);
    CheckFold(a, false);
    CheckOrder(a, b);
    CheckBlocks(a, b, in.ConsumeIntegralInRange<std::uint64_t>(0, 1000));
  });
  return 0;
}
