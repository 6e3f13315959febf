// Lib moves, fills, compares and scans on the fixed examples, plus every scan checked against
// a plain loop over many lengths and offsets inside guard pages, where a read one element
// outside the area faults.
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "guarded_array.h"

namespace {

using brelt::test::GuardedArray;
using brelt::test::GuardSide;

TEST(LibMove, OverlapInBothDirections) {
  struct Row {
    int src, dst;
    std::uint64_t n;
    const char* after;
  } rows[] = {
      {0, 1, 4, "aabcd"}, {1, 0, 4, "bcdee"}, {0, 0, 5, "abcde"}, {0, 2, 0, "abcde"},
      {0, 3, 2, "abcab"},
  };
  for (const Row& r : rows) {
    char buf[] = "abcde";
    Lib::Move(buf + r.src, buf + r.dst, r.n);
    EXPECT_EQ(std::string(buf, 5), r.after) << r.src << "->" << r.dst << " n=" << r.n;
  }
}

TEST(LibMove, UnitsScaleTheCount) {
  GuardedArray<unsigned char> dst(12);
  const unsigned char src[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  Lib::WordMove(src, dst.data(), 3);
  EXPECT_EQ(std::memcmp(dst.data(), src, 6), 0);
  EXPECT_EQ(dst[6], '#');
  Lib::LongWordMove(src, dst.data(), 3);
  EXPECT_EQ(std::memcmp(dst.data(), src, 12), 0);
  // Overlapping Word move at an odd address, upwards.
  unsigned char b[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  Lib::WordMove(b + 1, b + 3, 3);
  const unsigned char want[9] = {1, 2, 3, 2, 3, 4, 5, 6, 7};
  EXPECT_EQ(std::memcmp(b, want, 9), 0);
}

TEST(LibFill, UniformAndMixedValuesAtAnyAlignment) {
  for (std::uint64_t n : {0u, 1u, 3u, 31u, 32u, 33u, 100u}) {
    for (int offset = 0; offset < 4; ++offset) {
      GuardedArray<unsigned char> w(offset + 2 * n);
      Lib::WordFill(w.data() + offset, n, 0x4142);
      GuardedArray<unsigned char> l(offset + 4 * n);
      Lib::LongWordFill(l.data() + offset, n, 0x01020304);
      GuardedArray<unsigned char> u(offset + 2 * n);
      Lib::WordFill(u.data() + offset, n, 0x4141);
      GuardedArray<unsigned char> b(offset + n);
      Lib::Fill(b.data() + offset, n, 0x7F);
      for (int i = 0; i < offset; ++i) {
        ASSERT_EQ(w[i], '#');
        ASSERT_EQ(l[i], '#');
        ASSERT_EQ(b[i], '#');
      }
      for (std::uint64_t i = 0; i < n; ++i) {
        // Little-endian: 0x4142 is stored as 42 41.
        ASSERT_EQ(w[offset + 2 * i], 0x42);
        ASSERT_EQ(w[offset + 2 * i + 1], 0x41);
        ASSERT_EQ(u[offset + 2 * i], 0x41);
        ASSERT_EQ(u[offset + 2 * i + 1], 0x41);
        ASSERT_EQ(l[offset + 4 * i], 0x04);
        ASSERT_EQ(l[offset + 4 * i + 3], 0x01);
        ASSERT_EQ(b[offset + i], 0x7F);
      }
    }
  }
}

TEST(LibCompare, CountsEqualLeadingUnits) {
  struct Row {
    const char* a;
    const char* b;
    std::uint64_t n, bytes, words;
  } rows[] = {
      {"abcd", "abxd", 4, 2, 1}, {"abcd", "abxd", 2, 2, 1}, {"abcd", "abxd", 0, 0, 0},
      {"abcd", "abcd", 4, 4, 2}, {"xbcd", "abcd", 4, 0, 0}, {"abcd", "abcx", 4, 3, 1},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(Lib::Compare(r.a, r.b, r.n), r.bytes) << r.a << " " << r.b << " " << r.n;
    EXPECT_EQ(Lib::WordCompare(r.a, r.b, r.n / 2), r.words) << r.a << " " << r.b << " " << r.n;
  }
}

TEST(LibCompare, FindsEveryDifferenceInLongAreas) {
  // Areas flush against guard pages: a compare that reads past n faults.
  for (std::uint64_t n : {1u, 15u, 16u, 17u, 1023u, 1024u, 1025u, 4096u, 5000u}) {
    GuardedArray<unsigned char> a(n), b(n);
    for (std::uint64_t i = 0; i < n; ++i) a[i] = b[i] = static_cast<unsigned char>(i * 7);
    ASSERT_EQ(Lib::Compare(a.data(), b.data(), n), n);
    for (std::uint64_t at : {std::uint64_t{0}, n / 2, n - 1}) {
      b[at] ^= 0x80;
      ASSERT_EQ(Lib::Compare(a.data(), b.data(), n), at) << "n=" << n;
      ASSERT_EQ(Lib::WordCompare(a.data(), b.data(), n / 2), at / 2 < n / 2 ? at / 2 : n / 2);
      b[at] ^= 0x80;
    }
  }
}

// The examples on a, a, b, c, a.
TEST(LibScan, FiveByteExamples) {
  const unsigned char p[5] = {'a', 'a', 'b', 'c', 'a'};
  struct Row {
    const char* what;
    std::uint64_t got, want;
  } rows[] = {
      {"ScanR b", Lib::ScanR(p, 5, 'b'), 2},
      {"ScanR z", Lib::ScanR(p, 5, 'z'), 5},
      {"ScanR b n=2", Lib::ScanR(p, 2, 'b'), 2},
      {"ScanNeR a", Lib::ScanNeR(p, 5, 'a'), 2},
      {"ScanL b", Lib::ScanL(p + 4, 5, 'b'), 2},
      {"ScanNeL a", Lib::ScanNeL(p + 4, 5, 'a'), 1},
      {"ScanR first", Lib::ScanR(p, 5, 'a'), 0},
      {"ScanR n=0", Lib::ScanR(p, 0, 'b'), 0},
      {"ScanNeL n=0", Lib::ScanNeL(p + 4, 0, 'a'), 0},
  };
  for (const Row& r : rows) EXPECT_EQ(r.got, r.want) << r.what;
}

TEST(LibScan, WordScansCompareWholeUnsignedWords) {
  // 0x0141 and 0x4101 share bytes with 0x4141; only whole Words may match.
  const unsigned short p[6] = {0x0141, 0x4101, 0xFFFF, 0x4141, 0x4141, 0x8000};
  EXPECT_EQ(Lib::WordScanR(p, 6, 0x4141), 3u);
  EXPECT_EQ(Lib::WordScanR(p, 6, 0x8000), 5u);
  EXPECT_EQ(Lib::WordScanR(p, 6, 0x4100), 6u);
  EXPECT_EQ(Lib::WordScanL(p + 5, 6, 0xFFFF), 3u);
  EXPECT_EQ(Lib::WordScanNeR(p + 3, 2, 0x4141), 2u);
  EXPECT_EQ(Lib::WordScanNeL(p + 4, 5, 0x4141), 2u);
  // A scan given an odd address still steps in whole Words.
  unsigned char odd[7] = {0, 0x41, 0x41, 0x42, 0x42, 0x41, 0x42};
  EXPECT_EQ(Lib::WordScanR(odd + 1, 3, 0x4241), 2u);
}

// Reference walks, one element at a time.
template <class T>
std::uint64_t Ref(const T* p, std::uint64_t n, T v, bool up, bool equal) {
  for (std::uint64_t i = 0; i < n; ++i) {
    const T x = up ? p[i] : *(p - i);
    if ((x == v) == equal) return i;
  }
  return n;
}

template <class T>
void CheckScansAgainstReference(std::mt19937& rng) {
  using Scan = std::uint64_t (*)(const void*, std::uint64_t, T);
  Scan r, l, ner, nel;
  if constexpr (sizeof(T) == 1) {
    r = Lib::ScanR, l = Lib::ScanL, ner = Lib::ScanNeR, nel = Lib::ScanNeL;
  } else {
    r = Lib::WordScanR, l = Lib::WordScanL, ner = Lib::WordScanNeR, nel = Lib::WordScanNeL;
  }
  for (std::uint64_t n = 0; n < 140; ++n) {
    // Up-scans get a guard behind the area, down-scans one in front of it.
    GuardedArray<T> back(n, GuardSide::kBack), front(n, GuardSide::kFront);
    for (int trial = 0; trial < 6; ++trial) {
      // A small alphabet, so that hits and misses both occur at every position.
      for (std::uint64_t i = 0; i < n; ++i) back[i] = front[i] = static_cast<T>(rng() % 3);
      const T v = static_cast<T>(rng() % 3);
      const T* top = front.data() + n - 1;
      ASSERT_EQ(r(back.data(), n, v), Ref<T>(back.data(), n, v, true, true)) << n;
      ASSERT_EQ(ner(back.data(), n, v), Ref<T>(back.data(), n, v, true, false)) << n;
      ASSERT_EQ(l(top, n, v), Ref<T>(top, n, v, false, true)) << n;
      ASSERT_EQ(nel(top, n, v), Ref<T>(top, n, v, false, false)) << n;
    }
  }
}

TEST(LibScan, AgreesWithPlainWalkWithinGuardPages) {
  std::mt19937 rng(12345);
  CheckScansAgainstReference<unsigned char>(rng);
  CheckScansAgainstReference<unsigned short>(rng);
}

}  // namespace
