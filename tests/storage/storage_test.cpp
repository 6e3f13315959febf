// Storage through the shared library: allocation through the caller's variable, the fill of
// new blocks, release, block copies and fills, the memory figures and the pointer tests.
#include <brelt/storage.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

#include "guarded_array.h"
#include "platform/memory_pages.h"

namespace {

using brelt::UInt64;
using brelt::test::GuardedArray;

// The plain operations and their _Dbg forms, whose position arguments must not matter even
// when the file is null.
void DbgAllocate(void** p, UInt64 size) { Storage::_DbgAllocate(p, size, 0, nullptr, 0); }
void DbgReallocate(void** p, UInt64 size) {
  Storage::_DbgReallocate(p, size, 7, "x.cpp", 12);
}
void Deallocate(void** p) { Storage::Deallocate(p, 12345); }  // size unrelated to the block
void DbgDeallocate(void** p) { Storage::_DbgDeallocate(p, 0, 0, nullptr, 0); }
void DbgFree(void** p) { Storage::_DbgFree(p, 3, "a.c", 9); }

struct Allocator {
  const char* name;
  void (*allocate)(void**, UInt64);
};
const Allocator kAllocators[] = {{"Allocate", Storage::Allocate},
                                 {"_DbgAllocate", DbgAllocate}};

struct Reallocator {
  const char* name;
  void (*reallocate)(void**, UInt64);
};
const Reallocator kReallocators[] = {{"Reallocate", Storage::Reallocate},
                                     {"_DbgReallocate", DbgReallocate}};

struct Releaser {
  const char* name;
  void (*release)(void**);
};
const Releaser kReleasers[] = {{"Free", Storage::Free},
                               {"Deallocate", Deallocate},
                               {"_DbgDeallocate", DbgDeallocate},
                               {"_DbgFree", DbgFree}};

bool AllBytes(const void* p, std::size_t n, unsigned char value) {
  const auto* b = static_cast<const unsigned char*>(p);
  for (std::size_t i = 0; i < n; ++i) {
    if (b[i] != value) return false;
  }
  return true;
}

TEST(StorageAllocate, NewBlocksAreFilledWith205) {
  for (const Allocator& a : kAllocators) {
    for (UInt64 size : {UInt64{1}, UInt64{3}, UInt64{4096}, UInt64{300000}}) {
      void* p = nullptr;
      a.allocate(&p, size);
      ASSERT_NE(p, nullptr) << a.name << " " << size;
      EXPECT_TRUE(AllBytes(p, size, 205)) << a.name << " " << size;
      EXPECT_GE(Storage::MemorySize(p), size) << a.name << " " << size;
      EXPECT_LT(Storage::MemorySize(p), size + 65536) << "a size, not an address";
      Storage::Free(&p);
      EXPECT_EQ(p, nullptr);
    }
  }
  EXPECT_EQ(Storage::MemorySize(nullptr), 0u);
}

TEST(StorageAllocate, SizeZeroNullsTheVariableAndLeavesItsBlockAlone) {
  for (const Allocator& a : kAllocators) {
    void* kept = nullptr;
    Storage::Allocate(&kept, 16);
    void* p = kept;
    a.allocate(&p, 0);
    EXPECT_EQ(p, nullptr) << a.name;
    // The old block is still allocated and usable.
    std::memset(kept, 7, 16);
    EXPECT_GE(Storage::MemorySize(kept), 16u) << a.name;
    Storage::Free(&kept);

    void* junk = reinterpret_cast<void*>(std::uintptr_t{0x1234});
    a.allocate(&junk, 0);
    EXPECT_EQ(junk, nullptr) << a.name;
  }
}

TEST(StorageReallocate, KeepsContentsUpToTheSmallerSize) {
  struct Row {
    UInt64 from, to;
  } rows[] = {{4, 8}, {100, 10}, {16, 1 << 20}, {1 << 20, 3}};
  for (const Reallocator& r : kReallocators) {
    for (const Row& row : rows) {
      void* p = nullptr;
      Storage::Allocate(&p, row.from);
      auto* bytes = static_cast<unsigned char*>(p);
      for (UInt64 i = 0; i < row.from; ++i) bytes[i] = static_cast<unsigned char>(i * 7 + 1);
      r.reallocate(&p, row.to);
      ASSERT_NE(p, nullptr) << r.name;
      bytes = static_cast<unsigned char*>(p);
      const UInt64 kept = row.from < row.to ? row.from : row.to;
      bool same = true;
      for (UInt64 i = 0; i < kept; ++i) same = same && bytes[i] == static_cast<unsigned char>(i * 7 + 1);
      EXPECT_TRUE(same) << r.name << " " << row.from << " -> " << row.to;
      EXPECT_GE(Storage::MemorySize(p), row.to) << r.name;
      Storage::Free(&p);
    }
  }
}

TEST(StorageReallocate, SizeZeroReleasesAndNullStaysNull) {
  for (const Reallocator& r : kReallocators) {
    void* p = nullptr;
    r.reallocate(&p, 0);
    EXPECT_EQ(p, nullptr) << r.name;
    Storage::Allocate(&p, 32);
    r.reallocate(&p, 0);
    EXPECT_EQ(p, nullptr) << r.name;
    // From null with a size it is a plain allocation.
    r.reallocate(&p, 24);
    ASSERT_NE(p, nullptr) << r.name;
    EXPECT_GE(Storage::MemorySize(p), 24u) << r.name;
    Storage::Free(&p);
  }
}

TEST(StorageRelease, NullsTheVariableAndASecondCallDoesNothing) {
  for (const Releaser& r : kReleasers) {
    void* p = nullptr;
    Storage::Allocate(&p, 40);
    r.release(&p);
    EXPECT_EQ(p, nullptr) << r.name;
    r.release(&p);
    EXPECT_EQ(p, nullptr) << r.name;
  }
}

// Block operations: the source comes first, the destination second.
TEST(StorageBlocks, CopyMoveFillZero) {
  struct Row {
    const char* name;
    std::string before;
    void (*op)(unsigned char* a);
    std::string after;
  } rows[] = {
      {"MemoryCopy", "abcdefgh",
       [](unsigned char* a) { Storage::MemoryCopy(a, a + 5, 3); }, "abcdeabc"},
      {"MemoryCopy n 0", "abcdefgh", [](unsigned char* a) { Storage::MemoryCopy(a, a + 5, 0); },
       "abcdefgh"},
      {"MemoryMove up", "abcdefghijk",
       [](unsigned char* a) { Storage::MemoryMove(a, a + 1, 10); }, "aabcdefghij"},
      {"MemoryMove down", "abcdefghijk",
       [](unsigned char* a) { Storage::MemoryMove(a + 1, a, 10); }, "bcdefghijkk"},
      {"MemoryFill", "abcdefgh", [](unsigned char* a) { Storage::MemoryFill(a + 2, 6, 'z'); },
       "abzzzzzz"},
      {"MemoryFill n 0", "abcdefgh", [](unsigned char* a) { Storage::MemoryFill(a, 0, 'z'); },
       "abcdefgh"},
      {"MemoryZero", "abcdefgh", [](unsigned char* a) { Storage::MemoryZero(a + 6, 2); },
       std::string("abcdef\0\0", 8)},
  };
  for (const Row& r : rows) {
    GuardedArray<unsigned char> a(r.before.size());
    std::memcpy(a.data(), r.before.data(), r.before.size());
    r.op(a.data());
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(a.data()), a.size()), r.after) << r.name;
  }
}

TEST(StorageMemoryStatus, FieldsInOrderAndFiguresConsistent) {
  using Storage::TMemoryStatus;
  EXPECT_EQ(offsetof(TMemoryStatus, MemoryLoad), 0u);
  EXPECT_EQ(offsetof(TMemoryStatus, TotalPhys), 8u);
  EXPECT_EQ(offsetof(TMemoryStatus, AvailPhys), 16u);
  EXPECT_EQ(offsetof(TMemoryStatus, TotalPageFile), 24u);
  EXPECT_EQ(offsetof(TMemoryStatus, AvailPageFile), 32u);
  EXPECT_EQ(offsetof(TMemoryStatus, TotalVirtual), 40u);
  EXPECT_EQ(offsetof(TMemoryStatus, AvailVirtual), 48u);

  TMemoryStatus s;
  std::memset(&s, 0xAB, sizeof s);
  Storage::GetMemoryStatus(&s);
  EXPECT_LE(s.MemoryLoad, 100u);
  EXPECT_GT(s.TotalPhys, UInt64{16} << 20);
  EXPECT_LE(s.AvailPhys, s.TotalPhys);
  EXPECT_GE(s.TotalPageFile, s.AvailPageFile);
  EXPECT_GT(s.AvailPageFile, 0u);
  EXPECT_GT(s.TotalVirtual, UInt64{1} << 31);
  EXPECT_LE(s.AvailVirtual, s.TotalVirtual);
  EXPECT_GT(s.AvailVirtual, 0u);
}

// Pages that can not be touched answer 1 without a fault: the guard page behind a guarded
// array, a read-only page, a page that was given back, and null.
TEST(StoragePointerTests, ReadWriteAndTextAcrossPageKinds) {
  namespace pf = brelt::platform;
  const std::size_t page = pf::PageSize();
  GuardedArray<char> guarded(100);
  std::memset(guarded.data(), 'x', 100);
  auto* pages = static_cast<unsigned char*>(pf::MapPages(2 * page));
  ASSERT_NE(pages, nullptr);
  pages[page - 1] = 'a';
  pages[page] = 'b';
  pages[page + 1] = 0;
  ASSERT_TRUE(pf::ProtectReadOnly(pages + page, page));
  auto* gone = static_cast<unsigned char*>(pf::MapPages(page));
  ASSERT_NE(gone, nullptr);
  pf::UnmapPages(gone, page);
  void* block = nullptr;
  Storage::Allocate(&block, 77);

  struct Row {
    const char* name;
    const void* p;
    UInt64 n;
    unsigned char badRead, badWrite;
  } rows[] = {
      {"heap block, its own size", block, 77, 0, 0},
      {"guarded array, its size", guarded.data(), 100, 0, 0},
      {"guarded array, one more", guarded.data(), 101, 1, 1},
      {"the guard page alone", guarded.data() + 100, 1, 1, 1},
      {"writable then read-only", pages + page - 1, 2, 0, 1},
      {"read-only page", pages + page, 16, 0, 1},
      {"writable page only", pages, page, 0, 0},
      {"given back", gone, 1, 1, 1},
      {"null", nullptr, 1, 1, 1},
      {"null, no bytes", nullptr, 0, 0, 0},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(Storage::TestBadReadPtr(r.p, r.n), r.badRead) << r.name;
    EXPECT_EQ(Storage::TestBadWritePtr(const_cast<void*>(r.p), r.n), r.badWrite) << r.name;
  }

  // Text: good when its NUL or its n-th character is reached on readable pages.
  guarded[99] = 0;
  struct TextRow {
    const char* name;
    const char* p;
    UInt64 n;
    unsigned char bad;
  } texts[] = {
      {"NUL before the guard page", guarded.data(), 1000, 0},
      {"no NUL, n stops in time", guarded.data() + 100 - 3, 2, 0},
      {"runs into the guard page", guarded.data() + 100, 5, 1},
      {"read-only text", reinterpret_cast<const char*>(pages + page - 1), 100, 0},
      {"given back", reinterpret_cast<const char*>(gone), 4, 1},
      {"null", nullptr, 4, 1},
  };
  for (const TextRow& t : texts) {
    EXPECT_EQ(Storage::TestBadStringPtr(t.p, t.n), t.bad) << t.name;
  }
  guarded[99] = 'x';
  EXPECT_EQ(Storage::TestBadStringPtr(guarded.data(), 100), 0) << "n reached at the last byte";
  EXPECT_EQ(Storage::TestBadStringPtr(guarded.data(), 101), 1) << "one more reaches the guard";

  Storage::Free(&block);
  pf::UnmapPages(pages, 2 * page);
}

}  // namespace
