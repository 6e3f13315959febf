// Text to real: StrToRealA and StrToRealW over any text and bound.
// Invariants: a failure gives +0.0; both twins read an 8-bit text and its 16-bit widening alike; a
// '-' in front of an unsigned text negates the value and keeps ok ('+' changes nothing), except
// before an exponent letter, which may stand first only behind a sign; and a number of at most 15
// digits with a power of ten of magnitude at most 22, both exact in a double, reads as the
// correctly rounded value.
//
// Input: the text; then from the back the twin, the scan width, the text's flags, and for the exact
// number its digits, fraction digit count and exponent.
#include <brelt/str/reals.h>

#include <bit>
#include <cmath>
#include <cstdlib>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

double Real(const Text<char>& t, unsigned char* ok) {
  return Str::StrToRealA(t.high, t.array.data(), ok);
}
double Real(const Text<WChar>& t, unsigned char* ok) {
  return Str::StrToRealW(t.high, t.array.data(), ok);
}

// Same bits, or both NaN (whose sign the hardware picks).
bool Same(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

template <class T>
void Check(const Text<T>& src, unsigned flags) {
  unsigned char ok = 7;
  const double value = Real(src, &ok);
  BRELT_FUZZ_CHECK(ok <= 1);
  BRELT_FUZZ_CHECK(ok == 1 || std::bit_cast<std::uint64_t>(value) == 0);
  if constexpr (sizeof(T) == 1) {
    unsigned char wideOk = 7;
    const Text<WChar> wide = Place<WChar>(Chars<WChar>(src.Now(), 0), flags | kNoNul);
    const double wideValue = Str::StrToRealW(src.high, wide.array.data(), &wideOk);
    BRELT_FUZZ_CHECK(wideOk == ok && Same(wideValue, value));
  }
  const String<T>& s = src.text;
  if (!s.empty() && (s[0] == T('-') || s[0] == T('+') || s[0] == T('e') || s[0] == T('E'))) {
    return;
  }
  for (const T sign : {T('-'), T('+')}) {
    unsigned char signedOk = 7;
    const Text<T> t = Place<T>(sign + s, flags & ~kNoNul);
    const double signedValue = Real(t, &signedOk);
    BRELT_FUZZ_CHECK(signedOk == ok);
    BRELT_FUZZ_CHECK(Same(signedValue, ok == 0 || sign == T('+') ? value : -value));
  }
}

// Digits of `mantissa`, `fraction` of them behind a point, and the exponent `exponent`.
template <class T>
void CheckExact(std::uint64_t mantissa, unsigned fraction, int exponent, unsigned flags) {
  std::string digits = std::to_string(mantissa);
  if (digits.size() < fraction) digits.insert(0, fraction - digits.size(), '0');
  digits.insert(digits.size() - fraction, ".");
  const std::string text = digits + "E" + std::to_string(exponent);
  unsigned char ok = 7;
  const double value = Real(Place<T>(Widen<T>(text), flags), &ok);
  BRELT_FUZZ_CHECK(ok == 1);
  BRELT_FUZZ_CHECK(Same(value, std::strtod(text.c_str(), nullptr)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string bytes = in.ConsumeRandomLengthString(400);
  ForTwin(in, [&](auto twin) {
    using T = decltype(twin);
    const unsigned flags = in.ConsumeIntegral<std::uint8_t>();
    Check<T>(Place<T>(Chars<T>(bytes, flags), flags), flags);
    const std::uint64_t mantissa = in.ConsumeIntegral<std::uint64_t>() % 1000000000000000u;
    const unsigned fraction = in.ConsumeIntegralInRange(0, 15);
    const int power = in.ConsumeIntegralInRange(-22, 22);
    CheckExact<T>(mantissa, fraction, power + static_cast<int>(fraction), flags);
  });
  return 0;
}
