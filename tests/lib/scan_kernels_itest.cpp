// Every kernel table this CPU can run, against element-by-element walks: lengths around the
// block and unroll sizes, start offsets within a block, areas flush against guard pages on the
// side the walk moves towards.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "guarded_array.h"
#include "kernel_tables.h"

namespace {

namespace scan = brelt::scan;
using scan::Kernels;
using brelt::test::GuardedArray;
using brelt::test::GuardSide;

using Table = brelt::test::KernelTable;
const auto Runnable = brelt::test::RunnableKernelTables;

// Index of the first of n elements, stepping by `step` from p, that `hit` takes; n if none.
template <class T, class Hit>
std::uint64_t Walk(const T* p, std::uint64_t n, int step, Hit hit) {
  for (std::uint64_t i = 0; i < n; ++i) {
    if (hit(p[static_cast<std::int64_t>(i) * step])) return i;
  }
  return n;
}

template <class T>
struct Entries {
  using Scan = std::uint64_t (*)(const T*, std::uint64_t, T);
  Scan eq, ne, eq_back, ne_back, count;
  std::uint64_t (*either)(const T*, std::uint64_t, T, T);
};
Entries<std::uint8_t> Of8(const Kernels& k) {
  return {k.find_eq8, k.find_ne8, k.find_eq_back8, k.find_ne_back8, k.count_eq8, k.find_either8};
}
Entries<std::uint16_t> Of16(const Kernels& k) {
  return {k.find_eq16, k.find_ne16, k.find_eq_back16, k.find_ne_back16, k.count_eq16,
          k.find_either16};
}

template <class T>
void Check(const Table& table, Entries<T> k, std::mt19937& rng) {
  std::vector<std::uint64_t> lengths;
  for (std::uint64_t i = 0; i <= 70; ++i) lengths.push_back(i);
  for (std::uint64_t i : {127, 128, 129, 255, 256, 257, 300, 511, 512, 513, 777, 1024, 1025}) {
    lengths.push_back(i);
  }
  lengths.push_back(2100);
  const T base = 5, nine = 9, zero = 0;
  for (std::uint64_t n : lengths) {
    for (std::uint64_t offset : {0u, 1u, 7u, 31u, 33u}) {
      // Walks up get a guard behind the area, walks down one in front of it.
      GuardedArray<T> up(n + offset, GuardSide::kBack), down(n + offset, GuardSide::kFront);
      const T* p = up.data() + offset;
      const T* last = down.data() + n - 1;
      for (int trial = 0; trial < 3; ++trial) {
        // Mostly one value, a few others (zero among them) at random places, so that the first
        // hit lands anywhere, including in the last lanes.
        for (std::uint64_t i = 0; i < n + offset; ++i) {
          const auto r = rng() % (n + 8);
          up[i] = down[i] = r == 0 ? zero : r == 1 ? nine : r == 2 ? static_cast<T>(0xA5) : base;
        }
        const std::string at = std::string(table.name) + " n=" + std::to_string(n) +
                               " offset=" + std::to_string(offset);
        for (T v : {zero, base, nine, static_cast<T>(0xA5)}) {
          auto eq = [v](T x) { return x == v; };
          auto ne = [v](T x) { return x != v; };
          ASSERT_EQ(k.eq(p, n, v), Walk(p, n, 1, eq)) << at;
          ASSERT_EQ(k.ne(p, n, v), Walk(p, n, 1, ne)) << at;
          for (T w : {zero, nine}) {
            ASSERT_EQ(k.either(p, n, w, v), Walk(p, n, 1, [&](T x) { return x == w || eq(x); }))
                << at;
          }
          if (n > 0) {
            ASSERT_EQ(k.eq_back(last, n, v), Walk(last, n, -1, eq)) << at;
            ASSERT_EQ(k.ne_back(last, n, v), Walk(last, n, -1, ne)) << at;
          }
          std::uint64_t count = 0;
          for (std::uint64_t i = 0; i < n; ++i) count += p[i] == v;
          ASSERT_EQ(k.count(p, n, v), count) << at;
        }
      }
    }
  }
}

TEST(ScanKernels, EveryTableAgreesWithPlainWalks) {
  std::mt19937 rng(2024);
  for (const Table& t : Runnable()) {
    Check<std::uint8_t>(t, Of8(*t.kernels), rng);
    Check<std::uint16_t>(t, Of16(*t.kernels), rng);
  }
}

TEST(ScanKernels, FirstDifferenceAtEveryPlace) {
  for (const Table& t : Runnable()) {
    for (std::uint64_t n : {0u, 1u, 15u, 16u, 63u, 64u, 65u, 200u, 256u, 257u, 1000u}) {
      GuardedArray<std::uint8_t> a(n), b(n);
      for (std::uint64_t i = 0; i < n; ++i) a[i] = b[i] = static_cast<std::uint8_t>(i * 13);
      ASSERT_EQ(t.kernels->first_difference(a.data(), b.data(), n), n) << t.name;
      for (std::uint64_t at = 0; at < n; at += (n > 100 ? 7 : 1)) {
        b[at] = static_cast<std::uint8_t>(b[at] + 1);
        ASSERT_EQ(t.kernels->first_difference(a.data(), b.data(), n), at) << t.name << " n=" << n;
        b[at] = a[at];
      }
    }
  }
}

}  // namespace
