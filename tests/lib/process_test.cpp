// Lib process services through the shared library: a real child started with ExecA and waited
// for, environment variables in bounded arrays, delays, and the local date and time. No valid
// date or time is ever set: only values every platform refuses.
#include <brelt/fio.h>
#include <brelt/lib.h>
#include <brelt/os.h>
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <string>

#include "../fio/scratch_folder.h"
#include "guarded_array.h"

namespace {

using namespace std::string_view_literals;
using brelt::test::GuardedArray, brelt::test::HighOf;
constexpr unsigned kAll = 0xFFFFFFFFu;

using LibExec = brelt::test::ScratchFolder;

// The child (tests/lib/exec_child.cpp) reports its parameters and BRELT_EXEC_VALUE. ExecA has
// returned while it still runs (its first act is a pause), and its handle signals its end.
TEST_F(LibExec, ChildStartedAndWaitedFor) {
  const std::string child = BRELT_EXEC_CHILD, head = "\"" + child + "\" report.txt ";
  const std::string fill(260 - head.size(), 'x');  // the longest command line
  char block[] = "BRELT_EXEC_VALUE=from the block\0BRELT_OTHER=1\0";
  const struct { std::string rest; void* env; std::string report; } rows[] = {
      {"\"a b\" c\td\"e f\"g \"\"", nullptr, "5\n\nreport.txt\na b\nc\nd\"e f\"g\n\nenv=set\n"},
      {"x", block, "2\n\nreport.txt\nx\nenv=from the block\n"},
      {fill, nullptr, "2\n\nreport.txt\n" + fill + "\nenv=set\n"}};
  Lib::SetEnvironmentStringA(16, "BRELT_EXEC_VALUE", 3, "set");
  for (const auto& r : rows) {
    const std::string command = head + r.rest;
    void* process = nullptr;
    brelt::ULong id = 0;
    ASSERT_EQ(Lib::ExecA(HighOf(child), child.c_str(), HighOf(command), command.c_str(), r.env,
                         &process, &id), 1) << r.rest;
    EXPECT_NE(id, 0u);
    EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, &process, 0, 0, 0), 258u) << "not running";
    EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, &process, 20000, 0, 0), 0u) << "not ended";
    FIO::Close(process);
    EXPECT_EQ(Read("report.txt"), r.report.substr(0, 2) + child + r.report.substr(2)) << r.rest;
  }
}

// Texts over 260 characters are refused before the platform is asked: nothing is started or
// stored, and the last error stays; the platform's refusals leave their codes.
TEST_F(LibExec, RefusedPrograms) {
  const std::string child = BRELT_EXEC_CHILD, longText(261, 'x');
  const struct { std::string program, command; brelt::ULong code; } rows[] = {
      {"no-such-folder\\program.exe", "p", 3}, {longText, "p", 3},
      {child, "\"" + child + "\" report.txt " + longText, 3}, {"no-such-program.exe", "p", 2}};
  for (const auto& r : rows) {
    void* process = reinterpret_cast<void*>(0x5A5A);
    brelt::ULong id = 77;
    EXPECT_EQ(Lib::ExecA(HighOf(r.program), r.program.c_str(), HighOf(r.command),
                         r.command.c_str(), nullptr, &process, &id), 0) << r.program;
    EXPECT_EQ(FIO::IOresult(), r.code) << r.program;
    EXPECT_TRUE(process == reinterpret_cast<void*>(0x5A5A) && id == 77) << r.program;
  }
  Lib::Delay(400);  // a child would have reported by now
  EXPECT_FALSE(brelt::test::fs::exists(Native("report.txt")));
}

// In order: an optional setting, then a reading into `size` characters; 's' and 'g' give the
// setting or the reading bounds of all ones. A value is read whole or not at all; a name or
// value without a NUL is refused.
TEST(LibEnvironment, SetAndGetThroughBoundedArrays) {
  const struct { std::string_view setName, setValue, name; std::size_t size; char ones;
                 const char* want; } rows[] = {
      {"BRELT_ENV\0"sv, "12345\0"sv, "BRELT_ENV\0"sv, 6, 0, "12345"},
      {""sv, ""sv, "BRELT_ENV\0"sv, 5, 0, ""},
      {""sv, ""sv, "BRELT_ENV\0"sv, 9, 'g', ""},
      {""sv, ""sv, "BRELT_ENV"sv, 9, 0, ""},
      {""sv, ""sv, "BRELT_NONE\0"sv, 9, 0, ""},
      {"BRELT_ENV"sv, "x\0"sv, "BRELT_ENV\0##"sv, 9, 0, "12345"},
      {"BRELT_ENV\0"sv, "x"sv, "BRELT_ENV\0"sv, 9, 0, "12345"},
      {"BRELT_ENV\0##"sv, "two\0##"sv, "BRELT_ENV\0"sv, 9, 's', "two"},
      {"BRELT_ENV\0"sv, "\0"sv, "BRELT_ENV\0"sv, 9, 0, ""}};
  for (const auto& r : rows) {
    if (!r.setName.empty()) {
      GuardedArray<char> n(r.setName), v(r.setValue);
      Lib::SetEnvironmentStringA(r.ones == 's' ? kAll : n.high(), n.data(),
                                 r.ones == 's' ? kAll : v.high(), v.data());
    }
    GuardedArray<char> n(r.name), v(r.size);
    Lib::GetEnvironmentStringA(n.high(), n.data(), r.ones == 'g' ? kAll : v.high(), v.data());
    EXPECT_EQ(v.Raw().substr(0, v.Raw().find('0')), r.want) << r.setValue << " " << n.Raw();
    EXPECT_NE(v.Raw().find('0'), std::string::npos) << n.Raw();
  }
}

TEST(LibDelay, DelayWaitsAndSoundDoesNothing) {
  const auto start = std::chrono::steady_clock::now();
  Lib::Delay(80);
  const auto middle = std::chrono::steady_clock::now();
  Lib::Sound(440);
  Lib::NoSound();
  EXPECT_GE(middle - start, std::chrono::milliseconds(75));
  EXPECT_LT(std::chrono::steady_clock::now() - middle, std::chrono::milliseconds(50));
}

// The date and time are the C runtime's local time of the same second. The second is read
// from the fine system clock: time() may lag it by a tick and name the second before.
TEST(LibDateTime, LocalDateAndTime) {
  const auto second = [] {
    return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  };
  std::time_t now;
  unsigned f[7];
  Lib::DayType dayType;
  do {
    now = second();
    Lib::GetDate(&f[0], &f[1], &f[2], &dayType);
    Lib::GetTime(&f[3], &f[4], &f[5], &f[6]);
  } while (second() != now);
  const std::tm t = *std::localtime(&now);
  const int want[] = {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(f[i], static_cast<unsigned>(want[i])) << "field " << i;
  EXPECT_EQ(dayType, static_cast<Lib::DayType>(t.tm_wday));
  EXPECT_LT(f[6], 1000u);
}

// Refused with "invalid parameter". Wine takes 29 February 2023, so no such row stands here.
TEST(LibDateTime, RefusedSettings) {
  const struct { unsigned a, b, c; } dates[] = {
      {2023, 2, 30}, {2024, 4, 31}, {2024, 13, 1}, {2024, 0, 10}, {2024, 1, 0}};
  const struct { unsigned a, b, c, d; } times[] = {
      {24, 0, 0, 0}, {0, 60, 0, 0}, {0, 0, 60, 0}, {0, 0, 0, 1000}};
  for (const auto& r : dates) {
    EXPECT_EQ(Lib::SetDate(r.a, r.b, r.c), 0) << r.a << "-" << r.b << "-" << r.c;
    EXPECT_EQ(FIO::IOresult(), 87u) << r.a << "-" << r.b << "-" << r.c;
  }
  for (const auto& r : times) {
    EXPECT_EQ(Lib::SetTime(r.a, r.b, r.c, r.d), 0) << r.a << ":" << r.b << ":" << r.c;
    EXPECT_EQ(FIO::IOresult(), 87u) << r.a << ":" << r.b << ":" << r.c << "." << r.d;
  }
}

}  // namespace
