// The walks behind the scan kernels, written once over the vector width. Sse2 is always
// there on x86-64; Avx2 and Avx512 exist in files compiled for them.
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <cstdint>
#include <type_traits>

#include "lib/page_room.h"

namespace brelt::scan {

// One bit per byte of a block, bit 0 for its lowest byte.
using Bits = std::uint64_t;

// The forward and backward walks load aligned blocks only. Such a block never crosses a page,
// so a walk may look at bytes beside its area (and beside the terminator of a string whose
// bound says more) without ever faulting; lanes outside the area are masked off. That is a
// deliberate read outside the object, hence no address sanitizing of
// the block loads.
#define BRELT_WHOLE_BLOCK_READS __attribute__((no_sanitize_address))

struct Sse2 {
  using V = __m128i;
  static constexpr unsigned kBytes = 16;
  BRELT_WHOLE_BLOCK_READS static V Load(const void* p) {
    return _mm_loadu_si128(static_cast<const V*>(p));
  }
  static V Splat(std::uint8_t v) { return _mm_set1_epi8(static_cast<char>(v)); }
  static V Splat(std::uint16_t v) { return _mm_set1_epi16(static_cast<short>(v)); }
  static V Eq(V a, V b, std::uint8_t) { return _mm_cmpeq_epi8(a, b); }
  static V Eq(V a, V b, std::uint16_t) { return _mm_cmpeq_epi16(a, b); }
  static V Or(V a, V b) { return _mm_or_si128(a, b); }
  static V And(V a, V b) { return _mm_and_si128(a, b); }
  static V Xor(V a, V b) { return _mm_xor_si128(a, b); }
  static V Min(V a, V b, std::uint8_t) { return _mm_min_epu8(a, b); }
  // SSE2 has no unsigned 16-bit minimum: a - (a - b, saturated at 0) is one.
  static V Min(V a, V b, std::uint16_t) { return _mm_sub_epi16(a, _mm_subs_epu16(a, b)); }
  static V Zero() { return _mm_setzero_si128(); }
  static constexpr Bits kFull = 0xFFFFu;
  static Bits Mask(V a) { return static_cast<std::uint32_t>(_mm_movemask_epi8(a)); }
  template <class T>
  static Bits ZeroLanes(V key) { return Mask(Eq(key, Zero(), T{})); }
};

#if defined(__AVX2__)
struct Avx2 {
  using V = __m256i;
  static constexpr unsigned kBytes = 32;
  BRELT_WHOLE_BLOCK_READS static V Load(const void* p) {
    return _mm256_loadu_si256(static_cast<const V*>(p));
  }
  static V Splat(std::uint8_t v) { return _mm256_set1_epi8(static_cast<char>(v)); }
  static V Splat(std::uint16_t v) { return _mm256_set1_epi16(static_cast<short>(v)); }
  static V Eq(V a, V b, std::uint8_t) { return _mm256_cmpeq_epi8(a, b); }
  static V Eq(V a, V b, std::uint16_t) { return _mm256_cmpeq_epi16(a, b); }
  static V Or(V a, V b) { return _mm256_or_si256(a, b); }
  static V And(V a, V b) { return _mm256_and_si256(a, b); }
  static V Xor(V a, V b) { return _mm256_xor_si256(a, b); }
  static V Min(V a, V b, std::uint8_t) { return _mm256_min_epu8(a, b); }
  static V Min(V a, V b, std::uint16_t) { return _mm256_min_epu16(a, b); }
  static V Zero() { return _mm256_setzero_si256(); }
  static constexpr Bits kFull = 0xFFFFFFFFu;
  static Bits Mask(V a) { return static_cast<std::uint32_t>(_mm256_movemask_epi8(a)); }
  template <class T>
  static Bits ZeroLanes(V key) { return Mask(Eq(key, Zero(), T{})); }
};
#endif

#if defined(__AVX512BW__)
// Compares land in mask registers here; Eq widens them back to lanes for the generic walks,
// while ZeroLanes, the test of the hot loops, stays in mask form.
struct Avx512 {
  using V = __m512i;
  static constexpr unsigned kBytes = 64;
  BRELT_WHOLE_BLOCK_READS static V Load(const void* p) { return _mm512_loadu_si512(p); }
  static V Splat(std::uint8_t v) { return _mm512_set1_epi8(static_cast<char>(v)); }
  static V Splat(std::uint16_t v) { return _mm512_set1_epi16(static_cast<short>(v)); }
  static V Eq(V a, V b, std::uint8_t) { return _mm512_movm_epi8(_mm512_cmpeq_epi8_mask(a, b)); }
  static V Eq(V a, V b, std::uint16_t) {
    return _mm512_movm_epi16(_mm512_cmpeq_epi16_mask(a, b));
  }
  static V Or(V a, V b) { return _mm512_or_si512(a, b); }
  static V And(V a, V b) { return _mm512_and_si512(a, b); }
  static V Xor(V a, V b) { return _mm512_xor_si512(a, b); }
  static V Min(V a, V b, std::uint8_t) { return _mm512_min_epu8(a, b); }
  static V Min(V a, V b, std::uint16_t) { return _mm512_min_epu16(a, b); }
  static V Zero() { return _mm512_setzero_si512(); }
  static constexpr Bits kFull = ~Bits{0};
  static Bits Mask(V a) { return _mm512_movepi8_mask(a); }
  template <class T>
  static Bits ZeroLanes(V key) {
    if constexpr (sizeof(T) == 1) return _mm512_testn_epi8_mask(key, key);
    else return Mask(_mm512_movm_epi16(_mm512_testn_epi16_mask(key, key)));
  }
};
#endif

// One element at a position that may be misaligned for its type (16-bit text at an odd
// address): loaded by bytes, since a plain access there is undefined.
template <class T>
inline T ElementAt(const T* p, std::int64_t i) {
  T v;
  __builtin_memcpy(&v, reinterpret_cast<const unsigned char*>(p) + i * std::int64_t{sizeof(T)},
                   sizeof(T));
  return v;
}

// A test turns a block into keys. With kHitIsZero the lanes that meet the test hold zero, so
// four blocks fold into one with an unsigned minimum; otherwise they hold non-zero and fold
// with OR. Hit() is the same test on one element.
template <class W, class T>
struct IsZero {
  static constexpr bool kHitIsZero = true;
  typename W::V Key(typename W::V x) const { return x; }
  bool Hit(T x) const { return x == T{0}; }
};

template <class W, class T>
struct IsValue {
  static constexpr bool kHitIsZero = true;
  typename W::V want;
  T value;
  explicit IsValue(T v) : want(W::Splat(v)), value(v) {}
  typename W::V Key(typename W::V x) const { return W::Xor(x, want); }
  bool Hit(T x) const { return x == value; }
};

template <class W, class T>
struct IsNotValue {
  static constexpr bool kHitIsZero = false;
  typename W::V want;
  T value;
  explicit IsNotValue(T v) : want(W::Splat(v)), value(v) {}
  typename W::V Key(typename W::V x) const { return W::Xor(x, want); }
  bool Hit(T x) const { return x != value; }
};

template <class W, class T>
struct IsZeroOrValue {
  static constexpr bool kHitIsZero = true;
  typename W::V want;
  T value;
  explicit IsZeroOrValue(T v) : want(W::Splat(v)), value(v) {}
  typename W::V Key(typename W::V x) const { return W::Min(x, W::Xor(x, want), T{}); }
  bool Hit(T x) const { return x == T{0} || x == value; }
};

template <class W, class T>
struct IsEither {
  static constexpr bool kHitIsZero = true;
  typename W::V a, b;
  T va, vb;
  IsEither(T x, T y) : a(W::Splat(x)), b(W::Splat(y)), va(x), vb(y) {}
  typename W::V Key(typename W::V x) const { return W::Min(W::Xor(x, a), W::Xor(x, b), T{}); }
  bool Hit(T x) const { return x == va || x == vb; }
};

template <class W, class T, class Test>
inline typename W::V Fold(typename W::V a, typename W::V b) {
  if constexpr (Test::kHitIsZero) return W::Min(a, b, T{});
  else return W::Or(a, b);
}

// Loads a block into a register once. Without the barrier the compiler folds the load into
// every instruction that uses the block, which doubles the loads of the two-value tests and
// makes the load ports the bottleneck.
template <class W>
BRELT_WHOLE_BLOCK_READS inline typename W::V LoadOnce(const std::uint8_t* at) {
  typename W::V v = W::Load(at);
  asm("" : "+x"(v));
  return v;
}

// One bit per byte of the block, set for the bytes of lanes that meet the test. 16-bit lanes
// are judged whole: a key lane is zero only when both of its bytes are.
template <class W, class T, class Test>
inline Bits LaneHits(typename W::V key) {
  const Bits zero = W::template ZeroLanes<T>(key);
  if constexpr (Test::kHitIsZero) return zero;
  else return ~zero & W::kFull;
}

template <class W>
inline const std::uint8_t* AlignDown(const void* p) {
  return reinterpret_cast<const std::uint8_t*>(reinterpret_cast<std::uintptr_t>(p) &
                                               ~std::uintptr_t{W::kBytes - 1});
}

// First element in p[0..n) that the test hits, or n.
template <class W, class T, class Test>
BRELT_WHOLE_BLOCK_READS inline std::uint64_t Forward(const T* p, std::uint64_t n,
                                                     const Test& test) {
  if (n == 0) return 0;
  if (reinterpret_cast<std::uintptr_t>(p) % sizeof(T) != 0) {
    // Elements that straddle lanes: one at a time.
    for (std::uint64_t i = 0; i < n; ++i) {
      if (test.Hit(ElementAt(p, i))) return i;
    }
    return n;
  }
  constexpr unsigned B = W::kBytes;
  const std::uint64_t bytes = n * sizeof(T);
  const std::uint8_t* block = AlignDown<W>(p);
  const unsigned skip = static_cast<unsigned>(reinterpret_cast<const std::uint8_t*>(p) - block);
  auto element = [n](std::uint64_t byte) { return std::min<std::uint64_t>(byte / sizeof(T), n); };

  // Bit j of a mask stands for byte `done + j` of the area once the first block is passed.
  auto hits = [&](const std::uint8_t* at) { return LaneHits<W, T, Test>(test.Key(W::Load(at))); };
  if (Bits m = hits(block) >> skip) {
    return element(static_cast<unsigned>(__builtin_ctzll(m)));
  }
  std::uint64_t done = B - skip;
  block += B;
  // The unrolled loop loads four blocks before it tests any. It starts on a four-block
  // boundary, so its loads stay on the page of the first: a walk that ends at a NUL just
  // before an unreadable page never touches that page.
  for (; done < bytes && reinterpret_cast<std::uintptr_t>(block) % (4 * B) != 0;
       done += B, block += B) {
    if (Bits m = hits(block)) {
      return element(done + static_cast<unsigned>(__builtin_ctzll(m)));
    }
  }
  for (; done < bytes && bytes - done >= 4 * B; done += 4 * B, block += 4 * B) {
    auto k0 = test.Key(LoadOnce<W>(block));
    auto k1 = test.Key(LoadOnce<W>(block + B));
    auto k2 = test.Key(LoadOnce<W>(block + 2 * B));
    auto k3 = test.Key(LoadOnce<W>(block + 3 * B));
    auto folded = Fold<W, T, Test>(Fold<W, T, Test>(k0, k1), Fold<W, T, Test>(k2, k3));
    if (LaneHits<W, T, Test>(folded) != 0) break;
  }
  for (; done < bytes; done += B, block += B) {
    if (Bits m = hits(block)) {
      return element(done + static_cast<unsigned>(__builtin_ctzll(m)));
    }
  }
  return n;
}

// Walking down from `last` over n elements: how many are passed before the first hit, or n.
template <class W, class T, class Test>
BRELT_WHOLE_BLOCK_READS inline std::uint64_t Backward(const T* last, std::uint64_t n,
                                                      const Test& test) {
  if (n == 0) return 0;
  if (reinterpret_cast<std::uintptr_t>(last) % sizeof(T) != 0) {
    for (std::uint64_t i = 0; i < n; ++i) {
      if (test.Hit(ElementAt(last, -static_cast<std::int64_t>(i)))) return i;
    }
    return n;
  }
  constexpr unsigned B = W::kBytes;
  const std::uint64_t bytes = n * sizeof(T);
  // `end` is one byte past the area; a hit at byte address `at` has (end - 1 - at) / size
  // elements above it.
  const std::uint8_t* end = reinterpret_cast<const std::uint8_t*>(last + 1);
  const std::uint8_t* block = AlignDown<W>(end - 1);
  auto passed = [&](const std::uint8_t* at) {
    return std::min<std::uint64_t>(static_cast<std::uint64_t>(end - 1 - at) / sizeof(T), n);
  };
  auto top = [](Bits m) { return 63u - static_cast<unsigned>(__builtin_clzll(m)); };

  auto hits = [&](const std::uint8_t* at) { return LaneHits<W, T, Test>(test.Key(W::Load(at))); };
  Bits m = hits(block);
  const unsigned valid = static_cast<unsigned>(end - block);  // 1..B bytes of the block
  if (valid < 64) m &= (Bits{1} << valid) - 1;
  if (m) return passed(block + top(m));
  std::uint64_t done = valid;
  for (block -= B; done < bytes; done += B, block -= B) {
    if (Bits mm = hits(block)) return passed(block + top(mm));
  }
  return n;
}

// How many of p[0..n) equal v; reads only the area.
template <class W, class T>
inline std::uint64_t Count(const T* p, std::uint64_t n, T v) {
  constexpr std::uint64_t per = W::kBytes / sizeof(T);
  const auto want = W::Splat(v);
  std::uint64_t lanes = 0;
  std::uint64_t i = 0;
  for (; n - i >= per; i += per) {
    lanes += static_cast<unsigned>(__builtin_popcountll(W::Mask(W::Eq(W::Load(p + i), want, T{}))));
  }
  std::uint64_t count = lanes / sizeof(T);
  for (; i < n; ++i) count += (ElementAt(p, i) == v);
  return count;
}

// Index of the first byte that differs between a[0..n) and b[0..n), or n. Only the bytes up to
// the first difference need be readable, and the areas need not share an alignment: blocks
// are read whole only where, on both sides, they end before the next page boundary, so no
// read reaches a page beyond the one that holds the difference. At a boundary one block that
// ends on it, overlapping bytes already found equal, takes the rest of the page.
template <class W>
inline std::uint64_t Mismatch(const std::uint8_t* a, const std::uint8_t* b, std::uint64_t n) {
  constexpr unsigned B = W::kBytes;
  constexpr Bits kAll = W::kFull;
  auto same = [&](std::uint64_t at) {
    return W::Mask(W::Eq(W::Load(a + at), W::Load(b + at), std::uint8_t{}));
  };
  std::uint64_t i = 0;
  while (i < n) {
    const std::uint64_t end = std::min(n, i + std::min(PageRoom(a + i), PageRoom(b + i)));
    for (; end - i >= 4 * B; i += 4 * B) {
      auto e0 = W::Eq(W::Load(a + i), W::Load(b + i), std::uint8_t{});
      auto e1 = W::Eq(W::Load(a + i + B), W::Load(b + i + B), std::uint8_t{});
      auto e2 = W::Eq(W::Load(a + i + 2 * B), W::Load(b + i + 2 * B), std::uint8_t{});
      auto e3 = W::Eq(W::Load(a + i + 3 * B), W::Load(b + i + 3 * B), std::uint8_t{});
      if (W::Mask(W::And(W::And(e0, e1), W::And(e2, e3))) != kAll) break;
    }
    for (; end - i >= B; i += B) {
      const Bits s = same(i);
      if (s != kAll) return i + static_cast<unsigned>(__builtin_ctzll(~s));
    }
    if (i == end) continue;
    if (end >= B) {
      // Lane j stands for byte end - B + j; those below i were compared before.
      const Bits differ = (~same(end - B) & kAll) >> (B - (end - i));
      if (differ) return i + static_cast<unsigned>(__builtin_ctzll(differ));
    } else {
      for (; i < end; ++i) {
        if (a[i] != b[i]) return i;
      }
    }
    i = end;
  }
  return n;
}

// The table entries for one width.
template <class W>
struct KernelSet {
  template <class T>
  static std::uint64_t FindEq(const T* p, std::uint64_t n, T v) {
    if (v == T{0}) return Forward<W>(p, n, IsZero<W, T>());
    return Forward<W>(p, n, IsValue<W, T>(v));
  }
  template <class T>
  static std::uint64_t FindNe(const T* p, std::uint64_t n, T v) {
    return Forward<W>(p, n, IsNotValue<W, T>(v));
  }
  template <class T>
  static std::uint64_t FindEither(const T* p, std::uint64_t n, T a, T b) {
    if (a == T{0}) return Forward<W>(p, n, IsZeroOrValue<W, T>(b));
    if (b == T{0}) return Forward<W>(p, n, IsZeroOrValue<W, T>(a));
    return Forward<W>(p, n, IsEither<W, T>(a, b));
  }
  template <class T>
  static std::uint64_t FindEqBack(const T* last, std::uint64_t n, T v) {
    return Backward<W>(last, n, IsValue<W, T>(v));
  }
  template <class T>
  static std::uint64_t FindNeBack(const T* last, std::uint64_t n, T v) {
    return Backward<W>(last, n, IsNotValue<W, T>(v));
  }
  template <class T>
  static std::uint64_t CountEq(const T* p, std::uint64_t n, T v) {
    return Count<W>(p, n, v);
  }
  static std::uint64_t FirstDifference(const std::uint8_t* a, const std::uint8_t* b,
                                       std::uint64_t n) {
    return Mismatch<W>(a, b, n);
  }
};

}  // namespace brelt::scan
