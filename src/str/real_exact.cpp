// Exact expansion of a double. The integer part is divided down by 10^9 on 32-bit limbs; the
// fraction, aligned so that the binary point falls on a limb boundary, is multiplied by 10^9,
// and each carry out of the top limb is the next nine digits. A double's fraction has at most
// 1074 binary places, so it ends after at most 1074 decimals and the loop ends with it.
#include "str/real_exact.h"

#include <cstring>

namespace brelt::str::real {
namespace {

constexpr std::uint32_t kChunk = 1000000000;  // 10^9: nine digits per limb step
constexpr unsigned kLimbs = 36;               // 1024 integer bits or 1074 fraction bits

// Nine digits of c, with leading zeros.
void PutChunk(std::uint32_t c, char* out) {
  for (int i = 8; i >= 0; --i, c /= 10) out[i] = static_cast<char>('0' + c % 10);
}

// Digits of v without leading zeros (v above 0); answers how many.
unsigned PutWhole(std::uint64_t v, char* out) {
  char tmp[20];
  unsigned n = 0;
  for (; v != 0; v /= 10) tmp[n++] = static_cast<char>('0' + v % 10);
  for (unsigned i = 0; i < n; ++i) out[i] = tmp[n - 1 - i];
  return n;
}

// m << e with e >= 0: at most 1024 bits.
void IntegerDigits(std::uint64_t m, int e, Decimal& out) {
  std::uint32_t limb[kLimbs] = {};
  const unsigned word = static_cast<unsigned>(e) / 32, bit = static_cast<unsigned>(e) % 32;
  const unsigned __int128 wide = static_cast<unsigned __int128>(m) << bit;  // below 2^85
  limb[word] = static_cast<std::uint32_t>(wide);
  limb[word + 1] = static_cast<std::uint32_t>(wide >> 32);
  limb[word + 2] = static_cast<std::uint32_t>(wide >> 64);
  unsigned top = word + 3;  // limbs in use
  std::uint32_t chunk[40];  // lowest chunk first; 309 digits need 35
  unsigned chunks = 0;
  while (top != 0) {
    std::uint64_t rem = 0;
    for (unsigned i = top; i-- != 0;) {
      const std::uint64_t cur = (rem << 32) | limb[i];
      limb[i] = static_cast<std::uint32_t>(cur / kChunk);
      rem = cur % kChunk;
    }
    chunk[chunks++] = static_cast<std::uint32_t>(rem);
    while (top != 0 && limb[top - 1] == 0) --top;
  }
  unsigned n = PutWhole(chunk[chunks - 1], out.digit);  // m above 0: the top chunk is too
  for (unsigned c = chunks - 1; c-- != 0; n += 9) PutChunk(chunk[c], out.digit + n);
  out.count = n;
  out.point = static_cast<int>(n);
}

}  // namespace

void ExactDecimal(Binary b, Decimal& out) {
  if (b.m == 0) return out.SetZero();
  if (b.e >= 0) return IntegerDigits(b.m, b.e, out);

  const unsigned k = static_cast<unsigned>(-b.e);  // binary places of the fraction
  const std::uint64_t whole = k >= 64 ? 0 : b.m >> k;
  const std::uint64_t frac = k >= 64 ? b.m : b.m & ((std::uint64_t{1} << k) - 1);
  unsigned n = whole != 0 ? PutWhole(whole, out.digit) : 0;
  out.point = static_cast<int>(n);

  // frac / 2^k as limbs[0, used) over 2^(32 used): the fraction's point at the top limb.
  std::uint32_t limb[kLimbs] = {};
  const unsigned used = (k + 31) / 32;
  const unsigned __int128 wide = static_cast<unsigned __int128>(frac) << (32 * used - k);
  limb[0] = static_cast<std::uint32_t>(wide);
  limb[1] = static_cast<std::uint32_t>(wide >> 32);
  limb[2] = static_cast<std::uint32_t>(wide >> 64);
  unsigned low = 0;  // limbs below `low` are zero: each step adds nine zero bits at the bottom
  int leadingZeros = 0;
  while (true) {
    while (low < used && limb[low] == 0) ++low;
    if (low == used) break;
    std::uint64_t carry = 0;
    for (unsigned i = low; i < used; ++i) {
      const std::uint64_t cur = std::uint64_t{limb[i]} * kChunk + carry;
      limb[i] = static_cast<std::uint32_t>(cur);
      carry = cur >> 32;
    }
    const auto c = static_cast<std::uint32_t>(carry);
    if (n == 0) {
      // No digit yet: the chunk's leading zeros only move the point.
      if (c == 0) {
        leadingZeros += 9;
        continue;
      }
      char nine[9];
      PutChunk(c, nine);
      unsigned z = 0;
      while (nine[z] == '0') ++z;
      leadingZeros += static_cast<int>(z);
      std::memcpy(out.digit, nine + z, 9 - z);
      n = 9 - z;
      continue;
    }
    PutChunk(c, out.digit + n);
    n += 9;
  }
  out.count = n;
  if (whole == 0) out.point = -leadingZeros;
}

void RoundAt(Decimal& d, std::int64_t keep) {
  if (keep >= static_cast<std::int64_t>(d.count)) return;
  if (keep < 0) return d.SetZero();  // the first dropped digit is a leading zero
  const bool up = d.digit[keep] >= '5';
  auto i = static_cast<unsigned>(keep);
  if (up) {
    while (i != 0 && d.digit[i - 1] == '9') --i;  // nines carry and fall away as zeros
    if (i == 0) {
      d.digit[0] = '1';
      d.count = 1;
      ++d.point;
      return;
    }
    ++d.digit[i - 1];
  } else if (i == 0) {
    return d.SetZero();
  }
  d.count = i;
}

}  // namespace brelt::str::real
