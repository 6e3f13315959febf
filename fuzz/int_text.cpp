// Integer text: the twelve parsers (StrToInt, StrToInt64, StrToIntPtr, StrToCard, StrToCard64,
// StrToCardPtr, A and W) over any text with a random base and bound, and the twelve formatters into
// a guarded destination of random size.
// Invariants: every parser gives the value and ok of a plain walk of the digit rules; every
// formatter writes the sign and digits of a plain conversion (cut to its lowest digits when they do
// not fit) and nothing behind `high`; and a formatted number reads back to itself, with ok set
// (cleared only for the most negative value, whose text is outside the range).
//
// Input: the text; then from the back the twin, the scan width, the text's flags, the base, the
// value, the destination's high bound and spare elements, its flags.
#include <brelt/str/integers.h>

#include <limits>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

unsigned Clamped(unsigned base) { return std::clamp(base, 2u, 16u); }

template <class V, class T>
using Parser = V (*)(unsigned int, const T*, unsigned int, unsigned char*);
template <class V, class T>
using Formatter = void (*)(V, unsigned int, T*, unsigned int, unsigned char*);

// The digit rules walked one character at a time over the measured text.
template <class V, class T>
std::pair<V, bool> ParseRef(const String<T>& s, unsigned base) {
  using U = std::make_unsigned_t<V>;
  base = Clamped(base);
  const bool negative = !s.empty() && s[0] == T('-');
  std::size_t i = !s.empty() && (negative || s[0] == T('+')) ? 1 : 0;
  bool ok = i < s.size();
  U acc = 0;
  for (; i < s.size(); ++i) {
    unsigned c = Code(s[i]);
    if (c >= 'a' && c <= 'f') c -= 'a' - 'A';
    if (c < '0' || c > 'F') {
      ok = false;
      break;
    }
    const unsigned d = c <= '9' ? c - '0' : c >= 'A' ? c - 'A' + 10 : 255;
    if (d >= base || acc > (std::numeric_limits<U>::max() - d) / base) ok = false;
    acc = static_cast<U>(acc * base + d);
  }
  if constexpr (std::is_signed_v<V>) {
    ok = ok && acc <= static_cast<U>(std::numeric_limits<V>::max());
    return {static_cast<V>(negative ? static_cast<U>(U{0} - acc) : acc), ok};
  } else {
    return {acc, ok && !negative};
  }
}

template <class V>
bool Negative(V value) {
  if constexpr (std::is_signed_v<V>) return value < 0;
  return false;
}

// Sign and magnitude digits, most significant first, upper case.
template <class V>
std::string FormatRef(V value, unsigned base) {
  using U = std::make_unsigned_t<V>;
  base = Clamped(base);
  const bool negative = Negative(value);
  U m = negative ? static_cast<U>(U{0} - static_cast<U>(value)) : static_cast<U>(value);
  std::string digits;
  do {
    digits.insert(digits.begin(), "0123456789ABCDEF"[m % base]);
    m /= base;
  } while (m != 0);
  return (negative ? "-" : "") + digits;
}

template <class V, class T>
void Check(const Text<T>& src, unsigned base, V value, unsigned dstHigh, std::size_t spare,
           unsigned dstFlags, Parser<V, T> parse, Formatter<V, T> format) {
  unsigned char ok = 7;
  const V got = parse(src.high, src.array.data(), base, &ok);
  const auto want = ParseRef<V>(src.text, base);
  BRELT_FUZZ_CHECK(got == want.first && ok == want.second);

  // Formatting into high + 1 elements and `spare` filler behind them.
  Text<T> dst = Place<T>({}, dstFlags | kNoNul, dstHigh + 1 + spare);
  const String<T> before = dst.Now();
  format(value, dstHigh, dst.data(), base, &ok);
  const std::string full = FormatRef(value, base);
  const std::size_t cap = dstHigh + 1;
  const bool fits = full.size() <= cap;
  const std::size_t sign = Negative(value) ? 1 : 0;
  const std::string kept =
      fits ? full : full.substr(0, sign) + full.substr(full.size() - (cap - sign));
  String<T> expect = Widen<T>(kept);
  if (kept.size() < cap) expect.push_back(T{0});
  const String<T> now = dst.Now();
  BRELT_FUZZ_CHECK(ok == fits);
  BRELT_FUZZ_CHECK(now.compare(0, expect.size(), expect) == 0);
  BRELT_FUZZ_CHECK(now.compare(cap, spare, before, cap, spare) == 0);
  if (!fits) return;

  // The text written reads back, as far as its NUL or to the end of a full array.
  const unsigned high = kept.size() < cap && (dstFlags & kAllOnes) ? kAll : dstHigh;
  const V back = parse(high, dst.data(), base, &ok);
  BRELT_FUZZ_CHECK(back == value);
  BRELT_FUZZ_CHECK(ok == (!std::is_signed_v<V> || value != std::numeric_limits<V>::min()));
}

#define BRELT_INT_OPS(X)                                                                \
  X(StrToInt) X(StrToInt64) X(StrToIntPtr) X(StrToCard) X(StrToCard64) X(StrToCardPtr)   \
  X(IntToStr) X(Int64ToStr) X(IntPtrToStr) X(CardToStr) X(Card64ToStr) X(CardPtrToStr)
#define BRELT_A_OP(name) static constexpr auto name = Str::name##A;
#define BRELT_W_OP(name) static constexpr auto name = Str::name##W;
template <class T>
struct Twin;
template <>
struct Twin<char> { BRELT_INT_OPS(BRELT_A_OP) };
template <>
struct Twin<WChar> { BRELT_INT_OPS(BRELT_W_OP) };

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string bytes = in.ConsumeRandomLengthString(400);
  ForTwin(in, [&](auto twin) {
    using T = decltype(twin);
    using Ops = Twin<T>;
    const Text<T> src = Make<T>(in, bytes);
    // Byte 0 is base 10, the base of the fast paths; 1..16 are bases 1..16, more is clamped.
    const unsigned pick = in.ConsumeIntegral<std::uint8_t>();
    const unsigned base = pick == 0 ? 10 : pick < 18 ? pick - 1 : pick;
    const auto v = in.ConsumeIntegral<std::uint64_t>();
    const unsigned high = in.ConsumeIntegralInRange<unsigned>(0, 70);
    const std::size_t spare = in.ConsumeIntegralInRange<unsigned>(0, 3);
    const unsigned flags = in.ConsumeIntegral<std::uint8_t>() & (kFrontGuard | kAllOnes);
    auto check = [&](auto value, auto parse, auto format) {
      Check<decltype(value), T>(src, base, value, high, spare, flags, parse, format);
    };
    check(static_cast<brelt::Long>(v), Ops::StrToInt, Ops::IntToStr);
    check(static_cast<brelt::Int64>(v), Ops::StrToInt64, Ops::Int64ToStr);
    check(static_cast<std::intptr_t>(v), Ops::StrToIntPtr, Ops::IntPtrToStr);
    check(static_cast<brelt::ULong>(v), Ops::StrToCard, Ops::CardToStr);
    check(static_cast<brelt::UInt64>(v), Ops::StrToCard64, Ops::Card64ToStr);
    check(static_cast<std::uintptr_t>(v), Ops::StrToCardPtr, Ops::CardPtrToStr);
  });
  return 0;
}
