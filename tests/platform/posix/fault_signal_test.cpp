// Fault signals that no instruction raised (kill, pthread_kill) keep their default course after
// EnableSEH, on a translating thread as on any other: the process ends by that signal.
#include <brelt/seh.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

namespace {

TEST(PosixFaultSignalDeathTest, SentFaultSignalsEndTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  struct Row { const char* name; int sig; bool toThread; } rows[] = {
      {"kill SIGSEGV", SIGSEGV, false},
      {"pthread_kill SIGFPE", SIGFPE, true},
  };
  for (const Row& r : rows) {
    EXPECT_EXIT(
        {
          SEH::EnableSEH();
          if (r.toThread) {
            pthread_kill(pthread_self(), r.sig);
          } else {
            kill(getpid(), r.sig);
          }
          _exit(3);
        },
        testing::KilledBySignal(r.sig), "")
        << r.name;
  }
}

}  // namespace
