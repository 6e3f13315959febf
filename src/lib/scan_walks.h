// The walks behind the scan kernels, written once over the vector width. Sse2 is always
// there on x86-64; Avx2 and Avx512 exist in files compiled for them.
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <cstdint>
#include <type_traits>

#include "lib/page_room.h"

namespace brelt::scan {

// The vector widths that walks are compiled for.
enum class Width { kSse2, kAvx2, kAvx512 };

// One bit per byte of a block, bit 0 for its lowest byte.
using Bits = std::uint64_t;

// The lowest `count` bits of m, for a count up to 64.
inline Bits LowBits(Bits m, unsigned count) {
#if defined(__BMI2__)
  return _bzhi_u64(m, count);
#else
  return count >= 64 ? m : m & ((Bits{1} << count) - 1);
#endif
}

// The walks read only blocks that lie on the page of a byte they must look at anyway (the
// next one not yet found clean), so they may look at bytes beside the area (and beside the
// terminator of a string whose bound says more) without ever faulting; lanes outside the area
// are masked off or count as none. That is a deliberate read outside the object, hence no
// address sanitizing of the block loads.
#define BRELT_WHOLE_BLOCK_READS __attribute__((no_sanitize_address))

// The block loads themselves. A sanitizing compiler checks a load that is inlined into a
// checked function whatever the load's own attribute says, so there they stay calls.
#if defined(__SANITIZE_ADDRESS__)
#define BRELT_BLOCK_LOAD BRELT_WHOLE_BLOCK_READS __attribute__((noinline))
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define BRELT_BLOCK_LOAD BRELT_WHOLE_BLOCK_READS __attribute__((noinline))
#endif
#endif
#ifndef BRELT_BLOCK_LOAD
#define BRELT_BLOCK_LOAD BRELT_WHOLE_BLOCK_READS
#endif

// The walks' small helpers are lambdas; in the largest walks the compiler would otherwise
// leave some as calls, and a call there spills the vector registers to an aligned frame.
#define BRELT_INLINE_LAMBDA __attribute__((always_inline))

struct Sse2 {
  using V = __m128i;
  static constexpr unsigned kBytes = 16;
  BRELT_BLOCK_LOAD static V Load(const void* p) {
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
  BRELT_BLOCK_LOAD static V Load(const void* p) {
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
  BRELT_BLOCK_LOAD static V Load(const void* p) { return _mm512_loadu_si512(p); }
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

// The vector type of a width, where the file is compiled for it.
template <Width w>
struct VectorOf;
template <>
struct VectorOf<Width::kSse2> {
  using type = Sse2;
};
#if defined(__AVX2__)
template <>
struct VectorOf<Width::kAvx2> {
  using type = Avx2;
};
#endif
#if defined(__AVX512BW__)
template <>
struct VectorOf<Width::kAvx512> {
  using type = Avx512;
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

template <class W, class T, class Test>
[[gnu::always_inline]] inline Bits BlockHits(const std::uint8_t* at, const Test& test) {
  return LaneHits<W, T, Test>(test.Key(W::Load(at)));
}

// The keys of the four blocks at `at` folded into one: a lane of it meets the test exactly
// when that lane meets it in some block.
template <class W, class T, class Test>
[[gnu::always_inline]] inline typename W::V GroupKey(const std::uint8_t* at, const Test& test) {
  constexpr unsigned B = W::kBytes;
  auto k0 = test.Key(LoadOnce<W>(at));
  auto k1 = test.Key(LoadOnce<W>(at + B));
  auto k2 = test.Key(LoadOnce<W>(at + 2 * B));
  auto k3 = test.Key(LoadOnce<W>(at + 3 * B));
  return Fold<W, T, Test>(Fold<W, T, Test>(k0, k1), Fold<W, T, Test>(k2, k3));
}

// Whether the test hits anywhere in the four blocks at `at`, or (Pair) in the eight.
template <class W, class T, class Test>
[[gnu::always_inline]] inline bool GroupHit(const std::uint8_t* at, const Test& test) {
  return LaneHits<W, T, Test>(GroupKey<W, T>(at, test)) != 0;
}
template <class W, class T, class Test>
[[gnu::always_inline]] inline bool PairHit(const std::uint8_t* at, const Test& test) {
  const auto folded =
      Fold<W, T, Test>(GroupKey<W, T>(at, test), GroupKey<W, T>(at + 4 * W::kBytes, test));
  return LaneHits<W, T, Test>(folded) != 0;
}

// Byte offset from `at` of the first hit in the four blocks there, or 4 * B when they hold
// none: one test for all four, then the blocks' own keys, not loaded again, say where.
template <class W, class T, class Test>
[[gnu::always_inline]] inline unsigned GroupFirst(const std::uint8_t* at, const Test& test) {
  constexpr unsigned B = W::kBytes;
  const auto k0 = test.Key(LoadOnce<W>(at));
  const auto k1 = test.Key(LoadOnce<W>(at + B));
  const auto k2 = test.Key(LoadOnce<W>(at + 2 * B));
  const auto k3 = test.Key(LoadOnce<W>(at + 3 * B));
  auto hits = [](typename W::V key) BRELT_INLINE_LAMBDA { return LaneHits<W, T, Test>(key); };
  auto ctz = [](Bits m) BRELT_INLINE_LAMBDA { return static_cast<unsigned>(__builtin_ctzll(m)); };
  // Most groups a walk reads hold no hit.
  if (hits(Fold<W, T, Test>(Fold<W, T, Test>(k0, k1), Fold<W, T, Test>(k2, k3))) == 0)
      [[likely]] {
    return 4 * B;
  }
  if constexpr (B <= 32) {
    // Two blocks' bits fit in one word.
    if (const Bits low = hits(k0) | hits(k1) << B) return ctz(low);
    return 2 * B + ctz(hits(k2) | hits(k3) << B);
  } else {
    if (const Bits m = hits(k0)) return ctz(m);
    if (const Bits m = hits(k1)) return B + ctz(m);
    if (const Bits m = hits(k2)) return 2 * B + ctz(m);
    return 3 * B + ctz(hits(k3));
  }
}

// Byte offset from `at` of the first hit in blocks known to hold one.
template <class W, class T, class Test>
[[gnu::always_inline]] inline unsigned FirstHit(const std::uint8_t* at, const Test& test) {
  unsigned k = 0;
  Bits m;
  while ((m = BlockHits<W, T>(at + k, test)) == 0) k += W::kBytes;
  return k + static_cast<unsigned>(__builtin_ctzll(m));
}

// Byte offset from `at` of the last hit in the `blocks` blocks there, known to hold one.
template <class W, class T, class Test>
[[gnu::always_inline]] inline unsigned LastHit(const std::uint8_t* at, unsigned blocks,
                                               const Test& test) {
  unsigned k = (blocks - 1) * W::kBytes;
  Bits m;
  while ((m = BlockHits<W, T>(at + k, test)) == 0) k -= W::kBytes;
  return k + 63u - static_cast<unsigned>(__builtin_clzll(m));
}

// The rest of an area of more than one and up to eight blocks, whose page holds it whole and
// whose first block (at its start; for AreaLastRest, the one that ends with it) was found
// clean: read in one test, covered by blocks from the start and blocks that end with the
// area, overlapping in the middle, so that no lane outside the area is looked at. Offset of
// the first hit (for AreaLastRest: bytes from the top down to the last hit), or `size` when
// there is none.
template <class W, class T, class Test>
[[gnu::always_inline]] inline std::uint64_t AreaRest(const std::uint8_t* at, std::uint64_t size,
                                                     const Test& test) {
  constexpr unsigned B = W::kBytes;
  auto fold = [](auto x, auto y) BRELT_INLINE_LAMBDA { return Fold<W, T, Test>(x, y); };
  auto key = [&](std::uint64_t off) BRELT_INLINE_LAMBDA {
    return test.Key(LoadOnce<W>(at + off));
  };
  auto first = [&](std::uint64_t off) BRELT_INLINE_LAMBDA {
    return BlockHits<W, T>(at + off, test);
  };
  auto ctz = [](Bits m) BRELT_INLINE_LAMBDA {
    return static_cast<unsigned>(__builtin_ctzll(m));
  };
  const std::uint64_t tail = size - B;  // the block that ends with the area
  if (size <= 2 * B) {
    const Bits m = first(tail);
    return m ? tail + ctz(m) : size;
  }
  if (size <= 4 * B) {
    if (LaneHits<W, T, Test>(fold(key(B), fold(key(tail - B), key(tail)))) == 0) return size;
    if (Bits m = first(B)) return B + ctz(m);
    if (Bits m = first(tail - B)) return tail - B + ctz(m);
    return tail + ctz(first(tail));
  }
  const std::uint64_t high = size - 4 * B;  // the group that ends with the area
  auto folded = fold(fold(key(B), fold(key(2 * B), key(3 * B))), GroupKey<W, T>(at + high, test));
  if (LaneHits<W, T, Test>(folded) == 0) return size;
  for (std::uint64_t off = B; off < 4 * B; off += B) {
    if (Bits m = first(off)) return off + ctz(m);
  }
  return high + FirstHit<W, T>(at + high, test);
}

// `end` is one past the area.
template <class W, class T, class Test>
[[gnu::always_inline]] inline std::uint64_t AreaLastRest(const std::uint8_t* end,
                                                         std::uint64_t size, const Test& test) {
  constexpr unsigned B = W::kBytes;
  auto fold = [](auto x, auto y) BRELT_INLINE_LAMBDA { return Fold<W, T, Test>(x, y); };
  // Blocks are named by how far their start lies below end.
  auto key = [&](std::uint64_t down) BRELT_INLINE_LAMBDA {
    return test.Key(LoadOnce<W>(end - down));
  };
  auto hits = [&](std::uint64_t down) BRELT_INLINE_LAMBDA {
    return BlockHits<W, T>(end - down, test);
  };
  auto below = [](std::uint64_t down, Bits m) BRELT_INLINE_LAMBDA {
    return down - 1 - (63u - static_cast<unsigned>(__builtin_clzll(m)));
  };
  if (size <= 2 * B) {
    const Bits m = hits(size);
    return m ? below(size, m) : size;
  }
  if (size <= 4 * B) {
    if (LaneHits<W, T, Test>(fold(key(2 * B), fold(key(size - B), key(size)))) == 0) return size;
    if (Bits m = hits(2 * B)) return below(2 * B, m);
    if (Bits m = hits(size - B)) return below(size - B, m);
    return below(size, hits(size));
  }
  const std::uint8_t* low = end - size;
  auto folded =
      fold(fold(key(2 * B), fold(key(3 * B), key(4 * B))), GroupKey<W, T>(low, test));
  if (LaneHits<W, T, Test>(folded) == 0) return size;
  for (std::uint64_t down = 2 * B; down <= 4 * B; down += B) {
    if (Bits m = hits(down)) return below(down, m);
  }
  return size - 1 - LastHit<W, T>(low, 4, test);
}

// The address one past an area of `bytes` from `at`, held at the top of the address space for
// counts that no memory has.
inline std::uintptr_t AreaEnd(const void* at, std::uint64_t bytes) {
  const auto a = reinterpret_cast<std::uintptr_t>(at);
  return bytes > ~a ? ~std::uintptr_t{0} : a + bytes;
}

// First element in p[0..n) that the test hits, or n, for areas that KernelSet::Up does not
// answer.
//
// After a first look where p stands (eight blocks, four, or the block that holds p, as its
// page has room), the walk tests groups of four blocks that start on a multiple of the group
// size: such a group never crosses a page, so every group read starts before the area's end
// and lies on the page of a byte the walk must look at. A walk that ends at a NUL just before
// an unreadable page never touches that page. Lanes before p are masked off (bytes read twice
// were clean, which does no harm); hits past the area's end count as none.
template <class W, class T, class Test>
[[gnu::always_inline]] BRELT_WHOLE_BLOCK_READS inline std::uint64_t Forward(const T* p,
                                                                           std::uint64_t n,
                                                                           const Test& test) {
  if (reinterpret_cast<std::uintptr_t>(p) % sizeof(T) != 0) {
    // Elements that straddle lanes: one at a time.
    for (std::uint64_t i = 0; i < n; ++i) {
      if (test.Hit(ElementAt(p, i))) return i;
    }
    return n;
  }
  constexpr unsigned B = W::kBytes;
  constexpr unsigned G = 4 * B;
  const auto* base = reinterpret_cast<const std::uint8_t*>(p);
  const std::uintptr_t start = reinterpret_cast<std::uintptr_t>(p);
  auto element = [&](std::uintptr_t at) BRELT_INLINE_LAMBDA {
    return std::min<std::uint64_t>((at - start) / sizeof(T), n);
  };
  auto bytes = [](std::uintptr_t at) BRELT_INLINE_LAMBDA {
    return reinterpret_cast<const std::uint8_t*>(at);
  };
  if (n == 0) return 0;

  const std::uint64_t room = PageRoom(base);
  const std::uintptr_t areaEnd = AreaEnd(p, n * sizeof(T));
  const std::uint64_t size = areaEnd - start;
  std::uintptr_t at;  // everything below is clean
  if (room >= 2 * G && size > G) {
    // Up to eight blocks tested at once: the whole of most areas of a few hundred bytes.
    if (PairHit<W, T>(base, test)) return element(start + FirstHit<W, T>(base, test));
    if (size <= 2 * G) return n;
    at = (start + 2 * G) & ~std::uintptr_t{G - 1};
  } else if (room >= G) {
    if (const unsigned k = GroupFirst<W, T>(base, test); k < G) return element(start + k);
    if (size <= G) return n;
    at = (start + G) & ~std::uintptr_t{G - 1};
  } else {
    const std::uint8_t* block = AlignDown<W>(base);
    if (Bits m = BlockHits<W, T>(block, test) >> (base - block)) {
      return element(start + static_cast<unsigned>(__builtin_ctzll(m)));
    }
    at = reinterpret_cast<std::uintptr_t>(block) + B;
    // Single blocks up to the next group boundary.
    for (; at % G != 0; at += B) {
      if (at >= areaEnd) return n;
      if (Bits m = BlockHits<W, T>(bytes(at), test)) {
        return element(at + static_cast<unsigned>(__builtin_ctzll(m)));
      }
    }
  }
  for (; at < areaEnd; at += G) {
    if (const unsigned k = GroupFirst<W, T>(bytes(at), test); k < G) return element(at + k);
  }
  return n;
}

// Walking down from `last` over n elements: how many are passed before the first hit, or n,
// for areas that KernelSet::Down does not answer. The mirror of Forward: after the first look
// that ends where the area does, groups end on multiples of the group size.
template <class W, class T, class Test>
[[gnu::always_inline]] BRELT_WHOLE_BLOCK_READS inline std::uint64_t Backward(const T* last,
                                                                            std::uint64_t n,
                                                                            const Test& test) {
  if (reinterpret_cast<std::uintptr_t>(last) % sizeof(T) != 0) {
    for (std::uint64_t i = 0; i < n; ++i) {
      if (test.Hit(ElementAt(last, -static_cast<std::int64_t>(i)))) return i;
    }
    return n;
  }
  constexpr unsigned B = W::kBytes;
  constexpr unsigned G = 4 * B;
  // `end` is one byte past the area; a hit at byte `end - 1 - k` has k / size elements above.
  const std::uintptr_t end = reinterpret_cast<std::uintptr_t>(last + 1);
  auto passed = [&](std::uintptr_t at) BRELT_INLINE_LAMBDA {
    return std::min<std::uint64_t>((end - 1 - at) / sizeof(T), n);
  };
  auto bytes = [](std::uintptr_t at) BRELT_INLINE_LAMBDA {
    return reinterpret_cast<const std::uint8_t*>(at);
  };
  auto top = [](Bits m) BRELT_INLINE_LAMBDA {
    return 63u - static_cast<unsigned>(__builtin_clzll(m));
  };
  if (n == 0) return 0;

  const std::uint64_t room = PageOffset(reinterpret_cast<const void*>(end - 1)) + 1;
  const std::uint64_t size = n * sizeof(T);
  const std::uintptr_t areaLow = size > end ? 0 : end - size;
  const std::uint64_t span = end - areaLow;
  std::uintptr_t at;  // everything from here up to end is clean
  if (room >= 2 * G && span > G) {
    const std::uintptr_t low = end - 2 * G;
    if (PairHit<W, T>(bytes(low), test)) return passed(low + LastHit<W, T>(bytes(low), 8, test));
    if (span <= 2 * G) return n;
    at = (low + G - 1) & ~std::uintptr_t{G - 1};
  } else if (room >= G) {
    if (GroupHit<W, T>(bytes(end - G), test)) {
      return passed(end - G + LastHit<W, T>(bytes(end - G), 4, test));
    }
    if (span <= G) return n;
    at = (end - 1) & ~std::uintptr_t{G - 1};  // the group boundary at or above end - G
  } else {
    const std::uintptr_t block = (end - 1) & ~std::uintptr_t{B - 1};
    const unsigned valid = static_cast<unsigned>(end - block);  // 1..B bytes of the block
    if (const Bits m = LowBits(BlockHits<W, T>(bytes(block), test), valid)) {
      return passed(block + top(m));
    }
    for (at = block; at % G != 0; at -= B) {
      if (at <= areaLow) return n;
      if (Bits hit = BlockHits<W, T>(bytes(at - B), test)) return passed(at - B + top(hit));
    }
  }
  for (; at > areaLow; at -= G) {
    if (GroupHit<W, T>(bytes(at - G), test)) {
      return passed(at - G + LastHit<W, T>(bytes(at - G), 4, test));
    }
  }
  return n;
}

// How many of p[0..n) equal v; reads only the area, and the page of its end.
template <class W, class T>
[[gnu::always_inline]] inline std::uint64_t Count(const T* p, std::uint64_t n, T v) {
  constexpr std::uint64_t per = W::kBytes / sizeof(T);
  const auto want = W::Splat(v);
  auto hits = [&](const T* at) BRELT_INLINE_LAMBDA {
    return W::Mask(W::Eq(W::Load(at), want, T{}));
  };
  std::uint64_t lanes = 0;
  std::uint64_t i = 0;
  for (; n - i >= 4 * per; i += 4 * per) {
    lanes += static_cast<unsigned>(__builtin_popcountll(hits(p + i))) +
             static_cast<unsigned>(__builtin_popcountll(hits(p + i + per))) +
             static_cast<unsigned>(__builtin_popcountll(hits(p + i + 2 * per))) +
             static_cast<unsigned>(__builtin_popcountll(hits(p + i + 3 * per)));
  }
  for (; n - i >= per; i += per) {
    lanes += static_cast<unsigned>(__builtin_popcountll(hits(p + i)));
  }
  if (i < n && reinterpret_cast<std::uintptr_t>(p) % sizeof(T) == 0) {
    const unsigned rest = static_cast<unsigned>((n - i) * sizeof(T));
    if (n >= per) {
      // The block that ends with the area; its lanes below i were counted already.
      lanes += static_cast<unsigned>(__builtin_popcountll(hits(p + n - per) >> (W::kBytes - rest)));
      i = n;
    } else if (PageRoom(p + i) >= W::kBytes) {
      lanes += static_cast<unsigned>(__builtin_popcountll(LowBits(hits(p + i), rest)));
      i = n;
    }
  }
  std::uint64_t count = lanes / sizeof(T);
  for (; i < n; ++i) count += (ElementAt(p, i) == v);
  return count;
}

// What a path for short areas (MismatchShort, the fronts) returns when it cannot answer: the
// area is longer than it reads, or not where it may read it.
inline constexpr std::uint64_t kLong = ~std::uint64_t{0};

// Index of the first byte that differs between a[0..n) and b[0..n), or n, for n of at least a
// block where both areas are readable whole: read in blocks from the start and blocks that end
// with the areas, as AreaRest, up to four at once, then four at a time (from where a's blocks
// are aligned). Only one side goes through a register, so the other's loads can be parts of
// the compares.
template <class W>
[[gnu::always_inline]] inline std::uint64_t SpanMismatch(const std::uint8_t* a,
                                                         const std::uint8_t* b,
                                                         std::uint64_t n) {
  constexpr unsigned B = W::kBytes;
  auto eq = [&](std::uint64_t at) BRELT_INLINE_LAMBDA {
    return W::Eq(LoadOnce<W>(a + at), W::Load(b + at), std::uint8_t{});
  };
  auto same = [&](std::uint64_t at, auto... more) BRELT_INLINE_LAMBDA {
    auto all = eq(at);
    ((all = W::And(all, eq(more))), ...);
    return W::Mask(all) == W::kFull;
  };
  const std::uint64_t tail = n - B;  // the block that ends with the areas
  std::uint64_t at = 0;              // where the search for the difference starts
  if (n <= 2 * B) {
    if (same(0, tail)) return n;
  } else if (n <= 4 * B) {
    if (same(0, B, tail - B, tail)) return n;
  } else if (n <= 8 * B) {
    if (same(0, B, 2 * B, 3 * B)) {
      at = n - 4 * B;
      if (same(at, at + B, at + 2 * B, at + 3 * B)) return n;
    }
  } else if (same(0, B, 2 * B, 3 * B)) {
    // The next groups start where a's blocks are aligned: a load that straddles two cache
    // lines costs about two, and where a is not aligned, half of its loads would.
    at = 4 * B - reinterpret_cast<std::uintptr_t>(a) % B;
    for (; at < n - 4 * B; at += 4 * B) {
      if (!same(at, at + B, at + 2 * B, at + 3 * B)) break;
    }
    if (at >= n - 4 * B) {
      // One to four blocks are left: only those are read, in blocks that end with the areas
      // (where they differ, the walk below starts from the first of them).
      const std::uint64_t rest = n - at;
      at = std::min(at, tail);
      if (rest <= B) {
        if (same(tail)) return n;
      } else if (rest <= 2 * B) {
        if (same(tail - B, tail)) return n;
      } else if (rest <= 3 * B) {
        if (same(tail - 2 * B, tail - B, tail)) return n;
      } else if (same(tail - 3 * B, tail - 2 * B, tail - B, tail)) {
        return n;
      }
    }
  }
  // The walk loads its blocks afresh: were `at` known here, the compiler would keep the
  // blocks of the groups above in registers for it, at a cost in every round of their loop.
  asm("" : "+r"(at));
  for (;; at = std::min(at + B, tail)) {
    const Bits d = ~W::Mask(eq(at)) & W::kFull;
    if (d) return at + static_cast<unsigned>(__builtin_ctzll(d));
  }
}

// Mismatch for areas that lie whole on the pages of their starts (and one block from there),
// without a frame: kLong for any other.
template <class W>
[[gnu::always_inline]] inline std::uint64_t MismatchShort(const std::uint8_t* a,
                                                          const std::uint8_t* b,
                                                          std::uint64_t n) {
  constexpr unsigned B = W::kBytes;
  // Where the nearer page end of the two lies.
  const std::uint64_t offset = std::max(PageOffset(a), PageOffset(b));
  if (n - 1 < B) {
    if (offset > 4096 - B) return kLong;
    // One block; a difference past the area's end stands for none.
    Bits d = ~W::Mask(W::Eq(W::Load(a), W::Load(b), std::uint8_t{})) & W::kFull;
    if constexpr (B < 64) d |= Bits{1} << n;
    else if (n < B) d |= Bits{1} << n;
    return d ? static_cast<unsigned>(__builtin_ctzll(d)) : n;
  }
  if (n == 0 || offset + n > 4096) return kLong;
  return SpanMismatch<W>(a, b, n);
}

// Index of the first byte that differs between a[0..n) and b[0..n), or n. Only the bytes up to
// the first difference need be readable, and the areas need not share an alignment. The areas
// are compared in spans that end where a page of either does (or at n): a span is readable
// whole once all before it was found equal, since its pages hold a byte that must be read.
// A span shorter than a block is read with the block that ends with it, whose bytes before
// the span were found equal, or byte by byte at the very start.
template <class W>
[[gnu::noinline]] inline std::uint64_t Mismatch(const std::uint8_t* a, const std::uint8_t* b,
                                                std::uint64_t n) {
  constexpr unsigned B = W::kBytes;
  for (std::uint64_t i = 0; i < n;) {
    const std::uint64_t span = std::min({PageRoom(a + i), PageRoom(b + i), n - i});
    if (span >= B) {
      const std::uint64_t d = SpanMismatch<W>(a + i, b + i, span);
      if (d < span) return i + d;
    } else if (i >= B - span) {
      // Lane j stands for byte i + span - B + j; those below i were compared before.
      const std::uint64_t end = i + span;
      const Bits d = ~W::Mask(W::Eq(W::Load(a + end - B), W::Load(b + end - B), std::uint8_t{})) &
                     W::kFull;
      if (const Bits in = d >> (B - span)) return i + static_cast<unsigned>(__builtin_ctzll(in));
    } else {
      for (std::uint64_t k = i; k < i + span; ++k) {
        if (a[k] != b[k]) return k;
      }
    }
    i += span;
  }
  return n;
}

// The table entries for one width; inline in the bodies that are compiled per width. With
// kDefer, what the long walks would answer is left to the caller: kLong.
template <class W, bool kDefer = false>
struct KernelSet {
  template <class T>
  [[gnu::always_inline]] static std::uint64_t FindEq(const T* p, std::uint64_t n, T v) {
    // Zero, which texts end with, needs no value to compare against.
    if (v == T{0}) [[unlikely]] return Up<IsZero<W, T>>(p, n);
    return Up<IsValue<W, T>>(p, n, v);
  }
  template <class T>
  [[gnu::always_inline]] static std::uint64_t FindNe(const T* p, std::uint64_t n, T v) {
    return Up<IsNotValue<W, T>>(p, n, v);
  }
  template <class T>
  [[gnu::always_inline]] static std::uint64_t FindEither(const T* p, std::uint64_t n, T a, T b) {
    if (a == T{0}) return Up<IsZeroOrValue<W, T>>(p, n, b);
    if (b == T{0}) [[unlikely]] return Up<IsZeroOrValue<W, T>>(p, n, a);
    return Up<IsEither<W, T>>(p, n, a, b);
  }
  template <class T>
  [[gnu::always_inline]] static std::uint64_t FindEqBack(const T* last, std::uint64_t n, T v) {
    return Down<IsValue<W, T>>(last, n, v);
  }
  template <class T>
  [[gnu::always_inline]] static std::uint64_t FindNeBack(const T* last, std::uint64_t n, T v) {
    return Down<IsNotValue<W, T>>(last, n, v);
  }
  template <class T>
  [[gnu::always_inline]] static std::uint64_t CountEq(const T* p, std::uint64_t n, T v) {
    if (kDefer && n > 8 * W::kBytes / sizeof(T)) return kLong;
    return Count<W>(p, n, v);
  }
  // For a text in p[0..n) that ends at its first zero (or at n): the index of its last
  // element equal to v (which is not zero), or `none` when it holds none, where the block at p
  // holds the text's end and its page holds the block; kLong otherwise.
  template <class T>
  [[gnu::always_inline]] static std::uint64_t LastBeforeEnd(const T* p, std::uint64_t n, T v,
                                                            std::uint64_t none) {
    constexpr unsigned B = W::kBytes;
    if (n == 0 || PageOffset(p) > 4096 - B || reinterpret_cast<std::uintptr_t>(p) % sizeof(T) != 0)
        [[unlikely]] {
      return kLong;
    }
    const auto x = W::Load(p);
    const Bits zeros = W::template ZeroLanes<T>(x);
    const Bits hits = W::Mask(W::Eq(x, W::Splat(v), T{}));
    const unsigned inArray = static_cast<unsigned>(std::min<std::uint64_t>(n * sizeof(T), B));
    if (zeros == 0 && inArray == B) [[unlikely]] return kLong;
    // Lanes in the array and up to the first zero (all of them where there is none); the
    // zero's own lanes hold no hit.
    const Bits found = LowBits(hits, inArray) & (zeros ^ (zeros - 1));
    return found ? (63u - static_cast<unsigned>(__builtin_clzll(found))) / sizeof(T) : none;
  }
  [[gnu::always_inline]] static std::uint64_t FirstDifference(const std::uint8_t* a,
                                                              const std::uint8_t* b,
                                                              std::uint64_t n) {
    const std::uint64_t i = MismatchShort<W>(a, b, n);
    if (kDefer || i != kLong) return i;
    return Mismatch<W>(a, b, n);
  }

 private:
  // The block where the area starts (for Down: the one that ends with it) is looked at
  // first, where its page holds it: most texts end there, also in long arrays. Areas of up
  // to eight blocks that their page holds whole are answered here too, and so (Up, where the
  // long walk is left to the caller) is a longer area whose first eight blocks hold a hit,
  // all without a frame; the long walks are calls of their own, made last (told how many
  // elements were found clean, so that the call is the entry's last step).
  template <class Test, class T, class... Values>
  [[gnu::always_inline]] static std::uint64_t Up(const T* p, std::uint64_t n, Values... v) {
    constexpr unsigned B = W::kBytes;
    constexpr std::uint64_t per = B / sizeof(T);
    const auto* at = reinterpret_cast<const std::uint8_t*>(p);
    if (n == 0) return 0;
    if (PageOffset(at) > 4096 - B || reinterpret_cast<std::uintptr_t>(p) % sizeof(T) != 0)
        [[unlikely]] {
      return kDefer ? kLong : UpLong<Test>(p, n, 0, v...);
    }
    const Test test(v...);
    const Bits m = BlockHits<W, T>(at, test);
    // A hit just past the area's end stands for "none".
    auto first = [](Bits hits) BRELT_INLINE_LAMBDA {
      return static_cast<unsigned>(__builtin_ctzll(hits)) / sizeof(T);
    };
    if (n < per) return first(m | Bits{1} << (n * sizeof(T)));
    if (m) return first(m);
    if (n == per) return n;
    const std::uint64_t size = n * sizeof(T);
    const std::uint64_t room = PageRoom(at);
    if (size <= 8 * B && room >= size) return AreaRest<W, T>(at, size, test) / sizeof(T);
    if constexpr (!kDefer) {
      // The long walk's own front reads the next blocks as well as anything here would.
      return UpLong<Test>(p, n, per, v...);
    } else {
      if (size <= 8 * B || room < 8 * B) return kLong;
      // A longer area, mostly an array that holds a shorter text. Deferring means walking
      // again from the start, so its end is looked for in the next blocks first: one by one,
      // as it may lie in any of them, then four at once.
      if (Bits hit = BlockHits<W, T>(at + B, test)) return first(hit) + per;
      if (Bits hit = BlockHits<W, T>(at + 2 * B, test)) return first(hit) + 2 * per;
      if (Bits hit = BlockHits<W, T>(at + 3 * B, test)) return first(hit) + 3 * per;
      const unsigned k = GroupFirst<W, T>(at + 4 * B, test);
      return k < 4 * B ? (4 * B + k) / sizeof(T) : kLong;
    }
  }
  template <class Test, class T, class... Values>
  [[gnu::noinline]] static std::uint64_t UpLong(const T* p, std::uint64_t n, std::uint64_t done,
                                                Values... v) {
    return done + Forward<W>(p + done, n - done, Test(v...));
  }
  template <class Test, class T, class... Values>
  [[gnu::always_inline]] static std::uint64_t Down(const T* last, std::uint64_t n, Values... v) {
    constexpr unsigned B = W::kBytes;
    constexpr std::uint64_t per = B / sizeof(T);
    const auto* end = reinterpret_cast<const std::uint8_t*>(last + 1);
    if (n == 0) return 0;
    // The bytes of the page of `last` up to and including it.
    const std::uint64_t room = PageOffset(end - 1) + 1;
    if (room < B || reinterpret_cast<std::uintptr_t>(last) % sizeof(T) != 0) [[unlikely]] {
      return kDefer ? kLong : DownLong<Test>(last, n, 0, v...);
    }
    const Test test(v...);
    const Bits m = BlockHits<W, T>(end - B, test);
    auto passed = [](Bits hits) BRELT_INLINE_LAMBDA {
      return (B - 1 - (63u - static_cast<unsigned>(__builtin_clzll(hits)))) / sizeof(T);
    };
    // Bit B - 1 is the top byte of `last`; below the area a hit stands for "none".
    if (n < per) return passed(m | Bits{1} << (B - 1 - n * sizeof(T)));
    if (m) return passed(m);
    if (n == per) return n;
    if (n <= 8 * per && room >= n * sizeof(T)) {
      return AreaLastRest<W, T>(end, n * sizeof(T), test) / sizeof(T);
    }
    return kDefer ? kLong : DownLong<Test>(last, n, per, v...);
  }
  template <class Test, class T, class... Values>
  [[gnu::noinline]] static std::uint64_t DownLong(const T* last, std::uint64_t n,
                                                  std::uint64_t done, Values... v) {
    return done + Backward<W>(last - done, n - done, Test(v...));
  }
};

}  // namespace brelt::scan
