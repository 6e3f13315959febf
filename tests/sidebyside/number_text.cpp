// Whole numbers as text in every base and back, reals read from text, and reals as text in
// every notation.
#include <brelt/str.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string_view>

#include "sections.h"

namespace sidebyside {
namespace {

using namespace std::string_view_literals;

// The text a formatter leaves in an array of high + 1 elements, up to its NUL, and ok.
template <class T, class F>
std::string Formatted(F format, T value, unsigned base, unsigned high) {
  char text[72] = {};
  unsigned char ok = 9;
  format(value, high, text, base, &ok);
  const std::string_view all(text, high + 1);
  return Shown(all.substr(0, all.find('\0'))) + " ok " + Dec(ok);
}

template <class F>
std::string Parsed(F parse, std::string_view text, unsigned base) {
  unsigned char ok = 9;
  const char nul = 0;
  const auto v = parse(text.empty() ? 0 : static_cast<unsigned>(text.size() - 1),
                       text.empty() ? &nul : text.data(), base, &ok);
  return Hex(static_cast<std::uint64_t>(v), 16) + " ok " + Dec(ok);
}

constexpr double kInf = std::numeric_limits<double>::infinity();

// What a real formatter leaves in a 40-element array, up to its NUL, and ok; the array starts
// out as '#', so that an untouched one shows.
template <class F, class... Args>
std::string Printed(F format, double v, Args... args) {
  char text[40];
  std::fill(std::begin(text), std::end(text), '#');
  unsigned char ok = 9;
  format(v, args..., 39, text, &ok);
  const std::string_view all(text, 40);
  return Shown(all.substr(0, all.find('\0'))) + " ok " + Dec(ok);
}
template <class F>
std::string RealText(F format, double v, unsigned digits, unsigned char eng) {
  return Printed(format, v, digits, eng);
}
template <class F, class D>
std::string FixText(F format, double v, D digits) {
  return Printed(format, v, digits);
}

}  // namespace

void NumberText(Report& r) {
  const std::int64_t values[] = {0, 1, -1, 9, 10, 15, 16, 255, -255, 65535, 2147483647,
                                 -2147483647 - 1, 4294967295LL, 1234567890123LL,
                                 INT64_MAX, INT64_MIN};
  const unsigned bases[] = {0, 2, 7, 8, 10, 16, 17, 99};
  for (std::int64_t v : values) {
    for (unsigned base : bases) {
      const std::string key = Dec(v) + ".b" + Dec(base);
      const auto v32 = static_cast<std::int32_t>(v);
      r.Line("int.IntToStrA." + key, Formatted(Str::IntToStrA, v32, base, 40));
      r.Line("int.CardToStrA." + key,
             Formatted(Str::CardToStrA, static_cast<std::uint32_t>(v), base, 40));
      r.Line("int.Int64ToStrA." + key, Formatted(Str::Int64ToStrA, v, base, 68));
      r.Line("int.Card64ToStrA." + key,
             Formatted(Str::Card64ToStrA, static_cast<std::uint64_t>(v), base, 68));
      r.Line("int.IntToStrA.short." + key, Formatted(Str::IntToStrA, v32, base, 3));
    }
  }
  const std::string_view texts[] = {
      ""sv, "0"sv, "-0"sv, "+7"sv, "-"sv, "12a"sv, "ff"sv, "FF"sv, "777"sv, "2147483647"sv,
      "2147483648"sv, "-2147483648"sv, "4294967295"sv, "4294967296"sv,
      "9223372036854775807"sv, "-9223372036854775808"sv, "18446744073709551616"sv, "1 2"sv};
  for (std::string_view t : texts) {
    for (unsigned base : {2u, 8u, 10u, 16u}) {
      const std::string key = Dec(base) + "." + Shown(t);
      r.Line("int.StrToIntA." + key, Parsed(Str::StrToIntA, t, base));
      r.Line("int.StrToCardA." + key, Parsed(Str::StrToCardA, t, base));
      r.Line("int.StrToInt64A." + key, Parsed(Str::StrToInt64A, t, base));
      r.Line("int.StrToCard64A." + key, Parsed(Str::StrToCard64A, t, base));
    }
  }
  const std::string_view reals[] = {
      ""sv, "."sv, "-"sv, "0"sv, "-0"sv, "1"sv, "0.1"sv, "-2.5"sv, "3.14159265358979323846"sv,
      "1e10"sv, "1E-10"sv, "6.02214076E23"sv, "1.7976931348623157e308"sv, "1e309"sv,
      "2.2250738585072014e-308"sv, "4.9e-324"sv, "1e-400"sv, "123456789012345678901234567890"sv,
      "0.000000000000000000000000000001"sv, "9007199254740993"sv, "1e"sv, "e5"sv, "1.5x"sv,
      " 1"sv, "+.5"sv, "-.5e-1"sv, "1e+2"sv, "0.3"sv, "2.675"sv};
  for (std::string_view t : reals) {
    unsigned char ok = 9;
    const char nul = 0;
    const double v = Str::StrToRealA(t.empty() ? 0 : static_cast<unsigned>(t.size() - 1),
                                     t.empty() ? &nul : t.data(), &ok);
    r.Line("real.StrToRealA." + Shown(t), Real(v) + " ok " + Dec(ok));
  }
  const double printed[] = {0.0, -0.0, 1.0, -1.0, 0.1, 0.1 + 0.2, 2.5, 0.125, 0.015, 9.5,
                           1234.5, 999.9999, 123456789.123, 1e20, 1.5e20, 6.02214076e23, 1e-5,
                           1e-15, 3.141592653589793, 1.7976931348623157e308, 5e-324, kInf,
                           -kInf, std::numeric_limits<double>::quiet_NaN()};
  for (double v : printed) {
    for (unsigned digits : {0u, 1u, 3u, 6u, 15u, 17u, 20u}) {
      const std::string key = RealKey(v) + ".d" + Dec(digits);
      r.Line("real.RealToStrA." + key, RealText(Str::RealToStrA, v, digits, 0));
      r.Line("real.RealToStrA.eng." + key, RealText(Str::RealToStrA, v, digits, 1));
      r.Line("real.CorrectedRealToStrA." + key, RealText(Str::CorrectedRealToStrA, v, digits, 0));
      r.Line("real.FixRealToStrA." + key, FixText(Str::FixRealToStrA, v, digits));
      r.Line("real.CorrFixRealToStrA." + key, FixText(Str::CorrFixRealToStrA, v, digits));
      r.Line("real.LocaleFixRealToStrA." + key,
             FixText(Str::LocaleFixRealToStrA, v, static_cast<int>(digits)));
    }
  }
}

}  // namespace sidebyside
