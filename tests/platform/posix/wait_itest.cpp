// Waiting on POSIX wait handles (descriptors in the pointer): pipes with data or without,
// process descriptors of children that end, the first signalled handle winning, bad handles,
// and waiting for all, which also waits for queue input that never comes.
#include <brelt/os.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <vector>

namespace {

void* Handle(int fd) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(fd)); }

constexpr brelt::ULong kTimeout = 258;
constexpr brelt::ULong kFailed = 0xFFFFFFFF;

long ElapsedMs(std::chrono::steady_clock::time_point start) {
  return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(
                               std::chrono::steady_clock::now() - start).count());
}

TEST(PosixWait, PipesAndBadHandles) {
  int empty[2], full[2];
  ASSERT_EQ(pipe(empty), 0);
  ASSERT_EQ(pipe(full), 0);
  ASSERT_EQ(write(full[1], "x", 1), 1);
  void* const a = Handle(empty[0]);
  void* const b = Handle(full[0]);
  struct Row { const char* name; std::vector<void*> handles; brelt::ULong timeout, all, want; }
  rows[] = {
      {"empty pipe times out", {a}, 30, 0, kTimeout},
      {"first signalled of three", {a, b, b}, 1000, 0, 1},
      {"negative descriptor", {Handle(-1)}, 0, 0, kFailed},
      {"closed descriptor", {Handle(987)}, 0, 0, kFailed},
      {"wait for all never gets input", {b, b}, 30, 1, kTimeout},
      {"wait for all with a bad handle", {b, Handle(987)}, 1000, 1, kFailed},
  };
  for (Row& r : rows) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(static_cast<brelt::ULong>(r.handles.size()),
                                              r.handles.data(), r.timeout, 0xFF, r.all),
              r.want)
        << r.name;
    if (r.want == kTimeout) {
      EXPECT_GE(ElapsedMs(start), static_cast<long>(r.timeout) - 1) << r.name;
    } else {
      EXPECT_LT(ElapsedMs(start), 500) << r.name;
    }
  }
  std::vector<void*> tooMany(64, b);
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(64, tooMany.data(), 0, 0, 0), kFailed);
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(63, tooMany.data(), 0, 0, 0), 0u);
  for (int fd : {empty[0], empty[1], full[0], full[1]}) close(fd);
}

TEST(PosixWait, ProcessDescriptorSignalsWhenTheChildEnds) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    usleep(80 * 1000);
    _exit(0);
  }
  const int pidfd = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
  if (pidfd < 0) {
    waitpid(child, nullptr, 0);
    GTEST_SKIP() << "this kernel gives no process descriptors (pidfd_open failed)";
  }
  void* handles[] = {Handle(pidfd)};
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, handles, 0, 0, 0), kTimeout);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, handles, 0xFFFFFFFF, 0, 0), 0u);
  EXPECT_GE(ElapsedMs(start), 40);
  // A process that has ended stays signalled.
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, handles, 0, 0, 0), 0u);
  waitpid(child, nullptr, 0);
  close(pidfd);
}

}  // namespace
