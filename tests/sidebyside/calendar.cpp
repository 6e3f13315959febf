// Julian dates both ways, clock fields and spans on a grid, and the fraction with its sign.
#include <brelt/os.h>

#include <limits>

#include "sections.h"

namespace sidebyside {
namespace {

std::string Date(int y, int m, int d) { return Dec(y) + "-" + Dec(m) + "-" + Dec(d); }

}  // namespace

void Calendar(Report& r) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const int years[] = {-4713, -4712, -1, 0, 1, 1582, 1583, 1600, 1900, 2000, 2023, 2100, 9999};
  for (int y : years) {
    for (int m = 0; m <= 13; ++m) {
      for (int d : {0, 1, 4, 5, 14, 15, 28, 29, 31}) {
        r.Line("cal.JD." + Date(y, m, d), Real(os::JD(y, m, d, 0.375)));
      }
    }
  }
  const double jds[] = {-1e6,      -147.5,    -147.25,   -1.0,      -0.5,       -0.0,
                        0.0,       0.25,      0.5,       1721057.5, 2299159.5,  2299160.5,
                        2299160.9, 2451544.5, 2451545.0, 2451544.4999999995, 2460108.7583391205,
                        2460108.999999999, 5373484.5, 1e8};
  for (double jd : jds) {
    int y, m, d;
    double f;
    os::iJD(jd, &y, &m, &d, &f);
    _SYSTEMTIME st;
    os::JDToSystemTime(jd, &st);
    r.Line("cal.iJD." + RealKey(jd), Date(y, m, d) + " " + Real(f));
    r.Line("cal.JDToSystemTime." + RealKey(jd),
           Dec(st.wYear) + " " + Dec(st.wMonth) + " " + Dec(st.wDayOfWeek) + " " + Dec(st.wDay) +
               " " + Dec(st.wHour) + ":" + Dec(st.wMinute) + ":" + Dec(st.wSecond) + "." +
               Dec(st.wMilliseconds));
    r.Line("cal.SystemTimeToJD." + RealKey(jd), Real(os::SystemTimeToJD(st)));
  }
  for (int k = 0; k <= 48; ++k) {
    const double fd = k / 40.0 + 1e-9 * k;
    unsigned h, mi, s, ms;
    const unsigned char carry = os::fd2HMS(fd, &h, &mi, &s, &ms);
    r.Line("cal.fd2HMS." + RealKey(fd),
           Dec(h) + ":" + Dec(mi) + ":" + Dec(s) + "." + Dec(ms) + " " + Dec(carry));
    r.Line("cal.HMS2fd." + Dec(k), Real(os::HMS2fd(k & 31, k * 7 % 61, k * 13 % 61, k * 37 % 1001)));
    unsigned yy, mm, dd;
    double rest;
    const double span = k * 97.125 + 0.999999999;
    os::iDays(span, &yy, &mm, &dd, &rest);
    r.Line("cal.iDays." + RealKey(span), Dec(yy) + " " + Dec(mm) + " " + Dec(dd) + " " + Real(rest));
    r.Line("cal.Days." + Dec(k), Real(os::Days(k & 7, k & 15, k & 31, k / 8.0)));
  }
  const double fracs[] = {-0.0, 0.0, -2.0, 2.0, -1.25, 2.75, -1e300, 1e300, 4503599627370495.5,
                          -4503599627370496.0, 0x1p-1074, -0x1p-1074, kInf, -kInf};
  for (double x : fracs) r.Line("cal.frac." + RealKey(x), Real(os::frac(x)));
}

}  // namespace sidebyside
