// Vector scans over 8-bit and 16-bit elements, shared by the Lib block operations and Str.
//
// Results are element counts: the index of the first element that meets the test (or, for the
// backward walks, how many elements lie above it), or `n` when none does. The first 16 bytes
// are looked at inline; the rest goes through a table chosen once for the CPU (64-byte blocks
// where AVX-512 exists, 32-byte ones where AVX2 does).
#pragma once

#include <cstdint>

#include "scan_walks.h"

namespace brelt::scan {

// Kernels for one vector width, instantiated once per width in its own file.
struct Kernels {
  std::uint64_t (*find_eq8)(const std::uint8_t*, std::uint64_t, std::uint8_t);
  std::uint64_t (*find_ne8)(const std::uint8_t*, std::uint64_t, std::uint8_t);
  std::uint64_t (*find_either8)(const std::uint8_t*, std::uint64_t, std::uint8_t, std::uint8_t);
  std::uint64_t (*find_eq_back8)(const std::uint8_t*, std::uint64_t, std::uint8_t);
  std::uint64_t (*find_ne_back8)(const std::uint8_t*, std::uint64_t, std::uint8_t);
  std::uint64_t (*count_eq8)(const std::uint8_t*, std::uint64_t, std::uint8_t);
  std::uint64_t (*find_eq16)(const std::uint16_t*, std::uint64_t, std::uint16_t);
  std::uint64_t (*find_ne16)(const std::uint16_t*, std::uint64_t, std::uint16_t);
  std::uint64_t (*find_either16)(const std::uint16_t*, std::uint64_t, std::uint16_t,
                                 std::uint16_t);
  std::uint64_t (*find_eq_back16)(const std::uint16_t*, std::uint64_t, std::uint16_t);
  std::uint64_t (*find_ne_back16)(const std::uint16_t*, std::uint64_t, std::uint16_t);
  std::uint64_t (*count_eq16)(const std::uint16_t*, std::uint64_t, std::uint16_t);
  std::uint64_t (*first_difference)(const std::uint8_t*, const std::uint8_t*, std::uint64_t);
};

// The widest vector width this CPU runs. May be called while the library is still being
// loaded, before its static objects exist.
Width CpuWidth();

// Of three forms of one thing, the one for width w; also for choosers that run while the
// library loads.
template <class F>
[[gnu::no_sanitize_address]] F ForWidth(Width w, F sse2, F avx2, F avx512) {
  switch (w) {
    case Width::kAvx512: return avx512;
    case Width::kAvx2: return avx2;
    default: return sse2;
  }
}
template <class F>
[[gnu::no_sanitize_address]] F ForCpu(F sse2, F avx2, F avx512) {
  return ForWidth(CpuWidth(), sse2, avx2, avx512);
}

// The member Name of Bodies<w>, a class template over the width with one body per width.
#define BRELT_BODY_AT_WIDTH(w, Bodies, Name)                                       \
  ::brelt::scan::ForWidth(w, &Bodies<::brelt::scan::Width::kSse2>::Name,           \
                          &Bodies<::brelt::scan::Width::kAvx2>::Name,              \
                          &Bodies<::brelt::scan::Width::kAvx512>::Name)

// The table for this CPU; the 16-byte one until load-time selection has run. A plain variable
// rather than a call, so that the entries below reach their kernel with two loads.
extern const Kernels* activeKernels;
inline const Kernels& Active() { return *activeKernels; }
// Makes `k` the active table, so that tests can walk the library's text operations at every
// width the CPU offers.
void UseKernels(const Kernels& k);

template <class T>
concept Unit = sizeof(T) == 1 || sizeof(T) == 2;

template <Unit T>
using Raw = std::conditional_t<sizeof(T) == 1, std::uint8_t, std::uint16_t>;

template <Unit T>
inline const Raw<T>* AsRaw(const T* p) {
  return reinterpret_cast<const Raw<T>*>(p);
}
template <Unit T>
inline Raw<T> AsRaw(T v) {
  return static_cast<Raw<T>>(v);
}

// Most texts are short, also in long arrays, so the entries first look at the 16 bytes at p
// with one unaligned load, inline and without the table: that answers whenever the area ends
// or the test hits within them. The load is taken where it stays on the page of p and the
// elements sit in whole lanes (never for an empty area, which may stand at an unreadable
// page); elsewhere, and past the front, the table's walk does it all.
inline constexpr unsigned kFrontBytes = 16;

template <Unit T>
inline bool FrontLoadable(const T* p) {
  return PageRoom(p) >= kFrontBytes && reinterpret_cast<std::uintptr_t>(p) % sizeof(T) == 0;
}

// Bits of the 16 front bytes whose lanes meet the test.
template <Unit T, class Test>
[[gnu::always_inline]] inline Bits FrontHits(const T* p, const Test& test) {
  return LaneHits<Sse2, Raw<T>, Test>(test.Key(Sse2::Load(p)));
}

// Forward: the first element in p[0..n) that the test hits, or n; `rest` is the table's walk.
template <Unit T, class Test, class Rest>
[[gnu::always_inline]] inline std::uint64_t ForwardFront(const T* p, std::uint64_t n,
                                                         const Test& test, Rest rest) {
  constexpr std::uint64_t per = kFrontBytes / sizeof(T);
  if (n == 0 || !FrontLoadable(p)) return rest(p, n);
  Bits m = FrontHits(p, test);
  // A hit just past the area's end stands for "none".
  if (n <= per) m |= Bits{1} << (n * sizeof(T));
  if (m) return static_cast<unsigned>(__builtin_ctzll(m)) / sizeof(T);
  return per + rest(p + per, n - per);
}

// Backward from `last`: how many elements are passed before the first hit, or n.
template <Unit T, class Test, class Rest>
[[gnu::always_inline]] inline std::uint64_t BackwardFront(const T* last, std::uint64_t n,
                                                          const Test& test, Rest rest) {
  constexpr std::uint64_t per = kFrontBytes / sizeof(T);
  // The 16 bytes that end with `last`; on the page of `last` whenever they are on one page.
  const T* low = last + 1 - per;
  if (n == 0 || !FrontLoadable(low)) return rest(last, n);
  Bits m = FrontHits(low, test);
  // Bit 15 is the top byte of `last`; below the area a hit stands for "none".
  if (n < per) m |= Bits{1} << (kFrontBytes - 1 - n * sizeof(T));
  if (m) return (kFrontBytes - 1 - (63u - static_cast<unsigned>(__builtin_clzll(m)))) / sizeof(T);
  return per + rest(last - per, n - per);
}

template <Unit T>
[[gnu::always_inline]] inline std::uint64_t FindEq(const T* p, std::uint64_t n, T v) {
  const auto rest = [v](const T* q, std::uint64_t m) -> std::uint64_t {
    if constexpr (sizeof(T) == 1) return Active().find_eq8(AsRaw(q), m, AsRaw(v));
    else return Active().find_eq16(AsRaw(q), m, AsRaw(v));
  };
  if (v == T{0}) return ForwardFront(p, n, IsZero<Sse2, Raw<T>>(), rest);
  return ForwardFront(p, n, IsValue<Sse2, Raw<T>>(AsRaw(v)), rest);
}

template <Unit T>
[[gnu::always_inline]] inline std::uint64_t FindNe(const T* p, std::uint64_t n, T v) {
  const auto rest = [v](const T* q, std::uint64_t m) -> std::uint64_t {
    if constexpr (sizeof(T) == 1) return Active().find_ne8(AsRaw(q), m, AsRaw(v));
    else return Active().find_ne16(AsRaw(q), m, AsRaw(v));
  };
  return ForwardFront(p, n, IsNotValue<Sse2, Raw<T>>(AsRaw(v)), rest);
}

template <Unit T>
[[gnu::always_inline]] inline std::uint64_t FindEither(const T* p, std::uint64_t n, T a, T b) {
  const auto rest = [a, b](const T* q, std::uint64_t m) -> std::uint64_t {
    if constexpr (sizeof(T) == 1) return Active().find_either8(AsRaw(q), m, AsRaw(a), AsRaw(b));
    else return Active().find_either16(AsRaw(q), m, AsRaw(a), AsRaw(b));
  };
  if (a == T{0}) return ForwardFront(p, n, IsZeroOrValue<Sse2, Raw<T>>(AsRaw(b)), rest);
  return ForwardFront(p, n, IsEither<Sse2, Raw<T>>(AsRaw(a), AsRaw(b)), rest);
}

// Backward walks start at `last`, the highest element of the area.
template <Unit T>
[[gnu::always_inline]] inline std::uint64_t FindEqBackward(const T* last, std::uint64_t n, T v) {
  const auto rest = [v](const T* q, std::uint64_t m) -> std::uint64_t {
    if constexpr (sizeof(T) == 1) return Active().find_eq_back8(AsRaw(q), m, AsRaw(v));
    else return Active().find_eq_back16(AsRaw(q), m, AsRaw(v));
  };
  return BackwardFront(last, n, IsValue<Sse2, Raw<T>>(AsRaw(v)), rest);
}

template <Unit T>
[[gnu::always_inline]] inline std::uint64_t FindNeBackward(const T* last, std::uint64_t n, T v) {
  const auto rest = [v](const T* q, std::uint64_t m) -> std::uint64_t {
    if constexpr (sizeof(T) == 1) return Active().find_ne_back8(AsRaw(q), m, AsRaw(v));
    else return Active().find_ne_back16(AsRaw(q), m, AsRaw(v));
  };
  return BackwardFront(last, n, IsNotValue<Sse2, Raw<T>>(AsRaw(v)), rest);
}

// How many of p[0..n) equal v.
template <Unit T>
[[gnu::always_inline]] inline std::uint64_t CountEq(const T* p, std::uint64_t n, T v) {
  if (n - 1 < kFrontBytes / sizeof(T) && FrontLoadable(p)) {
    const Bits inArea = (Bits{1} << (n * sizeof(T))) - 1;
    // Bits counted by halves, as the base instruction set has no population count.
    Bits m = FrontHits(p, IsValue<Sse2, Raw<T>>(AsRaw(v))) & inArea;
    m = m - ((m >> 1) & 0x5555);
    m = (m & 0x3333) + ((m >> 2) & 0x3333);
    m = (m + (m >> 4)) & 0x0F0F;
    return ((m + (m >> 8)) & 0x1F) / sizeof(T);
  }
  if constexpr (sizeof(T) == 1) return Active().count_eq8(AsRaw(p), n, AsRaw(v));
  else return Active().count_eq16(AsRaw(p), n, AsRaw(v));
}

// Index of the first byte that differs between a[0..n) and b[0..n), or n. Two front blocks
// here: a compare of 16 Words is as common as one of 16 bytes.
[[gnu::always_inline]] inline std::uint64_t FirstDifference(const std::uint8_t* a,
                                                             const std::uint8_t* b,
                                                             std::uint64_t n) {
  constexpr unsigned kFront = 2 * kFrontBytes;
  if (n == 0 || PageRoom(a) < kFront || PageRoom(b) < kFront) {
    return Active().first_difference(a, b, n);
  }
  auto differ = [&](unsigned at) {
    return ~Sse2::Mask(Sse2::Eq(Sse2::Load(a + at), Sse2::Load(b + at), std::uint8_t{})) &
           Sse2::kFull;
  };
  Bits d = differ(0) | differ(kFrontBytes) << kFrontBytes;
  if (n <= kFront) d |= Bits{1} << n;
  if (d) return static_cast<unsigned>(__builtin_ctzll(d));
  return kFront + Active().first_difference(a + kFront, b + kFront, n - kFront);
}

// The scans as a text operation calls them, picked by a template argument: through the table
// chosen at load, after the inline front (Dispatched), or at one width fixed when the file is
// compiled (Fixed), for bodies that are bound to the CPU at load.
struct Dispatched {
  static constexpr bool kDefers = false;
  template <Unit T>
  static std::uint64_t FindEither(const T* p, std::uint64_t n, T a, T b) {
    return scan::FindEither(p, n, a, b);
  }
};

// With kDefer, every scan that would need the long walks gives kLong instead, for a body that
// answers short texts inline and leaves the rest to a call of its own.
template <Width w, bool kDefer = false>
struct Fixed {
  static constexpr bool kDefers = kDefer;
  using K = KernelSet<typename VectorOf<w>::type, kDefer>;
  template <Unit T>
  [[gnu::always_inline]] static std::uint64_t FindEq(const T* p, std::uint64_t n, T v) {
    return K::FindEq(AsRaw(p), n, AsRaw(v));
  }
  template <Unit T>
  [[gnu::always_inline]] static std::uint64_t FindNe(const T* p, std::uint64_t n, T v) {
    return K::FindNe(AsRaw(p), n, AsRaw(v));
  }
  template <Unit T>
  [[gnu::always_inline]] static std::uint64_t FindEither(const T* p, std::uint64_t n, T a, T b) {
    return K::FindEither(AsRaw(p), n, AsRaw(a), AsRaw(b));
  }
  template <Unit T>
  [[gnu::always_inline]] static std::uint64_t FindEqBackward(const T* last, std::uint64_t n, T v) {
    return K::FindEqBack(AsRaw(last), n, AsRaw(v));
  }
  template <Unit T>
  [[gnu::always_inline]] static std::uint64_t FindNeBackward(const T* last, std::uint64_t n, T v) {
    return K::FindNeBack(AsRaw(last), n, AsRaw(v));
  }
  template <Unit T>
  [[gnu::always_inline]] static std::uint64_t CountEq(const T* p, std::uint64_t n, T v) {
    return K::CountEq(AsRaw(p), n, AsRaw(v));
  }
  template <Unit T>
  [[gnu::always_inline]] static std::uint64_t LastBeforeEnd(const T* p, std::uint64_t n, T v,
                                                            std::uint64_t none) {
    return K::LastBeforeEnd(AsRaw(p), n, AsRaw(v), none);
  }
  [[gnu::always_inline]] static std::uint64_t FirstDifference(const std::uint8_t* a,
                                                              const std::uint8_t* b,
                                                              std::uint64_t n) {
    return K::FirstDifference(a, b, n);
  }
};

// An operation at one width whose scans all take the long walks, as a call of its own.
template <class R, Width w, class Op, class... A>
[[gnu::noinline]] R LongRun(A... a) {
  return static_cast<R>(Op::template Run<Fixed<w>>(a...));
}

// An operation at one width, `Op::Run` over the scans it is given: answered inline where its
// scans need no long walk, by LongRun otherwise. That call is the body's last step, so the
// body needs no frame (any other call in it makes GCC set up an aligned one on every call).
template <class R, Width w, class Op, class... A>
[[gnu::always_inline]] inline R ShortRun(A... a) {
  const std::uint64_t r = Op::template Run<Fixed<w, true>>(a...);
  if (r != kLong) [[likely]] return static_cast<R>(r);
  return LongRun<R, w, Op>(a...);
}

}  // namespace brelt::scan
