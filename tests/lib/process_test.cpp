// Lib process services through the shared library: a real child started with ExecA and waited
// for, environment variables in bounded arrays, delays, and the local date and time. No valid
// date or time is ever set: only values the platform refuses.
#include <brelt/fio.h>
#include <brelt/lib.h>
#include <brelt/os.h>
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <string>
#include <string_view>

#include "../fio/scratch_folder.h"
#include "guarded_array.h"

namespace {

using namespace std::string_view_literals;
using brelt::test::GuardedArray, brelt::test::HighOf;
constexpr unsigned kAll = 0xFFFFFFFFu;
constexpr brelt::ULong kWaitTimeout = 258;

void Set(const std::string& name, const std::string& value) {
  Lib::SetEnvironmentStringA(HighOf(name), name.c_str(), HighOf(value), value.c_str());
}

// The variable's value as read into an array of `size` characters, up to its first NUL.
std::string Get(std::string_view name, std::size_t size = 64) {
  GuardedArray<char> n(name), v(size);
  Lib::GetEnvironmentStringA(n.high(), n.data(), v.high(), v.data());
  const std::string raw(v.data(), v.size());
  return raw.substr(0, raw.find('\0'));
}

class LibExec : public brelt::test::ScratchFolder {
 protected:
  const std::string child_ = BRELT_EXEC_CHILD;

  // The child's command line: its name, the report file, then `rest`.
  std::string Command(const std::string& rest) const {
    return "\"" + child_ + "\" report.txt " + rest;
  }
  unsigned char Exec(const std::string& command, void* environment) {
    return Lib::ExecA(HighOf(child_), child_.c_str(), HighOf(command), command.c_str(),
                      environment, &process_, &id_);
  }
  // Waits for the child started last and gives its report.
  std::string Finish() {
    EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, &process_, 20000, 0, 0), 0u);
    FIO::Close(process_);
    return Read("report.txt");
  }

  void* process_ = reinterpret_cast<void*>(0x5A5A);
  brelt::ULong id_ = 77;
};

// ExecA returns while the child still runs; the handle signals when it has ended. The child
// reads the parameters of its command line and inherits the environment.
TEST_F(LibExec, ChildRunsWithItsCommandLineAndIsWaitedFor) {
  Set("BRELT_EXEC_VALUE", "inherited");
  ASSERT_EQ(Exec(Command("\"a b\" c\td\"e f\"g \"\""), nullptr), 1);
  EXPECT_NE(id_, 77u);
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, &process_, 0, 0, 0), kWaitTimeout);
  EXPECT_EQ(Finish(), "5\n" + child_ + "\nreport.txt\na b\nc\nd\"e f\"g\n\nenv=inherited\n");
}

TEST_F(LibExec, ChildGetsTheEnvironmentBlockGiven) {
  Set("BRELT_EXEC_VALUE", "inherited");
  char block[] = "BRELT_EXEC_VALUE=from the block\0BRELT_OTHER=1\0";
  ASSERT_EQ(Exec(Command("x"), block), 1);
  EXPECT_EQ(Finish(), "2\n" + child_ + "\nreport.txt\nx\nenv=from the block\n");
}

// 260 characters reach the platform; one more is refused before it: nothing is started or
// stored, and the last error stays as it was.
TEST_F(LibExec, TextsOfAtMost260Characters) {
  Set("BRELT_EXEC_VALUE", "long");
  const std::string head = Command("");
  const std::string fill(260 - head.size(), 'x');
  ASSERT_EQ(Exec(head + fill, nullptr), 1);
  EXPECT_EQ(Finish(), "2\n" + child_ + "\nreport.txt\n" + fill + "\nenv=long\n");
  brelt::test::fs::remove(Native("report.txt"));

  SetErrorToFileNotFound();
  const std::string longName(261, 'x');
  void* process = reinterpret_cast<void*>(0x5A5A);
  brelt::ULong id = 77;
  EXPECT_EQ(Lib::ExecA(HighOf(child_), child_.c_str(), HighOf(head + fill + "x"),
                       (head + fill + "x").c_str(), nullptr, &process, &id), 0);
  EXPECT_EQ(Lib::ExecA(HighOf(longName), longName.c_str(), HighOf(head), head.c_str(), nullptr,
                       &process, &id), 0);
  EXPECT_EQ(process, reinterpret_cast<void*>(0x5A5A));
  EXPECT_EQ(id, 77u);
  EXPECT_EQ(FIO::IOresult(), 2u);
  Lib::Delay(400);  // a child would have reported by now
  EXPECT_FALSE(brelt::test::fs::exists(Native("report.txt")));
}

TEST_F(LibExec, MissingProgramFailsWithThePlatformsCode) {
  const struct { std::string program; brelt::ULong code; } rows[] = {
      {"no-such-program.exe", 2}, {"no-such-folder\\program.exe", 3}};
  for (const auto& r : rows) {
    EXPECT_EQ(Lib::ExecA(HighOf(r.program), r.program.c_str(), HighOf(r.program),
                         r.program.c_str(), nullptr, &process_, &id_), 0) << r.program;
    EXPECT_EQ(FIO::IOresult(), r.code) << r.program;
  }
}

// A value is read whole or not at all; a name or value without a NUL in its array is refused.
TEST(LibEnvironment, GetIntoBoundedArrays) {
  Set("BRELT_ENV_FIVE", "12345");
  const struct { std::string_view name; std::size_t size; bool ones; const char* value; } rows[] = {
      {"BRELT_ENV_FIVE\0"sv, 6, false, "12345"},  {"BRELT_ENV_FIVE\0"sv, 5, false, ""},
      {"BRELT_ENV_FIVE\0"sv, 64, true, ""},        {"BRELT_ENV_FIVE"sv, 64, false, ""},
      {"BRELT_ENV_FIVE\0##"sv, 64, false, "12345"}, {"BRELT_ENV_NONE\0"sv, 64, false, ""},
  };
  for (const auto& r : rows) {
    GuardedArray<char> n(r.name), v(r.size);
    Lib::GetEnvironmentStringA(n.high(), n.data(), r.ones ? kAll : v.high(), v.data());
    const std::string raw(v.data(), v.size());
    EXPECT_EQ(raw.substr(0, raw.find('\0')), r.value) << n.Raw() << " into " << r.size;
    EXPECT_NE(raw.find('\0'), std::string::npos) << n.Raw() << " into " << r.size;
  }
}

TEST(LibEnvironment, SetFromBoundedArrays) {
  const struct { std::string_view name, value; bool allOnes; const char* after; } rows[] = {
      {"BRELT_ENV_SET\0"sv, "one\0"sv, false, "one"},
      {"BRELT_ENV_SET\0##"sv, "two\0##"sv, true, "two"},  // as far as the NULs
      {"BRELT_ENV_SET"sv, "three\0"sv, false, "two"},
      {"BRELT_ENV_SET\0"sv, "three"sv, false, "two"},
      {"BRELT_ENV_SET\0"sv, "\0"sv, false, ""},
  };
  for (const auto& r : rows) {
    GuardedArray<char> n(r.name), v(r.value);
    Lib::SetEnvironmentStringA(r.allOnes ? kAll : n.high(), n.data(), r.allOnes ? kAll : v.high(),
                               v.data());
    EXPECT_EQ(Get("BRELT_ENV_SET\0"sv), r.after) << n.Raw() << " = " << v.Raw();
  }
}

TEST(LibDelay, DelayWaitsAndSoundDoesNothing) {
  using Clock = std::chrono::steady_clock;
  auto ms = [](Clock::time_point from) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - from).count();
  };
  auto start = Clock::now();
  Lib::Delay(80);
  EXPECT_GE(ms(start), 75);
  start = Clock::now();
  Lib::Sound(440);
  Lib::NoSound();
  EXPECT_LT(ms(start), 50);
}

// The date and time agree with the C runtime's local time read in the same second.
TEST(LibDateTime, LocalDateAndTime) {
  for (int attempt = 0; attempt < 20; ++attempt) {
    const std::time_t before = std::time(nullptr);
    unsigned year, month, day, hour, minute, second, ms;
    Lib::DayType dayType;
    Lib::GetDate(&year, &month, &day, &dayType);
    Lib::GetTime(&hour, &minute, &second, &ms);
    if (std::time(nullptr) != before) continue;
    const std::tm local = *std::localtime(&before);
    EXPECT_EQ(year, static_cast<unsigned>(local.tm_year + 1900));
    EXPECT_EQ(month, static_cast<unsigned>(local.tm_mon + 1));
    EXPECT_EQ(day, static_cast<unsigned>(local.tm_mday));
    EXPECT_EQ(dayType, static_cast<Lib::DayType>(local.tm_wday));
    EXPECT_EQ(hour, static_cast<unsigned>(local.tm_hour));
    EXPECT_EQ(minute, static_cast<unsigned>(local.tm_min));
    EXPECT_EQ(second, static_cast<unsigned>(local.tm_sec));
    EXPECT_LT(ms, 1000u);
    return;
  }
  FAIL() << "the clock's second kept turning";
}

// Only fields the platform refuses: the result is 0 with "invalid parameter", and the clock
// goes on as it was.
TEST(LibDateTime, RefusedSettingsLeaveTheClock) {
  const std::time_t before = std::time(nullptr);
  const struct { unsigned a, b, c; } dates[] = {
      {2023, 2, 30}, {2024, 4, 31}, {2024, 13, 1}, {2024, 0, 10}, {2024, 1, 0}};
  for (const auto& d : dates) {
    EXPECT_EQ(Lib::SetDate(d.a, d.b, d.c), 0) << d.a << "-" << d.b << "-" << d.c;
    EXPECT_EQ(FIO::IOresult(), 87u) << d.a << "-" << d.b << "-" << d.c;
  }
  const struct { unsigned h, m, s, ms; } times[] = {
      {24, 0, 0, 0}, {0, 60, 0, 0}, {0, 0, 60, 0}, {0, 0, 0, 1000}};
  for (const auto& t : times) {
    EXPECT_EQ(Lib::SetTime(t.h, t.m, t.s, t.ms), 0) << t.h << ":" << t.m << ":" << t.s;
    EXPECT_EQ(FIO::IOresult(), 87u) << t.h << ":" << t.m << ":" << t.s << "." << t.ms;
  }
  const double moved = std::difftime(std::time(nullptr), before);
  EXPECT_GE(moved, 0.0);
  EXPECT_LT(moved, 5.0);
}

}  // namespace
