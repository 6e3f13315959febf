// The one fatal path, for real: a child whose heap runs dry ends with the two texts on
// standard error and exit code 0xFFFFFFFF, of which a POSIX parent sees the low byte.
#include <brelt/storage.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdlib>

// Under AddressSanitizer the heap must hand back null instead of reporting the failure itself.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

using brelt::UInt64;

[[noreturn]] void AllocateUnderALimit() {
  Storage::TMemoryStatus s;  // cap the address space at what is mapped now plus 64 MiB
  Storage::GetMemoryStatus(&s);
  const UInt64 cap = s.TotalVirtual - s.AvailVirtual + (UInt64{64} << 20);
  rlimit limit{cap, cap};
  setrlimit(RLIMIT_AS, &limit);
  for (;;) {
    void* p = nullptr;
    Storage::Allocate(&p, 1 << 20);
  }
}

[[noreturn]] void GrowBeyondAnything() {
  void* p = nullptr;
  Storage::Allocate(&p, 8);
  Storage::_DbgReallocate(&p, UInt64{1} << 62, 0, nullptr, 0);
  std::abort();  // not reached when the fatal path works
}

TEST(StorageFatalPathDeathTest, ExhaustedHeapEndsTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(AllocateUnderALimit(), testing::ExitedWithCode(0xFF),
              "Critical Error.*Not enough memory");
  EXPECT_EXIT(GrowBeyondAnything(), testing::ExitedWithCode(0xFF),
              "Critical Error.*Not enough memory");
}

}  // namespace
