// Storage through the shared library: block life, block operations, figures, pointer tests.
#include <brelt/storage.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

#include "guarded_array.h"
#include "platform/memory_pages.h"

namespace {
using brelt::UInt64, brelt::test::GuardedArray;

// The _Dbg forms take their file as a plain char *: these would not compile with a const one.
using DbgSized = void (*)(void**, UInt64, unsigned, char*, unsigned);
[[maybe_unused]] const DbgSized kDbg[] = {Storage::_DbgAllocate, Storage::_DbgReallocate,
                                          Storage::_DbgDeallocate};
[[maybe_unused]] void (*const kDbgFree)(void**, unsigned, char*, unsigned) = Storage::_DbgFree;
char kFile[] = "x.c";
// Each operation beside its _Dbg form, whose position arguments (even a null file) don't matter;
// resizing to 0 releases like the others, and Deallocate's size is unrelated.
struct Sized { const char* name; void (*op)(void**, UInt64); };
struct Release { const char* name; void (*op)(void**); };
const Sized kAllocate[] = {{"Allocate", Storage::Allocate},
    {"_DbgAllocate", [](void** p, UInt64 n) { Storage::_DbgAllocate(p, n, 0, nullptr, 0); }}};
const Sized kResize[] = {{"Reallocate", Storage::Reallocate},
    {"_DbgReallocate", [](void** p, UInt64 n) { Storage::_DbgReallocate(p, n, 7, kFile, 1); }}};
const Release kRelease[] = {{"Free", Storage::Free},
    {"Deallocate", [](void** p) { Storage::Deallocate(p, 12345); }},
    {"_DbgDeallocate", [](void** p) { Storage::_DbgDeallocate(p, 0, 0, nullptr, 0); }},
    {"_DbgFree", [](void** p) { Storage::_DbgFree(p, 3, kFile, 9); }},
    {"Reallocate 0", [](void** p) { Storage::Reallocate(p, 0); }},
    {"_DbgReallocate 0", [](void** p) { Storage::_DbgReallocate(p, 0, 0, nullptr, 0); }}};

// New blocks hold 205s; size 0 nulls the variable and leaves the block it held; resizing keeps
// the contents; a release nulls the variable, and a second one finds null and keeps it.
TEST(StorageBlockLife, ThroughTheCallersVariable) {
  for (int k = 0; k < 6; ++k) {
    const Sized &alloc = kAllocate[k % 2], &resize = kResize[k / 2 % 2];
    const std::string at = std::string(alloc.name) + ", " + resize.name + ", " + kRelease[k].name;
    for (auto [from, to] : {std::pair<UInt64, UInt64>{3, 8}, {300000, 9}, {16, 1 << 20}, {0, 24}}) {
      void *p = nullptr, *q = nullptr;
      alloc.op(&p, from);
      ASSERT_TRUE(p != nullptr || from == 0) << at;  // from 0, resizing allocates plainly
      auto* b = static_cast<unsigned char*>(p);
      EXPECT_EQ(std::string(b, b + from).find_first_not_of('\xCD'), std::string::npos) << at;
      EXPECT_GE(Storage::MemorySize(p), from) << at;
      EXPECT_LT(Storage::MemorySize(p), from + 65536) << "a size, not an address";
      alloc.op(&(q = p), 0);
      EXPECT_EQ(q, nullptr) << at;
      for (UInt64 i = 0; i < from; ++i) b[i] = i * 7 % 256;
      resize.op(&p, to);
      ASSERT_NE(p, nullptr) << at;
      b = static_cast<unsigned char*>(p);
      for (UInt64 i = 0; i < std::min(from, to); ++i) ASSERT_EQ(b[i], i * 7 % 256) << at;
      EXPECT_GE(Storage::MemorySize(p), to) << at;
      for (int twice = 0; twice < 2; ++twice) {
        kRelease[k].op(&p);
        EXPECT_EQ(p, nullptr) << at;
      }
    }
  }
  EXPECT_EQ(Storage::MemorySize(nullptr), 0u);
}

// Block operations: the source comes first, the destination second.
TEST(StorageBlocks, CopyMoveFillZero) {
  const struct { void (*op)(char* a); std::string after; } rows[] = {
      {[](char* a) { Storage::MemoryCopy(a, a + 5, 3); }, "abcdeabcik"},
      {[](char* a) { Storage::MemoryMove(a, a + 1, 9); }, "aabcdefghi"},
      {[](char* a) { Storage::MemoryMove(a + 1, a, 9); }, "bcdefghikk"},
      {[](char* a) { Storage::MemoryFill(a + 2, 8, 'z'); }, "abzzzzzzzz"},
      {[](char* a) { Storage::MemoryZero(a + 8, 2); }, "abcdefgh00"}};
  for (const auto& r : rows) {
    GuardedArray<char> a(std::string_view("abcdefghik"));
    r.op(a.data());
    EXPECT_EQ(a.Raw(), r.after);
  }
}

TEST(StorageMemoryStatus, FieldsInOrderAndFiguresConsistent) {
  using M = Storage::TMemoryStatus;  // the fields in their order
  static_assert(offsetof(M, TotalPhys) == 8 && offsetof(M, AvailPhys) == 16 &&
                offsetof(M, TotalPageFile) == 24 && offsetof(M, AvailPageFile) == 32 &&
                offsetof(M, TotalVirtual) == 40 && offsetof(M, AvailVirtual) == 48);
  M s;
  std::memset(&s, 0xAB, sizeof s);  // every field must be written
  Storage::GetMemoryStatus(&s);
  EXPECT_LE(s.MemoryLoad, 100u);
  EXPECT_GT(s.TotalPhys, UInt64{16} << 20);
  EXPECT_LE(s.AvailPhys, s.TotalPhys);
  EXPECT_GE(s.TotalPageFile, s.AvailPageFile);
  EXPECT_GT(s.TotalVirtual, UInt64{1} << 31);
  EXPECT_LE(s.AvailVirtual, s.TotalVirtual);
}

// Pages that can not be touched answer 1 without a fault; text is good when its NUL or its
// n-th character lies on readable pages.
TEST(StoragePointerTests, ReadWriteAndTextAcrossPageKinds) {
  namespace pf = brelt::platform;
  const std::size_t page = pf::PageSize();
  GuardedArray<char> g(100), nul(std::string_view("ab\0", 3));
  auto* pages = static_cast<char*>(pf::MapPages(2 * page));
  auto* gone = static_cast<char*>(pf::MapPages(page));
  ASSERT_TRUE(pages != nullptr && gone != nullptr);
  pages[page - 1] = 'a';
  pages[page] = 0;
  ASSERT_TRUE(pf::ProtectReadOnly(pages + page, page));
  pf::UnmapPages(gone, page);
  void* block = nullptr;
  Storage::Allocate(&block, 77);
  const struct { const char* name; const void* p; UInt64 n; int badRead, badWrite; } rows[] = {
      {"heap block", block, 77, 0, 0},    {"guarded array", g.data(), 100, 0, 0},
      {"one more", g.data(), 101, 1, 1},  {"writable, read-only", pages + page - 1, 2, 0, 1},
      {"given back", gone, 1, 1, 1},      {"null", nullptr, 1, 1, 1},
      {"null, none", nullptr, 0, 0, 0}};
  for (const auto& r : rows) {
    EXPECT_EQ(Storage::TestBadReadPtr(r.p, r.n), r.badRead) << r.name;
    EXPECT_EQ(Storage::TestBadWritePtr(const_cast<void*>(r.p), r.n), r.badWrite) << r.name;
  }
  const struct { const char* p; UInt64 n; int bad; } texts[] = {
      {g.data(), 100, 0}, {g.data(), 101, 1}, {nullptr, 4, 1}, {pages + page - 1, 100, 0},
      {nul.data(), 1000, 0}};
  for (const auto& t : texts) EXPECT_EQ(Storage::TestBadStringPtr(t.p, t.n), t.bad) << t.n;
  Storage::Free(&block);
  pf::UnmapPages(pages, 2 * page);
}
}  // namespace
