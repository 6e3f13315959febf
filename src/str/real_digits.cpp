// Rounded digits of a double. The common case is done exactly in 128-bit integers: the value
// scaled by a power of ten is m * 5^t * 2^(e + t), one multiplication and one shift, or one
// division by 5^t when the scale goes down. Whatever does not fit, very large or very small
// values and long precisions, takes the big-integer expansion and rounds on its digits.
#include "str/real_digits.h"

#include <array>
#include <bit>
#include <cstring>

#include "str/int_digits.h"
#include "str/real_exact.h"

namespace brelt::str::real {
namespace {

__extension__ typedef unsigned __int128 U128;

constexpr int kMaxPow5 = 27;  // 5^27 is the last power of five below 2^64
constexpr std::array<std::uint64_t, kMaxPow5 + 1> kPow5 = [] {
  std::array<std::uint64_t, kMaxPow5 + 1> t{};
  std::uint64_t p = 1;
  for (auto& v : t) {
    v = p;
    p *= 5;
  }
  return t;
}();

constexpr int kMaxPow10 = 38;  // 10^38 is the last power of ten below 2^128
constexpr std::array<U128, kMaxPow10 + 1> kPow10 = [] {
  std::array<U128, kMaxPow10 + 1> t{};
  U128 p = 1;
  for (auto& v : t) {
    v = p;
    p *= 10;
  }
  return t;
}();

int BitWidth(U128 v) {
  const auto hi = static_cast<std::uint64_t>(v >> 64);
  return hi != 0 ? 64 + std::bit_width(hi) : std::bit_width(static_cast<std::uint64_t>(v));
}

// n = m * 2^e * 10^t rounded half up, when 128 bits hold every step; false otherwise.
bool Scaled(Binary b, int t, U128& n) {
  if (t >= 0) {
    if (t > kMaxPow5) return false;
    const U128 p = static_cast<U128>(b.m) * kPow5[t];  // below 2^116
    const int s = b.e + t;
    if (s >= 0) {
      if (BitWidth(p) + s > 128) return false;
      n = p << s;
      return true;
    }
    const int r = -s;
    if (r >= 128) {
      n = 0;  // p is below 2^127, so p / 2^r is below one half
      return true;
    }
    n = (p >> r) + ((p >> (r - 1)) & 1);
    return true;
  }
  const int u = -t;
  if (u > kMaxPow5) return false;
  const std::uint64_t five = kPow5[u];
  const int s = b.e - u;
  if (s >= 0) {
    if (53 + s > 127) return false;
    const U128 num = static_cast<U128>(b.m) << s;
    n = num / five;
    const U128 rem = num - n * five;
    n += 2 * rem >= five ? 1 : 0;
    return true;
  }
  const int r = -s;
  if (std::bit_width(five) + r > 127) return false;
  const U128 den = static_cast<U128>(five) << r;
  n = b.m / den;
  const U128 rem = b.m - n * den;
  n += 2 * rem >= den ? 1 : 0;
  return true;
}


// Exactly `width` digits of v (v below 10^width), leading zeros included, ending before `end`.
// Eight digits at a time in 32-bit arithmetic, which divides faster than 64-bit.
void PutFixedWidth(std::uint64_t v, char* end, unsigned width) {
  for (; width >= 8; width -= 8, end -= 8) {
    auto eight = static_cast<std::uint32_t>(v % 100000000);
    v /= 100000000;
    for (int k = 2; k <= 8; k += 2, eight /= 100) {
      std::memcpy(end - k, &kDigitPairs[(eight % 100) * 2], 2);
    }
  }
  auto rest = static_cast<std::uint32_t>(v);  // below 10^8 now
  for (; width >= 2; width -= 2, rest /= 100, end -= 2) {
    std::memcpy(end - 2, &kDigitPairs[(rest % 100) * 2], 2);
  }
  if (width != 0) end[-1] = static_cast<char>('0' + rest);
}

// The digits of n without leading zeros into out.digit; n above 0.
void PutDigits(U128 n, Decimal& out) {
  constexpr std::uint64_t k19 = 10000000000000000000u;
  std::uint64_t part[3];  // lowest 19 digits first
  unsigned parts = 0;
  while (n >= k19) {
    const U128 q = n / k19;
    part[parts++] = static_cast<std::uint64_t>(n - q * k19);
    n = q;
  }
  const auto top = static_cast<std::uint64_t>(n);
  const int guess = (std::bit_width(top) * 1233) >> 12;  // digit count or one less
  const auto topDigits = static_cast<unsigned>(guess + (top >= kPow10[guess] ? 1 : 0));
  char* p = out.digit + topDigits;
  PutFixedWidth(top, p, topDigits);
  for (unsigned i = parts; i-- != 0; p += 19) PutFixedWidth(part[i], p + 19, 19);
  out.count = static_cast<unsigned>(p - out.digit);
}

}  // namespace

Binary Decompose(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto field = static_cast<int>((bits >> 52) & 0x7FF);
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
  if (field == 0) return {fraction, -1074};
  return {fraction | (std::uint64_t{1} << 52), field - 1075};
}

void RoundScientific(double value, std::uint64_t precision, Decimal& out) {
  const Binary b = Decompose(value);
  if (b.m == 0) return out.SetZero();
  if (precision < kMaxPow10) {
    const int p = static_cast<int>(precision);
    // floor(log10(2) * floor(log2 v)): the decimal exponent or one below it.
    const int log2 = b.e + std::bit_width(b.m) - 1;
    int x = (log2 * 78913) >> 18;
    for (int pass = 0; pass < 2; ++pass, ++x) {
      U128 n;
      if (!Scaled(b, p - x, n)) break;
      if (n < kPow10[p + 1]) {  // at least 10^p, since x is at most the exponent
        PutDigits(n, out);
        out.point = x + 1;
        return;
      }
      if (n == kPow10[p + 1]) {  // rounded up into the next decade
        out.digit[0] = '1';
        out.count = 1;
        out.point = x + 2;
        return;
      }
    }
  }
  ExactDecimal(b, out);
  RoundAt(out, static_cast<std::int64_t>(precision + 1));
}

void RoundFixed(double value, std::uint64_t decimals, Decimal& out) {
  const Binary b = Decompose(value);
  if (b.m == 0) return out.SetZero();
  // Past the fraction's own binary places nothing is dropped: scale only as far as needed.
  const std::uint64_t places = b.e < 0 ? static_cast<std::uint64_t>(-b.e) : 0;
  const int t = static_cast<int>(decimals < places ? decimals : places);
  U128 n;
  if (Scaled(b, t, n)) {
    if (n == 0) return out.SetZero();
    PutDigits(n, out);
    out.point = static_cast<int>(out.count) - t;
    return;
  }
  ExactDecimal(b, out);
  RoundAt(out, static_cast<std::int64_t>(out.point) + static_cast<std::int64_t>(decimals));
}

}  // namespace brelt::str::real
