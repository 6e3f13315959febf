// The general path of the print engine: every digit of a double's exact value, by big-integer
// arithmetic, and the rounding done on those digits as text.
#pragma once

#include <cstdint>

#include "str/real_digits.h"

namespace brelt::str::real {

// All significant digits of m times 2^e (m below 2^53, e from -1074 to 971).
void ExactDecimal(Binary b, Decimal& out);

// Keeps the first `keep` digits of d, rounding up when the first dropped digit is 5 or more;
// `keep` 0 or less keeps none (the result is then 0 or a 1 one place further left).
void RoundAt(Decimal& d, std::int64_t keep);

}  // namespace brelt::str::real
