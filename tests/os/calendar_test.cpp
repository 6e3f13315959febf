// os calendar: Julian dates across the calendar reform and year 0, the snap before midnight,
// clock fields with their carries, spans, and every day of 1600..2400 against a plain count.
#include <brelt/os.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

TEST(OsJD, FixedDates) {
  struct Row { int y, m, d; double f, jd; } rows[] = {
      {2000, 1, 1, 0.5, 2451545.0},    {-4712, 1, 1, 0.5, 0.0},
      {1582, 10, 4, 0, 2299159.5},     {1582, 10, 15, 0, 2299160.5},
      {1582, 10, 14, 0, 2299169.5},    {0, 1, 1, 0, 1721057.5},
      {-1, 1, 1, 0, 1720692.5},        {1, 1, 1, 0, 1721423.5},
      {2023, 6, 13, 0.25, 2460108.75}, {-100, 3, 1, 0, 1684592.5},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(os::JD(r.y, r.m, r.d, r.f), r.jd) << r.y << "-" << r.m << "-" << r.d;
  }
  // Days beyond the month run on; 1500 is a Julian leap year.
  EXPECT_EQ(os::JD(2000, 2, 30, 0), os::JD(2000, 3, 1, 0));
  EXPECT_EQ(os::JD(2023, 13, 1, 0), os::JD(2024, 1, 1, 0));
  EXPECT_EQ(os::JD(1500, 2, 29, 0) + 1, os::JD(1500, 3, 1, 0));
}

TEST(OsIJD, FixedDates) {
  struct Row { double jd; int y, m, d; double f; } rows[] = {
      {2451545.0, 2000, 1, 1, 0.5}, {0.0, -4712, 1, 1, 0.5},
      {2299169.5, 1582, 10, 24, 0}, {2299159.5, 1582, 10, 4, 0},
      {2299160.5, 1582, 10, 15, 0}, {1721057.5, 0, 1, 1, 0},
      {1720692.5, -1, 1, 1, 0},
      {2451544.4999999995, 2000, 1, 1, 0},  // under a millisecond before midnight snaps
      {-147.5, -4713, 8, 7, -0.0},          // the fraction keeps the sign of jd + 0.5
  };
  for (const Row& r : rows) {
    int y = -1, m = -1, d = -1;
    double f = -1;
    os::iJD(r.jd, &y, &m, &d, &f);
    EXPECT_EQ(std::vector<double>({double(y), double(m), double(d)}),
              std::vector<double>({double(r.y), double(r.m), double(r.d)}))
        << r.jd;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(f), std::bit_cast<std::uint64_t>(r.f)) << r.jd;
  }
}

TEST(OsJD, EveryGregorianDayFrom1600To2400) {
  static const int length[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  // Days since 1 January 1600; that day begins at Julian date 2305447.5.
  double jd = 2305447.5;
  for (int y = 1600; y <= 2400; ++y) {
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    for (int m = 1; m <= 12; ++m) {
      for (int d = 1; d <= length[m - 1] + (m == 2 && leap); ++d, jd += 1) {
        ASSERT_EQ(os::JD(y, m, d, 0), jd) << y << "-" << m << "-" << d;
        int yy, mm, dd;
        double f;  // a quarter day on, to see the fraction come back
        os::iJD(jd + 0.25, &yy, &mm, &dd, &f);
        ASSERT_TRUE(yy == y && mm == m && dd == d && f == 0.25) << y << "-" << m << "-" << d;
      }
    }
  }
}

std::vector<int> Fields(const _SYSTEMTIME& t) {
  return {t.wYear, t.wMonth, t.wDayOfWeek, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds};
}

TEST(OsSystemTime, FieldsDayOfWeekAndBack) {
  struct Row { double jd; _SYSTEMTIME want; } rows[] = {
      {2451545.0, {2000, 1, 6, 1, 12, 0, 0, 0}},
      {2299160.5, {1582, 10, 5, 15, 0, 0, 0, 0}},
      {2451544.4999999995, {2000, 1, 5, 1, 0, 0, 0, 0}},  // the day of the week does not snap
      {2460108.7583391205, {2023, 6, 2, 13, 6, 12, 0, 500}},
  };
  for (const Row& r : rows) {
    _SYSTEMTIME st = {9, 9, 9, 9, 9, 9, 9, 9};
    os::JDToSystemTime(r.jd, &st);
    EXPECT_EQ(Fields(st), Fields(r.want)) << r.jd;
  }
  EXPECT_DOUBLE_EQ(os::SystemTimeToJD({2023, 6, 0, 13, 6, 12, 0, 500}), 2460108.7583391205);
  EXPECT_EQ(os::SystemTimeToJD({2000, 1, 3, 1, 12, 0, 0, 0}), 2451545.0);  // weekday unread
}

TEST(OsDayFraction, HMS2fdAndFd2HMSWithCarries) {
  EXPECT_EQ(os::HMS2fd(12, 0, 0, 0), 0.5);
  EXPECT_EQ(os::HMS2fd(6, 30, 15, 250), 0.27100983796296296);
  struct Row { double fd; unsigned h, m, s, ms; unsigned char result; } rows[] = {
      {0.27100983796296296, 6, 30, 15, 250, 0},
      {0.99999999, 23, 59, 59, 999, 0},
      {0.9999999999, 24, 0, 0, 0, 1},
      // 59.9996 seconds: the milliseconds round to 1000 and carry into the minute.
      {(59.0 + 59.9996 / 60.0) / 1440.0, 1, 0, 0, 0, 0},
  };
  for (const Row& r : rows) {
    unsigned h = 99, m = 99, s = 99, ms = 99;
    EXPECT_EQ(os::fd2HMS(r.fd, &h, &m, &s, &ms), r.result) << r.fd;
    EXPECT_EQ(std::vector<unsigned>({h, m, s, ms}), std::vector<unsigned>({r.h, r.m, r.s, r.ms}))
        << r.fd;
  }
}

TEST(OsDays, SpansBothWaysAndFrac) {
  EXPECT_DOUBLE_EQ(os::Days(3, 2, 5, 0.25), 1162.2002);
  struct Row { double value; unsigned y, m, d; double f; } rows[] = {
      {1162.2002, 3, 2, 5, 0.25}, {365.25, 1, 0, 0, 0},           {30.6, 0, 0, 30, 0.6},
      {30.6001, 0, 1, 0, 0},      {0.99999999999, 0, 0, 1, 0},
  };
  for (const Row& r : rows) {
    unsigned y = 99, m = 99, d = 99;
    double f = -1;
    os::iDays(r.value, &y, &m, &d, &f);
    EXPECT_EQ(std::vector<unsigned>({y, m, d}), std::vector<unsigned>({r.y, r.m, r.d})) << r.value;
    EXPECT_NEAR(f, r.f, 1e-12) << r.value;
  }
}

TEST(OsFrac, FractionKeepsTheSignOfX) {
  const double inf = std::numeric_limits<double>::infinity();
  const double rows[][2] = {
      {-1.25, -0.25}, {2.75, 0.75},  {-0.0, -0.0},  {0.0, 0.0},   {-2.0, -0.0}, {2.0, 0.0},
      {-1e300, -0.0}, {inf, 0.0},    {-inf, -0.0},  {-0x1p-1074, -0x1p-1074},
      {4503599627370495.5, 0.5},     {-4503599627370496.0, -0.0}};
  for (const auto& [x, want] : rows) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(os::frac(x)), std::bit_cast<std::uint64_t>(want)) << x;
  }
  EXPECT_TRUE(std::isnan(os::frac(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
