// The print engine against an exact reference made here by another route: the double's value
// m * 2^e as the integer m * 2^e, or m * 5^k over 10^k when e = -k, in base-10^9 limbs; its
// digits rounded on the first dropped one, 5 and up away from zero; the %E, %f and %G texts
// laid out by the C rules. Where the dropped digits are no exact tie, the reference must also
// agree with std::to_chars, which rounds exactly but takes ties to even.
//
// Random doubles of every exponent, subnormals, k + 0.5, k / 2^j and decade edges; precisions
// 0..40, and one in four aimed at the last digit of the expansion, an exact tie for every
// value with a fraction. BRELT_REAL_DIFF_SAMPLES sets the number of doubles (default 20000).
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "guarded_array.h"
#include "str/real_print.h"

namespace {

namespace real = brelt::str::real;
using brelt::test::GuardedArray;

// 0.digits times 10^point; "0" with point 1 for zero.
struct Exact {
  std::string digits;
  long point;
};

Exact Expand(double v) {
  const auto bits = std::bit_cast<std::uint64_t>(v);
  const int field = static_cast<int>(bits >> 52 & 0x7FF);
  std::uint64_t m = bits & ((std::uint64_t{1} << 52) - 1);
  const int e = field == 0 ? -1074 : field - 1075;
  if (field != 0) m |= std::uint64_t{1} << 52;
  if (m == 0) return {"0", 1};
  std::vector<std::uint64_t> limbs = {m % 1000000000, m / 1000000000 % 1000000000,
                                      m / 1000000000000000000};
  auto times = [&](std::uint64_t f) {
    std::uint64_t carry = 0;
    for (auto& l : limbs) {
      const std::uint64_t cur = l * f + carry;
      l = cur % 1000000000;
      carry = cur / 1000000000;
    }
    for (; carry != 0; carry /= 1000000000) limbs.push_back(carry % 1000000000);
  };
  for (int left = e; left > 0; left -= 29) times(std::uint64_t{1} << std::min(left, 29));
  for (int left = -e; left > 0; left -= 13) {
    std::uint64_t five = 1;
    for (int i = 0; i < std::min(left, 13); ++i) five *= 5;
    times(five);
  }
  while (limbs.size() > 1 && limbs.back() == 0) limbs.pop_back();
  std::string s = std::to_string(limbs.back());
  for (std::size_t i = limbs.size() - 1; i-- != 0;) {
    const std::string part = std::to_string(limbs[i]);
    s += std::string(9 - part.size(), '0') + part;
  }
  return {s, static_cast<long>(s.size()) + (e < 0 ? e : 0)};
}

// The first `keep` digits, rounded on the digit behind them.
Exact Round(Exact x, long keep) {
  if (keep >= static_cast<long>(x.digits.size())) return x;
  if (keep < 0) return {"0", 1};
  const bool up = x.digits[keep] >= '5';
  x.digits.resize(keep);
  if (!up) return x.digits.empty() ? Exact{"0", 1} : x;
  long i = keep - 1;
  for (; i >= 0 && x.digits[i] == '9'; --i) x.digits[i] = '0';
  if (i < 0) return {"1", x.point + 1};
  ++x.digits[i];
  return x;
}

// Whether the digits from `keep` on are 5 and zeros: an exact tie at that place.
bool Tie(const Exact& x, long keep) {
  if (keep < 0 || keep >= static_cast<long>(x.digits.size()) || x.digits[keep] != '5') {
    return false;
  }
  return x.digits.find_first_not_of('0', keep + 1) == std::string::npos;
}

char Digit(const Exact& x, long i) {
  return i >= 0 && i < static_cast<long>(x.digits.size()) ? x.digits[i] : '0';
}

std::string Exponent(long x) {
  const std::string a = std::to_string(x < 0 ? -x : x);
  return std::string(x < 0 ? "E-" : "E+") + (a.size() < 2 ? "0" : "") + a;
}

std::string SciText(const Exact& x, long precision, bool trim) {
  const Exact r = Round(x, precision + 1);
  std::string mantissa(1, r.digits[0]);
  for (long i = 1; i <= precision; ++i) mantissa += Digit(r, i);
  if (trim) mantissa.erase(mantissa.find_last_not_of('0') + 1);
  if (mantissa.size() > 1) mantissa.insert(1, ".");
  return mantissa + Exponent(r.digits == "0" ? 0 : r.point - 1);
}

std::string FixText(const Exact& x, long decimals) {
  const Exact r = Round(x, x.point + decimals);
  std::string s;
  for (long i = 0; i < r.point; ++i) s += Digit(r, i);
  if (s.empty()) s = "0";
  if (decimals > 0) s += '.';
  for (long i = 0; i < decimals; ++i) s += Digit(r, r.point + i);
  return s;
}

std::string GenText(const Exact& x, long precision) {
  const long p = precision == 0 ? 1 : precision;
  const Exact r = Round(x, p);
  const long exp = r.digits == "0" ? 0 : r.point - 1;
  if (p <= exp || exp < -4) return SciText(x, p - 1, true);
  std::string s = FixText(x, p - 1 - exp);
  if (s.find('.') != std::string::npos) {
    s.erase(s.find_last_not_of('0') + 1);
    if (s.back() == '.') s.pop_back();
  }
  return s;
}

std::string Reference(double v, const Exact& x, real::Style style, long precision) {
  const std::string sign = std::signbit(v) ? "-" : "";
  switch (style) {
    case real::Style::kScientific: return sign + SciText(x, precision, false);
    case real::Style::kFixed: return sign + FixText(x, precision);
    case real::Style::kGeneral: return sign + GenText(x, precision);
  }
  return {};
}

// The place whose rounding the conversion decides, as an index into the exact digits.
long RoundingPlace(const Exact& x, real::Style style, long precision) {
  switch (style) {
    case real::Style::kScientific: return precision + 1;
    case real::Style::kFixed: return x.point + precision;
    case real::Style::kGeneral: return precision == 0 ? 1 : precision;
  }
  return 0;
}

std::string ToChars(double v, real::Style style, long precision) {
  static char buf[2400];
  const auto format = style == real::Style::kScientific ? std::chars_format::scientific
                      : style == real::Style::kFixed    ? std::chars_format::fixed
                                                          : std::chars_format::general;
  const auto r = std::to_chars(buf, buf + sizeof buf, v, format, static_cast<int>(precision));
  std::string s(buf, r.ptr);
  if (style != real::Style::kFixed) std::transform(s.begin(), s.end(), s.begin(), ::toupper);
  return s;
}

double Sample(std::mt19937_64& rng) {
  const std::uint64_t sign = rng() & (std::uint64_t{1} << 63);
  const auto small = [&] { return rng() >> (11 + rng() % 53); };  // below 2^53, any size
  double v = 0;
  switch (rng() % 6) {
    case 0: {  // any exponent field but the one of infinities and NaNs
      const std::uint64_t field = rng() % 2047;
      v = std::bit_cast<double>(field << 52 | (rng() & ((std::uint64_t{1} << 52) - 1)));
      break;
    }
    case 1: v = std::bit_cast<double>(rng() >> (12 + rng() % 52)); break;  // subnormal
    case 2: v = static_cast<double>(small() >> 1) + 0.5; break;
    case 3: v = std::ldexp(static_cast<double>(small()), -static_cast<int>(1 + rng() % 20)); break;
    case 4: {  // ordinary magnitudes
      v = (1.0 + static_cast<double>(rng() >> 11) * 0x1p-53 * 9.0) *
          std::pow(10.0, static_cast<double>(static_cast<int>(rng() % 24) - 8));
      break;
    }
    case 5: {  // decade edges, and 10^n - 0.5, which carries through every digit
      const int n = static_cast<int>(rng() % 61) - 30;
      v = rng() % 2 ? std::nextafter(std::pow(10.0, n), rng() % 2 ? 0.0 : 1e300)
                    : std::pow(10.0, n % 16 < 0 ? -(n % 16) : n % 16) - 0.5;
      break;
    }
  }
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(v) | sign);
}

// One guarded array per size, kept for the run.
GuardedArray<char>& Guarded(std::size_t size) {
  static std::vector<std::unique_ptr<GuardedArray<char>>> arrays(65);
  auto& a = arrays.at(size);
  if (!a) a = std::make_unique<GuardedArray<char>>(size);
  return *a;
}

TEST(RealEngine, MatchesTheExactReference) {
  const char* env = std::getenv("BRELT_REAL_DIFF_SAMPLES");
  const long samples = env != nullptr ? std::atol(env) : 20000;
  std::mt19937_64 rng(20240610);
  static char text[2400];
  long compared = 0, ties = 0, againstToChars = 0;
  for (long n = 0; n < samples; ++n) {
    const double v = Sample(rng);
    const Exact x = Expand(v);
    for (const real::Style style :
         {real::Style::kScientific, real::Style::kFixed, real::Style::kGeneral}) {
      long precision = static_cast<long>(rng() % 41);
      if (rng() % 4 == 0) {  // at the expansion's last digit
        const long last = static_cast<long>(x.digits.find_last_not_of('0'));
        precision = style == real::Style::kScientific ? last - 1
                    : style == real::Style::kFixed    ? last - x.point
                                                      : last;
        precision = std::max(precision, 0L);
      }
      const std::uint64_t width = rng() % 4 == 0 ? rng() % 48 : 0;
      const std::string bare = Reference(v, x, style, precision);
      const std::string want =
          std::string(width > bare.size() ? width - bare.size() : 0, ' ') + bare;
      const real::Conversion c{style, static_cast<std::uint64_t>(precision), width};
      const auto what = [&] {
        return std::string(1, static_cast<char>(style)) + " precision " +
               std::to_string(precision) + " width " + std::to_string(width) + " of " +
               ToChars(v, real::Style::kScientific, 17);
      };

      ASSERT_TRUE(real::PrintStrict(v, c, sizeof text - 1, text)) << what();
      ASSERT_EQ(text, want) << what();
      ++compared;
      if (Tie(x, RoundingPlace(x, style, precision))) {
        ++ties;
      } else if (width == 0) {
        ASSERT_EQ(bare, ToChars(v, style, precision)) << "reference, " << what();
        ++againstToChars;
      }

      // Refused one element short, with dst emptied; cut to any smaller array.
      const auto length = static_cast<unsigned>(want.size());
      text[1] = 'x';
      ASSERT_FALSE(real::PrintStrict(v, c, length - 1, text)) << what();
      ASSERT_EQ(text[0], '\0') << what();
      const std::size_t size = 1 + rng() % std::min<std::size_t>(want.size() + 1, 64);
      GuardedArray<char>& cut = Guarded(size);
      std::fill_n(cut.data(), size, '#');
      real::PrintCutting(v, c, static_cast<unsigned>(size - 1), cut.data());
      const std::string stored = want.substr(0, size) + std::string(size > want.size(), '\0');
      ASSERT_EQ(std::string(cut.data(), size), stored) << "cut to " << size << ", " << what();
    }
  }
  std::printf("[ real engine ] %ld doubles, %ld texts, %ld exact ties, %ld also against "
              "std::to_chars\n", samples, compared, ties, againstToChars);
}

}  // namespace
