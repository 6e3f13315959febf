// Fault translation beside the system's own fault handling: probes that the system guards
// itself keep their answers on a thread that asked for translation.
#include <brelt/seh.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

TEST(Win32Faults, SystemProbesStillAnswer) {
  int local = 0;
  for (const void* p : {static_cast<const void*>(nullptr), static_cast<const void*>(&local)}) {
    BOOL got = 2;
    bool threw = false;
    std::thread([&] {
      SEH::EnableSEH();
      try {
        got = IsBadReadPtr(p, 4);
      } catch (unsigned) {
        threw = true;
      }
    }).join();
    EXPECT_FALSE(threw) << p;
    EXPECT_EQ(got, p == &local ? FALSE : TRUE) << p;
  }
}
