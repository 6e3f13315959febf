// On Windows the fatal path's message box waits for a person, so no unattended run sees it end.
#include <gtest/gtest.h>

TEST(StorageFatalPathDeathTest, ExhaustedHeapEndsTheProcess) {
  GTEST_SKIP() << "the out-of-memory message box waits for a person to press OK";
}
