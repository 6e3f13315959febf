// Str reals as text, both twins with the same expected texts: the edge tables of each
// formatter, prints that are cut or refused at the end of an array that sits against a guard
// page, NaN, and the user's decimal point.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {
using brelt::WChar, brelt::test::GuardedArray;
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view kUntouched = "(untouched)";

#define BRELT_REAL_OPS(X) \
  X(RealToStr) X(FixRealToStr) X(LocaleFixRealToStr) X(CorrectedRealToStr) X(CorrFixRealToStr)
#define BRELT_A_OP(name) static constexpr auto name = Str::name##A;
#define BRELT_W_OP(name) static constexpr auto name = Str::name##W;
template <class T> struct Twin;
template <> struct Twin<char> { BRELT_REAL_OPS(BRELT_A_OP) };
template <> struct Twin<WChar> { BRELT_REAL_OPS(BRELT_W_OP) };

template <class T>
class RealFormat : public testing::Test, public Twin<T> {
 protected:
  // The text as a caller reads it: up to the first NUL, or the whole array when it is full;
  // an array the call left alone reads kUntouched.
  static std::string Text(const GuardedArray<T>& a) {
    std::string out;
    for (std::size_t i = 0; i < a.size() && a[i] != T{0}; ++i) out += static_cast<char>(a[i]);
    return out == std::string(a.size(), '#') ? std::string(kUntouched) : out;
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(RealFormat, Twins);

struct Row {
  double value;
  unsigned digits;
  std::string_view text;
  int ok = 1;
  unsigned high = 79;
  unsigned char eng = 0;
};

TYPED_TEST(RealFormat, RealToStr) {
  const Row rows[] = {
      {1.0, 15, "1E+0"},  {0.0, 15, "0E+0"},  {-0.0, 15, "-0E+0"},  {1234.5, 15, "1.2345E+3"},
      {1234.5, 4, "1.235E+3"},  {-1234.5, 15, "-1.2345E+3"},  {0.1, 16, "1E-1"},
      {0.1, 17, "1.0000000000000001E-1"},  {0.1, 18, "1.0000000000000001E-1"},
      {1E100, 15, "1E+100"},  {1.5E-100, 15, "1.5E-100"},  {1.5, 1, "2E+00"},
      {9.96, 2, "1E+1"},  // the mantissa's rounding carries into the exponent
      {1234.5, 15, "1.2345E+3", 1, 79, 1},  {12345.678, 15, "12.345678E+3", 1, 79, 1},
      {123456.789, 15, "123.456789E+3", 1, 79, 1},  {0.12345, 15, "123.45E-3", 1, 79, 1},
      {0.012345, 15, "12.345E-3", 1, 79, 1},  {0.0012345, 15, "1.2345E-3", 1, 79, 1},
      {1E-5, 15, "10E-6", 1, 79, 1},  {1E5, 15, "100E+3", 1, 79, 1},
      {1E-102, 15, "1E-102", 1, 79, 1},  {1.5E-100, 15, "150E-102", 1, 79, 1},
      {120.0, 2, "120E+0", 1, 79, 1},  {12345.0, 1, "1E+04", 1, 79, 1},
      {1.2E5, 2, "120E+3", 1, 7, 1},  // "120.0E+3" fills all 8 elements before the strip
      {kInf, 15, "             INF"},  {-kInf, 15, "            -INF"},
      {1234.5, 15, "1.2345E+3", 1, 20},  {1234.5, 15, "", 0, 19},  // room as printed
      {-1E-100, 15, "-1E-100", 1, 22},  {-1E-100, 15, "", 0, 21},
      {1.5, 0, "", 0},  {kNaN, 15, kUntouched, 0},
  };
  for (const Row& r : rows) {
    GuardedArray<TypeParam> dst(r.high + 1);
    unsigned char ok = 7;
    this->RealToStr(r.value, r.digits, r.eng, r.high, dst.data(), &ok);
    EXPECT_EQ(this->Text(dst), r.text) << r.value << " digits " << r.digits << " eng " << +r.eng;
    EXPECT_EQ(ok, r.ok) << r.value << " digits " << r.digits;
  }
}

// The 16-bit twin prints a NaN; the 8-bit one refuses it.
TYPED_TEST(RealFormat, FixRealToStr) {
  const Row rows[] = {
      {1234.5, 2, "1234.50"},  {0.75, 0, "1"},  {2.5, 0, "3"},  {-2.5, 0, "-3"},
      {0.125, 2, "0.13"},  {0.015, 2, "0.01"},  {-1.5, 1, "-1.5"},  {-0.001, 0, "-0"},
      {1234.5, 2, "1234.50", 1, 6},  {1234.5, 2, "1234.", 1, 4},  {-kInf, 3, "-inf"},
      {0.1, 30, "0.100000000000000005551115123126"},  {1E23, 0, "99999999999999991611392"},
      {0.5, 4000000000u, "0.500000", 1, 7},  // no more than the array is written
      {kNaN, 2, sizeof(TypeParam) == 1 ? kUntouched : "nan", sizeof(TypeParam) == 1 ? 0 : 1},
  };
  for (const Row& r : rows) {
    GuardedArray<TypeParam> dst(r.high + 1);
    unsigned char ok = 7;
    this->FixRealToStr(r.value, r.digits, r.high, dst.data(), &ok);
    EXPECT_EQ(this->Text(dst), r.text) << r.value << " digits " << r.digits;
    EXPECT_EQ(ok, r.ok) << r.value << " digits " << r.digits;
  }
}

TYPED_TEST(RealFormat, CorrectedRealToStr) {
  const Row rows[] = {
      {0.1, 0, "0.1"},  {0.30000000000000004, 0, "0.3"},  {1.0, 0, "1"},  {1.5, 0, "1.5"},
      {100.0, 0, "100"},  {1234.5678, 0, "1234.5678"},  {99999999999999.0, 0, "99999999999999"},
      {1E14, 0, "1E+14"},  {1.5E20, 0, "1.5E+20"},  {1E20, 0, "1E+20"},  {1E-5, 0, "0.00001"},
      {1.23456789012345E-10, 0, "0.000000000123457"},  {1.1E-14, 0, "0.000000000000011"},
      {1E-14, 0, "1E-14"},  {5E-324, 0, "4.9406564584125E-324"},  {0.0, 0, "0"},
      {-0.0, 0, "-0"},  {-0.25, 0, "-0.25"},  {0.99999, 2, "1"},  {0.001, 3, "0.001"},
      {0.0001234, 3, "0.00012"},  {0.00001234, 3, "1.2E-5"},  {1E-5, 3, "1E-05"},
      {12345.0, 3, "1.2E+4"},  {12345.0, 2, "1E+04"},  {0.0000159, 5, "0.00002"},
      {0.0000158, 5, "1.58E-5"},  {kInf, 0, "INF"},  {-kInf, 99, "-INF"},
      {1.5, 0, "1.5E+0", 1, 79, 1},  {123456.789, 0, "123.456789E+3", 1, 79, 1},
      {1.5, 5, "2", 1, 3},  {12.5, 5, "", 0, 3},  {0.123, 15, "0.1", 1, 3},  // d falls to 1
      {-0.1, 5, "-0.1", 1, 4},  // an array exactly d long: d falls to 2, "-0.10" fills it
      {0.5, 15, "0", 1, 1},  // the cut print "0." loses its bare point
      {kNaN, 0, kUntouched, 0},
  };
  for (const Row& r : rows) {
    GuardedArray<TypeParam> dst(r.high + 1);
    unsigned char ok = 7;
    this->CorrectedRealToStr(r.value, r.digits, r.eng, r.high, dst.data(), &ok);
    EXPECT_EQ(this->Text(dst), r.text) << r.value << " digits " << r.digits << " high " << r.high;
    EXPECT_EQ(ok, r.ok) << r.value << " digits " << r.digits;
  }
}

TYPED_TEST(RealFormat, CorrFixRealToStr) {
  const Row rows[] = {
      {2.5, 0, "3"},  {0.125, 2, "0.13"},  {0.015, 2, "0.02"},  {1.005, 2, "1.00"},
      {2.675, 2, "2.67"},  {9.5, 0, "10"},  {-9.5, 0, "-10"},  {9.996, 2, "10.00"},
      {-9.996, 2, "-10.00"},  {-0.5, 0, "-1"},  {1.5, 17, "1.50000000000000000"},
      {1.5, 99, "1.50000000000000000"},  {1.5, 16, "1.5000000000000000"},  {0.0, 3, "0.000"},
      {3.14159, 2, "3.14", 1, 7},  {1234.5678, 2, "1234.5", 1, 5},  {1234.5678, 0, "1235", 1, 5},
      {99.96, 1, "100.0", 1, 5},  // the carry's "1" pushes the last decimal off the array
      {-99.96, 1, "-100.0", 1, 5},  // and the cut falls behind it: no NUL
      {123456.7, 2, "123456", 1, 5},  // cut in front of the point
      {kInf, 2, "inf"},  {kNaN, 2, kUntouched, 0},
  };
  for (const Row& r : rows) {
    GuardedArray<TypeParam> dst(r.high + 1);
    unsigned char ok = 7;
    this->CorrFixRealToStr(r.value, r.digits, r.high, dst.data(), &ok);
    EXPECT_EQ(this->Text(dst), r.text) << r.value << " digits " << r.digits << " high " << r.high;
    EXPECT_EQ(ok, r.ok) << r.value << " digits " << r.digits;
  }
}

// The point is the user's: ',' where the run pins a German locale, '.' under C. The texts
// below are written with ',' and read with the expected point. The numeric category of the
// process must stand as it was, and the plain formatters keep writing '.'.
TYPED_TEST(RealFormat, LocaleFixRealToStr) {
  const std::string user = std::getenv("LC_ALL") ? std::getenv("LC_ALL") : "";
  char point;
  if (user.rfind("de_DE", 0) == 0) {
    const std::string ctype = std::setlocale(LC_CTYPE, nullptr);
    if (ctype.rfind("de", 0) != 0 && ctype.rfind("German", 0) != 0) {
      GTEST_SKIP() << user << " is not installed here (scripts/deps generates it as root)";
    }
    point = ',';
  } else if (user == "C" || user == "C.UTF-8" || user == "POSIX") {
    point = '.';
  } else {
    GTEST_SKIP() << "expects LC_ALL to be C.UTF-8 or de_DE.UTF-8, not '" << user << "'";
  }
  const std::string numeric = std::setlocale(LC_NUMERIC, nullptr);
  struct LocaleRow { double value; int digits; std::string_view text; int ok = 1;
                     unsigned high = 79; };
  const LocaleRow rows[] = {
      {1.5, 2, "1,50"},  {1.5, 0, "1,5"},  {1.5, -7, "1,5"},  {1.5, 99, "1,500000000000000"},
      {-2.5, 1, "-2,5"},  {1234.5, 2, "", 0, 6},  {1234.5, 2, "1234,50", 1, 7},
      {kInf, 15, "            inf"},  {kNaN, 4, " nan"},
  };
  for (const LocaleRow& r : rows) {
    GuardedArray<TypeParam> dst(r.high + 1);
    unsigned char ok = 7;
    this->LocaleFixRealToStr(r.value, r.digits, r.high, dst.data(), &ok);
    std::string want(r.text);
    for (char& c : want) c = c == ',' ? point : c;
    EXPECT_EQ(this->Text(dst), want) << r.value << " digits " << r.digits;
    EXPECT_EQ(ok, r.ok) << r.value << " digits " << r.digits;
    EXPECT_EQ(std::setlocale(LC_NUMERIC, nullptr), numeric);
  }
  GuardedArray<TypeParam> dst(80);
  unsigned char ok = 7;
  this->RealToStr(1.5, 15, 0, 79, dst.data(), &ok);
  EXPECT_EQ(this->Text(dst), "1.5E+0");
}

}  // namespace
