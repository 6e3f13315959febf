// The library's own print engine, digit side: the decimal digits of a double's exact value,
// rounded on the first dropped digit, 5 and up away from zero. The targets' C libraries round
// exact ties to even, which is not what callers get from this library, so the digits are made
// here, the same on every target.
#pragma once

#include <cstdint>

namespace brelt::str::real {

// Room for every significant digit of a double's exact value (767 at most, for values just
// below the smallest normal) with one 9-digit chunk of slack.
inline constexpr unsigned kMaxDigits = 800;

// A non-negative value as 0.d[0] d[1] ... d[count - 1] times 10 to the power `point`.
// d[0] is not '0', except for the value zero, which is the single digit "0" with point 1.
// Trailing zeros may stand; digits past count are zeros.
struct Decimal {
  unsigned count;
  int point;
  char digit[kMaxDigits];

  bool IsZero() const { return digit[0] == '0'; }
  void SetZero() {
    count = 1;
    point = 1;
    digit[0] = '0';
  }
};

// A finite double's magnitude as m times 2 to the power e, m below 2^53; the sign is ignored.
struct Binary {
  std::uint64_t m;
  int e;
};
Binary Decompose(double value);

// |value| (finite) rounded to precision + 1 significant digits. Fewer digits may stand when
// the exact value has no more; the value zero stays "0".
void RoundScientific(double value, std::uint64_t precision, Decimal& out);

// |value| (finite) rounded to `decimals` places behind the point. A value that rounds to
// nothing is zero.
void RoundFixed(double value, std::uint64_t decimals, Decimal& out);

}  // namespace brelt::str::real
