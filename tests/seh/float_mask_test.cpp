// SEH float mask: the six bits each operation leaves, that nothing else in the word moves,
// that the returned word restores the mask, and that the mask belongs to the thread.
#include <brelt/seh.h>
#include <gtest/gtest.h>

#include <thread>

namespace {

constexpr unsigned kSix = 0x8001F;

// Each row runs on a thread of its own, so that the test runner's thread keeps its mask.
TEST(SehMask, EachOperationLeavesItsBits) {
  struct Row { const char* name; unsigned (*apply)(); unsigned bits; } rows[] = {
      {"Disable", [] { return SEH::DisableFloatExceptions(); }, 0x8001F},
      {"Enable", [] { return SEH::EnableFloatExceptions(); }, 0x00001},
      {"Set all ones", [] { return SEH::SetFloatExceptionsMask(0xFFFFFFFF); }, 0x8001F},
      {"Set denormal and invalid", [] { return SEH::SetFloatExceptionsMask(0x80010); }, 0x80010},
      {"Set outside bits only", [] { return SEH::SetFloatExceptionsMask(0x7FF00); }, 0},
  };
  for (const Row& r : rows) {
    unsigned before = 0, returned = 0, after = 0;
    std::thread([&] {
      SEH::SetFloatExceptionsMask(0x00014);  // a start unlike any row's result
      before = SEH::GetFloatExceptionsMask();
      returned = r.apply();
      after = SEH::GetFloatExceptionsMask();
      SEH::DisableFloatExceptions();
    }).join();
    EXPECT_EQ(before & kSix, 0x14u) << r.name;
    EXPECT_EQ(returned, before) << r.name;
    EXPECT_EQ(after & kSix, r.bits) << r.name;
    EXPECT_EQ(after & ~kSix, before & ~kSix) << r.name;
  }
}

TEST(SehMask, ReturnedWordRestoresTheMask) {
  for (unsigned start : {0x8001Fu, 0x80004u}) {
    unsigned restored = 0;
    std::thread([&] {
      SEH::SetFloatExceptionsMask(start);
      const unsigned saved = SEH::EnableFloatExceptions();
      SEH::DisableFloatExceptions();
      SEH::SetFloatExceptionsMask(saved);
      restored = SEH::GetFloatExceptionsMask();
      SEH::DisableFloatExceptions();
    }).join();
    EXPECT_EQ(restored & kSix, start) << std::hex << start;
  }
}

// Start-up leaves all six masked; another thread's mask, left unmasked as the thread ends,
// changes nothing here.
TEST(SehMask, BelongsToTheThreadAndStartsAllMasked) {
  const unsigned mine = SEH::GetFloatExceptionsMask();
  EXPECT_EQ(mine & kSix, kSix);
  unsigned other = 0;
  std::thread([&] {
    SEH::SetFloatExceptionsMask(0x8);
    other = SEH::GetFloatExceptionsMask();
  }).join();
  EXPECT_EQ(other & kSix, 0x8u);
  EXPECT_EQ(SEH::GetFloatExceptionsMask(), mine);
}

}  // namespace
