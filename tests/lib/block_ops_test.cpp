// Lib entry points: fixed examples, units, odd addresses (the kernels: scan_kernels_itest.cpp).
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {
using brelt::test::GuardedArray, brelt::test::GuardSide;
using U64 = brelt::UInt64;

// Moves inside "abcdefgh", flush against a guard page; Word moves start at odd addresses.
TEST(LibMove, OverlapInBothDirectionsAndUnits) {
  void (*const moves[])(const void*, void*, U64) = {Lib::Move, Lib::WordMove, Lib::LongWordMove};
  const struct { int op, src, dst; U64 n; const char* after; } rows[] = {
      {0, 0, 1, 4, "aabcdfgh"}, {0, 1, 0, 4, "bcdeefgh"}, {0, 0, 2, 0, "abcdefgh"},
      {1, 1, 3, 2, "abcbcdeh"}, {1, 3, 1, 2, "adefgfgh"}, {1, 0, 2, 3, "ababcdef"},
      {2, 0, 3, 1, "abcabcdh"}, {2, 4, 0, 1, "efghefgh"}};
  for (const auto& r : rows) {
    GuardedArray<char> a(std::string_view("abcdefgh"));
    moves[r.op](a.data() + r.src, a.data() + r.dst, r.n);
    EXPECT_EQ(a.Raw(), r.after) << r.op << ": " << r.src << "->" << r.dst << " n=" << r.n;
  }
}

// Each fill over n units at every offset: nothing before it, the pattern (little-endian) inside.
TEST(LibFill, UniformAndMixedValuesAtAnyAlignment) {
  const struct { U64 unit, value; } fills[] = {{1, 0x7F}, {2, 0x4142}, {2, 0x4141}, {4, 0x1020304}};
  for (U64 k = 0; k < 28; ++k) {  // every n below at offsets 0 to 3
    const U64 n = std::initializer_list<U64>{0, 1, 3, 31, 32, 33, 100}.begin()[k / 4];
    for (const auto& f : fills) {
      GuardedArray<unsigned char> a(k % 4 + f.unit * n);
      std::string want(k % 4, '#');
      for (U64 i = 0; i < f.unit * n; ++i) want += char(f.value >> (8 * (i % f.unit)));
      unsigned char* p = a.data() + k % 4;
      f.unit == 1 ? Lib::Fill(p, n, f.value)
                  : f.unit == 2 ? Lib::WordFill(p, n, f.value) : Lib::LongWordFill(p, n, f.value);
      ASSERT_EQ(a.Raw(), want) << std::hex << f.value << " n=" << n << " at " << k % 4;
    }
  }
}

// Flush against guard pages; in the last row the difference is in the odd byte behind the Word.
TEST(LibCompare, CountsEqualLeadingUnits) {
  U64 (*const compares[])(const void*, const void*, U64) = {Lib::Compare, Lib::WordCompare};
  const struct { std::string_view a, b; int op; U64 n, want; } rows[] = {
      {"abcd", "abxd", 0, 4, 2}, {"ab", "ab", 0, 2, 2},     {"", "", 0, 0, 0},
      {"xbcd", "abcd", 0, 4, 0}, {"abcd", "abcx", 1, 2, 1}, {"abc", "abx", 1, 1, 1}};
  for (const auto& r : rows) {
    GuardedArray<char> a(r.a), b(r.b);
    EXPECT_EQ(compares[r.op](a.data(), b.data(), r.n), r.want) << r.a << " " << r.b << " " << r.op;
  }
}

// Rows: scan (R, NeR, L, NeL), n, value, result. Down-scans: odd address, from the top element.
template <class T, class Scan, std::size_t N>
void CheckScans(const T (&area)[5], const Scan (&scans)[4], const unsigned (&rows)[N][4]) {
  GuardedArray<unsigned char> up(sizeof area), down(1 + sizeof area, GuardSide::kFront);
  std::memcpy(up.data(), area, sizeof area);
  std::memcpy(down.data() + 1, area, sizeof area);
  for (const auto& [op, n, v, want] : rows) {
    const unsigned char* top = down.data() + 1 + (n == 0 ? 0 : n - 1) * sizeof(T);
    EXPECT_EQ(scans[op](op < 2 ? up.data() : top, n, T(v)), want) << op << " n=" << n << " " << v;
  }
}

TEST(LibScan, FixedBytesAndWholeWords) {
  const unsigned char bytes[5] = {'a', 'a', 'b', 'c', 'a'};
  CheckScans(bytes, {Lib::ScanR, Lib::ScanNeR, Lib::ScanL, Lib::ScanNeL},
             {{0, 5, 'b', 2}, {0, 5, 'z', 5}, {0, 2, 'b', 2}, {0, 5, 'a', 0}, {0, 0, 'a', 0},
              {1, 5, 'a', 2}, {2, 5, 'b', 2}, {2, 5, 'z', 5}, {3, 5, 'a', 1}});
  const unsigned short words[5] = {0x0141, 0x8041, 0x4100, 0x0041, 0x0141};
  CheckScans(words, {Lib::WordScanR, Lib::WordScanNeR, Lib::WordScanL, Lib::WordScanNeL},
             {{0, 5, 0x0041, 3}, {0, 5, 0x4101, 5}, {1, 5, 0x0141, 1}, {1, 5, 0x8041, 0},
              {2, 5, 0x8041, 3}, {2, 5, 0x0041, 1}, {3, 5, 0x0141, 1}, {3, 5, 0x0041, 0}});
}
}  // namespace
