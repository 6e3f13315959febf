// The fatal path on Windows shows a message box that waits for a person to press OK before
// the process ends, so no unattended run can see it through.
#include <gtest/gtest.h>

TEST(StorageFatalPathDeathTest, ExhaustedHeapEndsTheProcess) {
  GTEST_SKIP() << "the out-of-memory message box waits for a person to press OK";
}
