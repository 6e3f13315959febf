// SEH fault translation: after EnableSEH, machine faults on that thread arrive as thrown
// codes, again and again, also through library frames; other threads keep the default course.
// Built with -fnon-call-exceptions, so that a faulting instruction may throw.
#include <brelt/seh.h>
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <cstdlib>
#include <thread>

#include "guarded_array.h"

namespace {

constexpr unsigned kAccessViolation = 0xC0000005;
constexpr unsigned kIntegerDivideByZero = 0xC0000094;
constexpr unsigned kNothingThrown = 0;

volatile int g_intOne = 1, g_intZero = 0, g_intSink = 0;
volatile double g_one = 1.0, g_zero = 0.0, g_three = 3.0, g_max = DBL_MAX, g_sink = 0;
int* volatile g_null = nullptr;
const char* volatile g_guardEnd = nullptr;

struct Fault { const char* name; void (*run)(); unsigned code; };

// Runs `run` on the calling thread and gives the code it threw, or kNothingThrown. The call
// goes through a pointer the compiler cannot see through, so the fault stays inside a callee:
// a faulting load inlined into the try block itself has no handler under every compiler.
unsigned ThrownCode(void (*run)()) {
  void (*volatile call)() = run;
  try { call(); } catch (unsigned code) { return code; }
  return kNothingThrown;
}

// Runs the rows on a fresh translating thread, with float traps enabled before each if asked.
template <std::size_t N>
void ExpectCodes(const Fault (&rows)[N], bool floatTraps) {
  unsigned got[N] = {};
  unsigned maskAfter[N] = {};
  std::thread([&] {
    SEH::EnableSEH();
    for (std::size_t i = 0; i < N; ++i) {
      if (floatTraps) SEH::EnableFloatExceptions();
      got[i] = ThrownCode(rows[i].run);
      maskAfter[i] = SEH::DisableFloatExceptions();
    }
  }).join();
  for (std::size_t i = 0; i < N; ++i) {
    EXPECT_EQ(got[i], rows[i].code) << std::hex << rows[i].name << " gave 0x" << got[i];
    if (floatTraps) {  // a trap leaves the thread's mask as it was
      EXPECT_EQ(maskAfter[i] & 0x8001F, 0x1u) << rows[i].name;
    }
  }
}

TEST(SehEnableSEH, MachineFaultsArriveAsCodes) {
  brelt::test::GuardedArray<char> guarded(16);
  g_guardEnd = guarded.data() + 16;
  const Fault rows[] = {
      // First, while the thread's float mask is as inherited: EnableSEH leaves it masked.
      {"masked float division", [] { g_sink = g_one / g_zero; }, kNothingThrown},
      {"integer division by zero", [] { g_intSink = g_intOne / g_intZero; }, kIntegerDivideByZero},
      {"read through null", [] { g_intSink = *g_null; }, kAccessViolation},
      // Inside the library: its frames are passed through.
      {"library read of a guard page", [] { g_intSink = Str::LengthA(100, g_guardEnd); },
       kAccessViolation},
      {"no fault", [] { g_intSink = g_intOne / 1; }, kNothingThrown},
      // The same fault again: the thread's translation survives a throw.
      {"integer division again", [] { g_intSink = g_intOne / g_intZero; }, kIntegerDivideByZero},
  };
  ExpectCodes(rows, false);
}

TEST(SehEnableSEH, UnmaskedFloatTrapsArriveAsCodes) {
  const Fault rows[] = {
      {"1.0 / 0.0", [] { g_sink = g_one / g_zero; }, 0xC000008E},
      {"0.0 / 0.0", [] { g_sink = g_zero / g_zero; }, 0xC0000090},
      {"overflow", [] { g_sink = g_max * g_three; }, 0xC0000091},
      // Only the inexact result stays masked: rounding alone does not trap.
      {"1.0 / 3.0", [] { g_sink = g_one / g_three; }, kNothingThrown},
      {"1.0 / 0.0 again", [] { g_sink = g_one / g_zero; }, 0xC000008E},
  };
  ExpectCodes(rows, true);
}

TEST(SehEnableSEHDeathTest, OtherThreadsKeepTheDefaultCourse) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  // The translating thread stays alive while another thread, without a translator, faults.
  EXPECT_DEATH(
      {
        SEH::EnableSEH();
        std::thread([] { g_intSink = *g_null; }).join();
      },
      "");
  // The same child faulting on a translating thread lives on: the death above came from the
  // untranslated fault, not from the way the child is run.
  EXPECT_EXIT(
      {
        std::thread([] {
          SEH::EnableSEH();
          if (ThrownCode([] { g_intSink = *g_null; }) == kAccessViolation) std::exit(7);
        }).join();
        std::exit(1);
      },
      testing::ExitedWithCode(7), "");
}

}  // namespace
