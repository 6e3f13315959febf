// The one fatal path, for real: a child process whose heap runs dry ends with the two texts
// on standard error and exit code 0xFFFFFFFF, of which a POSIX parent sees the low byte.
#include <brelt/storage.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdlib>

// Under AddressSanitizer the heap must hand back null as the plain heap does, instead of
// reporting the failure itself; without the sanitizer this hook is never called.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

using brelt::UInt64;

// Caps the address space at what the process maps now plus 64 MiB.
void LimitAddressSpace() {
  Storage::TMemoryStatus s;
  Storage::GetMemoryStatus(&s);
  const UInt64 mapped = s.TotalVirtual - s.AvailVirtual;
  rlimit limit{mapped + (UInt64{64} << 20), mapped + (UInt64{64} << 20)};
  setrlimit(RLIMIT_AS, &limit);
}

[[noreturn]] void AllocateUntilExhausted() {
  LimitAddressSpace();
  for (;;) {
    void* p = nullptr;
    Storage::Allocate(&p, 1 << 20);
  }
}

[[noreturn]] void GrowUntilExhausted() {
  LimitAddressSpace();
  void* p = nullptr;
  for (UInt64 size = 1 << 20;; size += 1 << 20) Storage::_DbgReallocate(&p, size, 0, nullptr, 0);
}

[[noreturn]] void AskForMoreThanExists() {
  void* p = nullptr;
  Storage::_DbgAllocate(&p, UInt64{1} << 62, 0, nullptr, 0);
  std::abort();  // not reached when the fatal path works
}

[[noreturn]] void GrowBeyondAnything() {
  void* p = nullptr;
  Storage::Allocate(&p, 8);
  Storage::Reallocate(&p, UInt64{1} << 62);
  std::abort();
}

TEST(StorageFatalPathDeathTest, ExhaustedHeapEndsTheProcess) {
  struct Row {
    const char* name;
    void (*exhaust)();
  } rows[] = {
      {"Allocate under an address-space limit", AllocateUntilExhausted},
      {"_DbgReallocate growing under the limit", GrowUntilExhausted},
      {"_DbgAllocate of 2^62 bytes", AskForMoreThanExists},
      {"Reallocate to 2^62 bytes", GrowBeyondAnything},
  };
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const Row& r : rows) {
    EXPECT_EXIT(r.exhaust(), testing::ExitedWithCode(0xFFFFFFFFu & 0xFF),
                "Critical Error.*Not enough memory")
        << r.name;
  }
}

}  // namespace
