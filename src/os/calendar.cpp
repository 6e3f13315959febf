// os: Julian dates, day fractions and spans. Every step is done in the order and with the
// truncation width the results depend on, so that the last bit matches on every target.
#include <cmath>
#include <cstdint>

#include "brelt/os.h"

namespace {

// One millisecond in days: a fraction closer than this to 1 is the next midnight.
constexpr double kOneMsInDays = 1.1574074074074074e-8;
constexpr int kFirstGregorianDay = 2299161;

// Truncation towards zero in 32 bits, as the date steps take it. A value out of range (or
// NaN) gives the lowest value of the width, as the processor's conversion does, so that no
// compiler is free to give anything else.
inline std::int32_t Trunc32(double x) {
  return x > -2147483649.0 && x < 2147483648.0 ? static_cast<std::int32_t>(x) : INT32_MIN;
}
inline std::int64_t Trunc64(double x) {
  return x >= -9223372036854775808.0 && x < 9223372036854775808.0 ? static_cast<std::int64_t>(x)
                                                                   : INT64_MIN;
}
// Truncation in 64 bits whose low 32 bits are the stored field.
inline std::uint32_t Trunc64Low(double x) { return static_cast<std::uint32_t>(Trunc64(x)); }
// Sums of the date steps wrap in 32 bits, as their registers do, for any input.
inline std::int32_t Wrap32(std::int64_t v) { return static_cast<std::int32_t>(v); }

// The fractional part with the sign of x, as modf defines it: -2.0 gives -0.0. Worked out
// here rather than taken from the runtime, whose modf does not keep the sign of a zero
// fraction on every target. Below 2^52 the subtraction is exact; above, every double is whole.
inline double FractionOf(double x) {
  if (!(std::fabs(x) < 0x1p52)) return x != x ? x : std::copysign(0.0, x);
  return std::copysign(x - static_cast<double>(static_cast<std::int64_t>(x)), x);
}

struct CivilDay {
  int year, month, day;
  double fraction;
};

// The date steps shared by iJD and JDToSystemTime, snap to the next midnight included.
CivilDay FromJulian(double jd) {
  const double x = jd + 0.5;
  std::int32_t z = Trunc32(x);
  double f = FractionOf(x);
  if (1.0 - f < kOneMsInDays) {
    f = 0.0;
    z = Wrap32(std::int64_t{z} + 1);
  }
  if (z >= kFirstGregorianDay) {
    const std::int32_t a = Trunc32((z - 1867216.25) / 36524.25);
    z = Wrap32(std::int64_t{z} + 1 + a - a / 4);
  }
  const double b = z + 1524.0;
  const std::int32_t g = Trunc32((b - 122.1) / 365.25);
  const double r = b - Trunc32(g * 365.25);
  const std::int32_t e = Trunc32(r / 30.6001);
  CivilDay out;
  out.month = Wrap32(std::int64_t{e} - (e > 13 ? 13 : 1));
  out.year = Wrap32(std::int64_t{g} - (out.month > 2 ? 4716 : 4715));
  out.day = Trunc32(r - Trunc32(e * 30.6001));
  out.fraction = f;
  return out;
}

struct Clock {
  std::uint32_t hours, minutes, seconds, milliseconds;
};

// Only the milliseconds are rounded; their carry runs up through seconds and minutes and may
// leave 24 hours.
Clock SplitDayFraction(double fd) {
  Clock c;
  double t = fd * 24.0;
  c.hours = Trunc64Low(t);
  t = (t - c.hours) * 60.0;
  c.minutes = Trunc64Low(t);
  t = (t - c.minutes) * 60.0;
  c.seconds = Trunc64Low(t);
  t = (t - c.seconds) * 1000.0 + 0.5;
  c.milliseconds = Trunc64Low(t);
  if (c.milliseconds == 1000) {
    ++c.seconds;
    c.milliseconds = 0;
  }
  if (c.seconds == 60) {
    ++c.minutes;
    c.seconds = 0;
  }
  if (c.minutes == 60) {
    ++c.hours;
    c.minutes = 0;
  }
  return c;
}

}  // namespace

namespace os {

double JD(int year, int month, int day, double fraction) {
  // March-based year: January and February count as months 13 and 14 of the year before.
  std::int32_t y, m;
  if (month < 3) {
    y = Wrap32(std::int64_t{year} - 1);
    m = Wrap32(std::int64_t{month} + 13);
  } else {
    y = year;
    m = Wrap32(std::int64_t{month} + 1);
  }
  const std::int32_t a = y / 100;
  std::int32_t b = a / 4 - a + 2;
  // Julian calendar up to 4 October 1582 (m 11 is October here).
  if (y < 1582 || (y == 1582 && (m < 11 || (m == 11 && day < 15)))) b = 0;
  const double c = y < 0 ? 0.75 : 0.0;
  const std::int32_t yearDays = Trunc32(c - y * 365.25);
  const std::int32_t monthDays = Trunc32(m * 30.6001);
  const std::int32_t days = Wrap32(std::int64_t{monthDays} - yearDays + b + day);
  return static_cast<double>(days) + 1720994.5 + fraction;
}

void iJD(double jd, int* year, int* month, int* day, double* fraction) {
  const CivilDay d = FromJulian(jd);
  *year = d.year;
  *month = d.month;
  *day = d.day;
  *fraction = d.fraction;
}

double SystemTimeToJD(const _SYSTEMTIME& st) {
  const double f = (((st.wMilliseconds / 1000.0 + st.wSecond) / 60.0 + st.wMinute) / 60.0 +
                    st.wHour) /
                   24.0;
  return JD(st.wYear, st.wMonth, st.wDay, f);
}

void JDToSystemTime(double jd, _SYSTEMTIME* st) {
  const CivilDay d = FromJulian(jd);
  st->wYear = static_cast<unsigned short>(d.year);
  st->wMonth = static_cast<unsigned short>(d.month);
  st->wDay = static_cast<unsigned short>(d.day);
  // From jd itself: the snap to the next midnight does not move the day of the week.
  const auto dayNumber = Trunc64Low(jd + 1.5);
  st->wDayOfWeek = static_cast<unsigned short>(dayNumber % 7);
  const Clock c = SplitDayFraction(d.fraction);
  st->wHour = static_cast<unsigned short>(c.hours);
  st->wMinute = static_cast<unsigned short>(c.minutes);
  st->wSecond = static_cast<unsigned short>(c.seconds);
  st->wMilliseconds = static_cast<unsigned short>(c.milliseconds);
}

double HMS2fd(unsigned int hours, unsigned int minutes, unsigned int seconds,
              unsigned int milliseconds) {
  return hours / 24.0 + minutes / 1440.0 + seconds / 86400.0 + milliseconds / 86400000.0;
}

unsigned char fd2HMS(double fd, unsigned int* hours, unsigned int* minutes,
                     unsigned int* seconds, unsigned int* milliseconds) {
  const Clock c = SplitDayFraction(fd);
  *hours = c.hours;
  *minutes = c.minutes;
  *seconds = c.seconds;
  *milliseconds = c.milliseconds;
  return c.hours == 24 ? 1 : 0;
}

double Days(unsigned int years, unsigned int months, unsigned int days, double fraction) {
  return months * 30.6001 + years * 365.25 + days + fraction;
}

void iDays(double value, unsigned int* years, unsigned int* months, unsigned int* days,
           double* fraction) {
  // The 1e-15 keeps a whole number of years or months from truncating to one less.
  double t = value / 365.25 + 1e-15;
  *years = Trunc64Low(t);
  t = (t - *years) * 365.25 / 30.6001 + 1e-15;
  *months = Trunc64Low(t);
  t = (t - *months) * 30.6001;
  *days = Trunc64Low(t);
  const std::uint32_t ms = Trunc64Low((t - *days) * 86400000.0 + 0.5);
  *fraction = ms / 86400000.0;
  if (SplitDayFraction(*fraction).hours == 24) {
    // A fraction that rounds to a whole day becomes the next day at its midnight, so that
    // Days() of the parts gives the value back.
    ++*days;
    *fraction = 0.0;
  }
}

double frac(double x) { return FractionOf(x); }

}  // namespace os
