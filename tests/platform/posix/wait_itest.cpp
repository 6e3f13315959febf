// Waiting on POSIX wait handles (descriptors in the pointer): pipes that hold data or not,
// process descriptors of children that end, the first signalled handle winning, bad handles,
// and waiting for all, which also waits for queue input that never comes.
#include <brelt/os.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>

namespace {

void* Handle(int fd) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(fd)); }

constexpr brelt::ULong kTimeout = 258;
constexpr brelt::ULong kFailed = 0xFFFFFFFF;
constexpr brelt::ULong kWaitAll = 1;

struct Pipe {
  int r = -1, w = -1;
  Pipe() {
    int fds[2];
    if (pipe(fds) == 0) {
      r = fds[0];
      w = fds[1];
    }
  }
  ~Pipe() {
    close(r);
    close(w);
  }
  void Fill() { ASSERT_EQ(write(w, "x", 1), 1); }
};

long ElapsedMs(std::chrono::steady_clock::time_point start) {
  return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(
                               std::chrono::steady_clock::now() - start)
                               .count());
}

TEST(PosixWait, PipesAndBadHandles) {
  Pipe a, b, c;
  b.Fill();
  c.Fill();
  struct Row {
    const char* name;
    std::vector<void*> handles;
    brelt::ULong timeout, flags, want;
  } rows[] = {
      {"empty pipe times out", {Handle(a.r)}, 30, 0, kTimeout},
      {"full pipe", {Handle(b.r)}, 1000, 0, 0},
      {"first signalled of three", {Handle(a.r), Handle(c.r), Handle(b.r)}, 1000, 0, 1},
      {"negative descriptor", {Handle(-1)}, 0, 0, kFailed},
      {"closed descriptor", {Handle(987)}, 0, 0, kFailed},
      {"wait for all never gets input", {Handle(b.r), Handle(c.r)}, 30, kWaitAll, kTimeout},
      {"wait for all with a bad handle", {Handle(b.r), Handle(987)}, 1000, kWaitAll, kFailed},
  };
  for (Row& r : rows) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(static_cast<brelt::ULong>(r.handles.size()),
                                              r.handles.data(), r.timeout, 0xFF, r.flags),
              r.want)
        << r.name;
    const long waited = ElapsedMs(start);
    if (r.want == kTimeout) {
      EXPECT_GE(waited, static_cast<long>(r.timeout) - 1) << r.name;
    } else {
      EXPECT_LT(waited, 500) << r.name;
    }
  }
  std::vector<void*> tooMany(64, Handle(b.r));
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(64, tooMany.data(), 0, 0, 0), kFailed);
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(63, tooMany.data(), 0, 0, 0), 0u);
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

TEST(PosixWait, QueueIsAlwaysEmpty) { EXPECT_EQ(os::WindowsQueueEmpty(), 1); }

}  // namespace
