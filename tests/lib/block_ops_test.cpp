// Lib moves, fills, compares and scans, the last two against plain loops over many lengths
// inside guard pages, where a read one element outside the area faults.
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>

#include "guarded_array.h"

namespace {

using brelt::test::GuardedArray;
using brelt::test::GuardSide;

TEST(LibMove, OverlapAndUnits) {
  const struct { int src, dst; std::uint64_t n; const char* after; } rows[] = {
      {0, 1, 4, "aabcd"}, {1, 0, 4, "bcdee"}, {0, 0, 5, "abcde"}, {0, 2, 0, "abcde"}};
  for (const auto& r : rows) {
    char buf[] = "abcde";
    Lib::Move(buf + r.src, buf + r.dst, r.n);
    EXPECT_EQ(std::string(buf, 5), r.after) << r.src << "->" << r.dst << " n=" << r.n;
  }
  // The unit scales the count; an overlapping Word move at an odd address, upwards.
  GuardedArray<unsigned char> dst(12);
  const unsigned char src[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  Lib::WordMove(src, dst.data(), 3);
  EXPECT_EQ(std::memcmp(dst.data(), src, 6), 0);
  EXPECT_EQ(dst[6], '#');
  Lib::LongWordMove(src, dst.data(), 3);
  EXPECT_EQ(std::memcmp(dst.data(), src, 12), 0);
  unsigned char b[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  const unsigned char want[9] = {1, 2, 3, 2, 3, 4, 5, 6, 7};
  Lib::WordMove(b + 1, b + 3, 3);
  EXPECT_EQ(std::memcmp(b, want, 9), 0);
}

// Each fill over n units at every offset: nothing before it, the pattern (little-endian) inside.
TEST(LibFill, UniformAndMixedValuesAtAnyAlignment) {
  const struct { int unit; std::uint32_t value; } fills[] = {
      {1, 0x7F}, {2, 0x4142}, {2, 0x4141}, {4, 0x01020304}};
  for (std::uint64_t n : {0u, 1u, 3u, 31u, 32u, 33u, 100u}) {
    for (int offset = 0; offset < 4; ++offset) {
      for (const auto& f : fills) {
        GuardedArray<unsigned char> a(offset + f.unit * n);
        unsigned char* p = a.data() + offset;
        if (f.unit == 1) Lib::Fill(p, n, static_cast<unsigned char>(f.value));
        if (f.unit == 2) Lib::WordFill(p, n, static_cast<std::uint16_t>(f.value));
        if (f.unit == 4) Lib::LongWordFill(p, n, f.value);
        for (int i = 0; i < offset; ++i) ASSERT_EQ(a[i], '#');
        for (std::uint64_t i = 0; i < f.unit * n; ++i) {
          ASSERT_EQ(unsigned{p[i]}, (f.value >> (8 * (i % f.unit))) & 0xFFu) << f.value << " " << n;
        }
      }
    }
  }
}

// Areas flush against guard pages, so that a compare reading past n faults; a difference in
// the odd last byte lies beyond the last whole Word.
TEST(LibCompare, FindsEveryDifference) {
  for (std::uint64_t n : {0u, 1u, 2u, 15u, 16u, 17u, 1023u, 1024u, 1025u, 4096u, 5000u}) {
    GuardedArray<unsigned char> a(n), b(n);
    for (std::uint64_t i = 0; i < n; ++i) a[i] = b[i] = static_cast<unsigned char>(i * 7);
    ASSERT_EQ(Lib::Compare(a.data(), b.data(), n), n);
    ASSERT_EQ(Lib::WordCompare(a.data(), b.data(), n / 2), n / 2);
    for (std::uint64_t at : {std::uint64_t{0}, n / 2, n - 1}) {
      if (at >= n) continue;
      b[at] ^= 0x80;
      ASSERT_EQ(Lib::Compare(a.data(), b.data(), n), at) << "n=" << n;
      ASSERT_EQ(Lib::WordCompare(a.data(), b.data(), n / 2), at / 2 < n / 2 ? at / 2 : n / 2);
      b[at] ^= 0x80;
    }
  }
}

// A Word scan given an odd address still steps in whole Words.
TEST(LibScan, WordScanAtAnOddAddress) {
  const unsigned char odd[7] = {0, 0x41, 0x41, 0x42, 0x42, 0x41, 0x42};
  EXPECT_EQ(Lib::WordScanR(odd + 1, 3, 0x4241), 2u);
  EXPECT_EQ(Lib::WordScanL(odd + 5, 3, 0x4141), 2u);
}

// Every scan against a walk one element at a time; up-scans get a guard behind the area,
// down-scans one in front of it. A small alphabet puts hits and misses everywhere; its values
// share their low byte, and one has the top bit set, so only whole unsigned units may match.
template <class T>
void CheckScansAgainstReference(std::mt19937& rng) {
  using Scan = std::uint64_t (*)(const void*, std::uint64_t, T);
  Scan r, l, ner, nel;
  if constexpr (sizeof(T) == 1) {
    r = Lib::ScanR, l = Lib::ScanL, ner = Lib::ScanNeR, nel = Lib::ScanNeL;
  } else {
    r = Lib::WordScanR, l = Lib::WordScanL, ner = Lib::WordScanNeR, nel = Lib::WordScanNeL;
  }
  auto ref = [](const T* p, std::uint64_t n, T v, int step, bool equal) {
    for (std::uint64_t i = 0; i < n; ++i) {
      if ((p[static_cast<std::int64_t>(i) * step] == v) == equal) return i;
    }
    return n;
  };
  constexpr T kTop = T(T(~T{0}) ^ (T(~T{0}) >> 1));
  const T kAlphabet[3] = {0x41, T(kTop | 0x41), T(0x41 + (sizeof(T) == 1 ? 1 : 0x100))};
  for (std::uint64_t n = 0; n < 140; ++n) {
    GuardedArray<T> back(n, GuardSide::kBack), front(n, GuardSide::kFront);
    for (int trial = 0; trial < 6; ++trial) {
      for (std::uint64_t i = 0; i < n; ++i) back[i] = front[i] = kAlphabet[rng() % 3];
      const T v = kAlphabet[rng() % 3];
      const T* top = front.data() + n - 1;
      ASSERT_EQ(r(back.data(), n, v), ref(back.data(), n, v, 1, true)) << n;
      ASSERT_EQ(ner(back.data(), n, v), ref(back.data(), n, v, 1, false)) << n;
      ASSERT_EQ(l(top, n, v), ref(top, n, v, -1, true)) << n;
      ASSERT_EQ(nel(top, n, v), ref(top, n, v, -1, false)) << n;
    }
  }
}

TEST(LibScan, AgreesWithPlainWalkWithinGuardPages) {
  std::mt19937 rng(12345);
  CheckScansAgainstReference<unsigned char>(rng);
  CheckScansAgainstReference<unsigned short>(rng);
}

}  // namespace
