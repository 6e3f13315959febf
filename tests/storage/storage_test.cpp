// Storage through the shared library: allocation through the caller's variable, the fill of
// new blocks, release, block copies and fills, the memory figures and the pointer tests.
#include <brelt/storage.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "guarded_array.h"
#include "platform/memory_pages.h"

namespace {

using brelt::UInt64;
using brelt::test::GuardedArray;

// The source position of the _Dbg forms is a plain bounded string: its file is a char *.
static_assert(std::is_same_v<decltype(&Storage::_DbgAllocate),
                             void (*)(void**, UInt64, unsigned, char*, unsigned)>);
static_assert(std::is_same_v<decltype(&Storage::_DbgReallocate),
                             void (*)(void**, UInt64, unsigned, char*, unsigned)>);
static_assert(std::is_same_v<decltype(&Storage::_DbgDeallocate),
                             void (*)(void**, UInt64, unsigned, char*, unsigned)>);
static_assert(std::is_same_v<decltype(&Storage::_DbgFree),
                             void (*)(void**, unsigned, char*, unsigned)>);
char kFile[] = "x.c";

// Each operation beside its _Dbg form, whose position arguments (even a null file) don't matter.
struct Sized {
  const char* name;
  void (*op)(void**, UInt64);
};
const Sized kAllocators[] = {
    {"Allocate", Storage::Allocate},
    {"_DbgAllocate", [](void** p, UInt64 n) { Storage::_DbgAllocate(p, n, 0, nullptr, 0); }}};
const Sized kReallocators[] = {
    {"Reallocate", Storage::Reallocate},
    {"_DbgReallocate", [](void** p, UInt64 n) { Storage::_DbgReallocate(p, n, 7, kFile, 1); }}};

TEST(StorageAllocate, NewBlocksAreFilledWith205AndSizeZeroNullsTheVariable) {
  for (const Sized& a : kAllocators) {
    for (UInt64 size : {UInt64{3}, UInt64{300000}}) {
      void* p = nullptr;
      a.op(&p, size);
      ASSERT_NE(p, nullptr) << a.name << " " << size;
      const auto* b = static_cast<const unsigned char*>(p);
      EXPECT_EQ(std::count(b, b + size, 205), static_cast<std::ptrdiff_t>(size)) << a.name;
      EXPECT_GE(Storage::MemorySize(p), size) << a.name;
      EXPECT_LT(Storage::MemorySize(p), size + 65536) << "a size, not an address";
      // Size 0 nulls the variable and leaves the block it held allocated.
      void* q = p;
      a.op(&q, 0);
      EXPECT_EQ(q, nullptr) << a.name;
      EXPECT_GE(Storage::MemorySize(p), size) << a.name;
      Storage::Free(&p);
    }
  }
  EXPECT_EQ(Storage::MemorySize(nullptr), 0u);
}

TEST(StorageReallocate, KeepsContentsSizeZeroReleasesNullAllocates) {
  struct Row { UInt64 from, to; } rows[] = {{4, 8}, {100, 10}, {16, 1 << 20}};
  for (const Sized& r : kReallocators) {
    for (const Row& row : rows) {
      std::vector<unsigned char> bytes(row.from);
      for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 7);
      void* p = nullptr;
      Storage::Allocate(&p, row.from);
      std::memcpy(p, bytes.data(), bytes.size());
      r.op(&p, row.to);
      ASSERT_NE(p, nullptr) << r.name;
      EXPECT_EQ(std::memcmp(p, bytes.data(), std::min(row.from, row.to)), 0)
          << r.name << " " << row.from << " -> " << row.to;
      EXPECT_GE(Storage::MemorySize(p), row.to) << r.name;
      r.op(&p, 0);
      EXPECT_EQ(p, nullptr) << r.name;
      r.op(&p, 0);  // null stays null
      EXPECT_EQ(p, nullptr) << r.name;
    }
    void* p = nullptr;
    r.op(&p, 24);  // from null: a plain allocation
    ASSERT_NE(p, nullptr) << r.name;
    EXPECT_GE(Storage::MemorySize(p), 24u) << r.name;
    Storage::Free(&p);
  }
}

TEST(StorageRelease, NullsTheVariableAndASecondCallDoesNothing) {
  struct Row { const char* name; void (*release)(void**); } rows[] = {
      {"Free", Storage::Free},
      {"Deallocate", [](void** p) { Storage::Deallocate(p, 12345); }},  // size unrelated
      {"_DbgDeallocate", [](void** p) { Storage::_DbgDeallocate(p, 0, 0, nullptr, 0); }},
      {"_DbgFree", [](void** p) { Storage::_DbgFree(p, 3, kFile, 9); }}};
  for (const Row& r : rows) {
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
  struct Row { const char* name; void (*op)(unsigned char* a); std::string after; } rows[] = {
      {"MemoryCopy", [](unsigned char* a) { Storage::MemoryCopy(a, a + 5, 3); }, "abcdeabcik"},
      {"MemoryMove up", [](unsigned char* a) { Storage::MemoryMove(a, a + 1, 9); }, "aabcdefghi"},
      {"MemoryMove down", [](unsigned char* a) { Storage::MemoryMove(a + 1, a, 9); }, "bcdefghikk"},
      {"MemoryFill", [](unsigned char* a) { Storage::MemoryFill(a + 2, 8, 'z'); }, "abzzzzzzzz"},
      {"MemoryZero", [](unsigned char* a) { Storage::MemoryZero(a + 8, 2); },
       std::string("abcdefgh\0\0", 10)},
  };
  for (const Row& r : rows) {
    GuardedArray<unsigned char> a(10);
    std::memcpy(a.data(), "abcdefghik", 10);
    r.op(a.data());
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(a.data()), a.size()), r.after) << r.name;
  }
}

TEST(StorageMemoryStatus, FieldsInOrderAndFiguresConsistent) {
  using Storage::TMemoryStatus;
  const std::size_t offsets[] = {
      offsetof(TMemoryStatus, MemoryLoad),    offsetof(TMemoryStatus, TotalPhys),
      offsetof(TMemoryStatus, AvailPhys),     offsetof(TMemoryStatus, TotalPageFile),
      offsetof(TMemoryStatus, AvailPageFile), offsetof(TMemoryStatus, TotalVirtual),
      offsetof(TMemoryStatus, AvailVirtual)};
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(offsets[i], i * 8) << "field " << i;
  TMemoryStatus s;
  std::memset(&s, 0xAB, sizeof s);  // every field must be written
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

// Pages that can not be touched answer 1 without a fault.
TEST(StoragePointerTests, ReadWriteAndTextAcrossPageKinds) {
  namespace pf = brelt::platform;
  const std::size_t page = pf::PageSize();
  GuardedArray<char> guarded(100);
  std::memset(guarded.data(), 'x', 100);
  auto* pages = static_cast<unsigned char*>(pf::MapPages(2 * page));
  ASSERT_NE(pages, nullptr);
  pages[page - 1] = 'a';
  pages[page] = 0;
  ASSERT_TRUE(pf::ProtectReadOnly(pages + page, page));
  auto* gone = static_cast<unsigned char*>(pf::MapPages(page));
  ASSERT_NE(gone, nullptr);
  pf::UnmapPages(gone, page);
  void* block = nullptr;
  Storage::Allocate(&block, 77);
  struct Row { const char* name; const void* p; UInt64 n; int badRead, badWrite; } rows[] = {
      {"heap block, its own size", block, 77, 0, 0},
      {"guarded array, its size", guarded.data(), 100, 0, 0},
      {"guarded array, one more", guarded.data(), 101, 1, 1},
      {"writable then read-only", pages + page - 1, 2, 0, 1},
      {"given back", gone, 1, 1, 1},
      {"null", nullptr, 1, 1, 1},
      {"null, no bytes", nullptr, 0, 0, 0},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(Storage::TestBadReadPtr(r.p, r.n), r.badRead) << r.name;
    EXPECT_EQ(Storage::TestBadWritePtr(const_cast<void*>(r.p), r.n), r.badWrite) << r.name;
  }
  // Text is good when its NUL or its n-th character lies on readable pages.
  const char* g = guarded.data();
  struct TextRow { const char* name; const char* p; UInt64 n; int bad; } texts[] = {
      {"no NUL, n reached at the last byte", g, 100, 0},
      {"no NUL, one more reaches the guard", g, 101, 1},
      {"read-only text", reinterpret_cast<const char*>(pages + page - 1), 100, 0},
      {"null", nullptr, 4, 1},
  };
  for (const TextRow& t : texts) EXPECT_EQ(Storage::TestBadStringPtr(t.p, t.n), t.bad) << t.name;
  guarded[99] = 0;
  EXPECT_EQ(Storage::TestBadStringPtr(g, 1000), 0) << "NUL before the guard page";
  Storage::Free(&block);
  pf::UnmapPages(pages, 2 * page);
}

}  // namespace
