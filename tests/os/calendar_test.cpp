// os calendar: Julian dates across the calendar reform and year 0, the snap before midnight,
// clock fields with their carries, spans, and every day of 1600..2400 against a plain count.
#include <brelt/os.h>
#include <gtest/gtest.h>

#include <cstdint>

namespace {

TEST(OsJD, FixedDates) {
  struct Row {
    int y, m, d;
    double f, jd;
  } rows[] = {
      {2000, 1, 1, 0.5, 2451545.0},   {-4712, 1, 1, 0.5, 0.0},
      {1582, 10, 4, 0, 2299159.5},    {1582, 10, 15, 0, 2299160.5},
      {1582, 10, 14, 0, 2299169.5},   {0, 1, 1, 0, 1721057.5},
      {-1, 1, 1, 0, 1720692.5},       {1, 1, 1, 0, 1721423.5},
      {2023, 6, 13, 0.25, 2460108.75}, {1583, 1, 1, 0, 2299238.5},
      {1582, 12, 31, 0, 2299237.5},   {-100, 3, 1, 0, 1684592.5},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(os::JD(r.y, r.m, r.d, r.f), r.jd) << r.y << "-" << r.m << "-" << r.d;
  }
}

TEST(OsJD, DaysBeyondTheMonthRunOn) {
  EXPECT_EQ(os::JD(2000, 2, 30, 0), os::JD(2000, 3, 1, 0));
  EXPECT_EQ(os::JD(2023, 13, 1, 0), os::JD(2024, 1, 1, 0));
  EXPECT_EQ(os::JD(1900, 2, 29, 0), os::JD(1900, 3, 1, 0));  // 1900 is no Gregorian leap year
  EXPECT_EQ(os::JD(1500, 2, 29, 0) + 1, os::JD(1500, 3, 1, 0));  // but 1500 is a Julian one
}

TEST(OsIJD, FixedDates) {
  struct Row {
    double jd;
    int y, m, d;
    double f;
  } rows[] = {
      {2451545.0, 2000, 1, 1, 0.5},   {0.0, -4712, 1, 1, 0.5},
      {2299169.5, 1582, 10, 24, 0},   {2299159.5, 1582, 10, 4, 0},
      {2299160.5, 1582, 10, 15, 0},   {1721057.5, 0, 1, 1, 0},
      {1720692.5, -1, 1, 1, 0},       {2460108.75, 2023, 6, 13, 0.25},
      // Less than a millisecond before midnight snaps to the next day.
      {2451544.4999999995, 2000, 1, 1, 0}, {2451545.4999999995, 2000, 1, 2, 0},
  };
  for (const Row& r : rows) {
    int y = -1, m = -1, d = -1;
    double f = -1;
    os::iJD(r.jd, &y, &m, &d, &f);
    EXPECT_EQ(y, r.y) << r.jd;
    EXPECT_EQ(m, r.m) << r.jd;
    EXPECT_EQ(d, r.d) << r.jd;
    EXPECT_EQ(f, r.f) << r.jd;
  }
}

// Days from 1 January of year 1 (day 1), proleptic Gregorian, by integer arithmetic.
std::int64_t RataDie(int y, int m, int d) {
  static const int before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  const std::int64_t py = y - 1;
  return py * 365 + py / 4 - py / 100 + py / 400 + before[m - 1] + (leap && m > 2 ? 1 : 0) + d;
}

TEST(OsJD, EveryGregorianDayFrom1600To2400) {
  static const int length[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  // Rata die 0 (31 December of year 0, proleptic Gregorian) begins at Julian date 1721424.5.
  constexpr double kEpoch = 1721424.5;
  std::int64_t expectedDay = RataDie(1600, 1, 1);
  for (int y = 1600; y <= 2400; ++y) {
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    for (int m = 1; m <= 12; ++m) {
      const int days = length[m - 1] + (m == 2 && leap ? 1 : 0);
      for (int d = 1; d <= days; ++d, ++expectedDay) {
        ASSERT_EQ(RataDie(y, m, d), expectedDay);
        const double jd = os::JD(y, m, d, 0);
        ASSERT_EQ(jd, static_cast<double>(expectedDay) + kEpoch) << y << "-" << m << "-" << d;
        int yy, mm, dd;
        double f;
        os::iJD(jd + 0.25, &yy, &mm, &dd, &f);
        ASSERT_TRUE(yy == y && mm == m && dd == d && f == 0.25) << y << "-" << m << "-" << d;
      }
    }
  }
}

_SYSTEMTIME Time(int y, int mo, int dow, int d, int h, int mi, int s, int ms) {
  _SYSTEMTIME st;
  st.wYear = static_cast<unsigned short>(y);
  st.wMonth = static_cast<unsigned short>(mo);
  st.wDayOfWeek = static_cast<unsigned short>(dow);
  st.wDay = static_cast<unsigned short>(d);
  st.wHour = static_cast<unsigned short>(h);
  st.wMinute = static_cast<unsigned short>(mi);
  st.wSecond = static_cast<unsigned short>(s);
  st.wMilliseconds = static_cast<unsigned short>(ms);
  return st;
}

TEST(OsJDToSystemTime, FieldsAndDayOfWeek) {
  struct Row {
    double jd;
    _SYSTEMTIME want;
  } rows[] = {
      {2451545.0, Time(2000, 1, 6, 1, 12, 0, 0, 0)},
      {2451544.5, Time(2000, 1, 6, 1, 0, 0, 0, 0)},
      {2299160.5, Time(1582, 10, 5, 15, 0, 0, 0, 0)},
      {2299159.5, Time(1582, 10, 4, 4, 0, 0, 0, 0)},
      // The date snaps to midnight, the day of the week does not.
      {2451544.4999999995, Time(2000, 1, 5, 1, 0, 0, 0, 0)},
      {2460108.7583391205, Time(2023, 6, 2, 13, 6, 12, 0, 500)},
  };
  for (const Row& r : rows) {
    _SYSTEMTIME st = Time(9, 9, 9, 9, 9, 9, 9, 9);
    os::JDToSystemTime(r.jd, &st);
    EXPECT_EQ(st.wYear, r.want.wYear) << r.jd;
    EXPECT_EQ(st.wMonth, r.want.wMonth) << r.jd;
    EXPECT_EQ(st.wDayOfWeek, r.want.wDayOfWeek) << r.jd;
    EXPECT_EQ(st.wDay, r.want.wDay) << r.jd;
    EXPECT_EQ(st.wHour, r.want.wHour) << r.jd;
    EXPECT_EQ(st.wMinute, r.want.wMinute) << r.jd;
    EXPECT_EQ(st.wSecond, r.want.wSecond) << r.jd;
    EXPECT_EQ(st.wMilliseconds, r.want.wMilliseconds) << r.jd;
  }
}

TEST(OsSystemTimeToJD, FractionInItsOrder) {
  EXPECT_DOUBLE_EQ(os::SystemTimeToJD(Time(2023, 6, 0, 13, 6, 12, 0, 500)), 2460108.7583391205);
  // The day of the week is not read.
  EXPECT_EQ(os::SystemTimeToJD(Time(2000, 1, 3, 1, 12, 0, 0, 0)), 2451545.0);
  EXPECT_EQ(os::SystemTimeToJD(Time(1582, 10, 0, 15, 0, 0, 0, 0)), 2299160.5);
}

TEST(OsHMS2fd, Sums) {
  EXPECT_EQ(os::HMS2fd(12, 0, 0, 0), 0.5);
  EXPECT_EQ(os::HMS2fd(6, 30, 15, 250), 0.27100983796296296);
  EXPECT_EQ(os::HMS2fd(0, 0, 0, 0), 0.0);
  EXPECT_DOUBLE_EQ(os::HMS2fd(0, 0, 0, 1), 1.0 / 86400000.0);
}

TEST(OsFd2HMS, FieldsAndCarries) {
  struct Row {
    double fd;
    unsigned h, m, s, ms;
    unsigned char result;
  } rows[] = {
      {0.27100983796296296, 6, 30, 15, 250, 0}, {0.99999999, 23, 59, 59, 999, 0},
      {0.9999999999, 24, 0, 0, 0, 1},           {1.0, 24, 0, 0, 0, 1},
      {0.0, 0, 0, 0, 0, 0},                     {0.5, 12, 0, 0, 0, 0},
      // 59.9996 seconds: the milliseconds round to 1000 and carry into the minute.
      {(59.0 + 59.9996 / 60.0) / 1440.0, 1, 0, 0, 0, 0},
  };
  for (const Row& r : rows) {
    unsigned h = 99, m = 99, s = 99, ms = 99;
    EXPECT_EQ(os::fd2HMS(r.fd, &h, &m, &s, &ms), r.result) << r.fd;
    EXPECT_EQ(h, r.h) << r.fd;
    EXPECT_EQ(m, r.m) << r.fd;
    EXPECT_EQ(s, r.s) << r.fd;
    EXPECT_EQ(ms, r.ms) << r.fd;
  }
}

TEST(OsDays, SpansBothWays) {
  EXPECT_DOUBLE_EQ(os::Days(3, 2, 5, 0.25), 1162.2002);
  EXPECT_EQ(os::Days(1, 0, 0, 0), 365.25);
  EXPECT_EQ(os::Days(0, 1, 0, 0), 30.6001);
  struct Row {
    double value;
    unsigned y, m, d;
    double f;
  } rows[] = {
      {1162.2002, 3, 2, 5, 0.25}, {365.25, 1, 0, 0, 0}, {30.6, 0, 0, 30, 0.6},
      {30.6001, 0, 1, 0, 0},      {0.0, 0, 0, 0, 0},    {0.99999999999, 0, 0, 1, 0},
  };
  for (const Row& r : rows) {
    unsigned y = 99, m = 99, d = 99;
    double f = -1;
    os::iDays(r.value, &y, &m, &d, &f);
    EXPECT_EQ(y, r.y) << r.value;
    EXPECT_EQ(m, r.m) << r.value;
    EXPECT_EQ(d, r.d) << r.value;
    EXPECT_NEAR(f, r.f, 1e-12) << r.value;
  }
}

TEST(OsFrac, KeepsTheSign) {
  struct Row {
    double x, want;
  } rows[] = {{-1.25, -0.25}, {2.75, 0.75}, {3.0, 0.0}, {-0.5, -0.5}, {0.0, 0.0}};
  for (const Row& r : rows) EXPECT_EQ(os::frac(r.x), r.want) << r.x;
}

}  // namespace
