// Fault translation beside the system's own fault handling: probes that the system guards
// itself keep their answers on a thread that asked for translation.
#include <brelt/seh.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

namespace {

TEST(Win32Faults, SystemProbesStillAnswer) {
  int local = 0;
  struct Row {
    const void* p;
    BOOL bad;
  } rows[] = {{nullptr, TRUE}, {reinterpret_cast<const void*>(16), TRUE}, {&local, FALSE}};
  for (const Row& r : rows) {
    BOOL got = 2;
    bool threw = false;
    std::thread([&] {
      SEH::EnableSEH();
      try {
        got = IsBadReadPtr(r.p, 4);
      } catch (unsigned) {
        threw = true;
      }
    }).join();
    EXPECT_FALSE(threw) << r.p;
    EXPECT_EQ(got, r.bad) << r.p;
  }
}

}  // namespace
