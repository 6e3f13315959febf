// Vector scans over 8-bit and 16-bit elements, shared by the Lib block operations and Str.
//
// Results are element counts: the index of the first element that meets the test (or, for the
// backward walks, how many elements lie above it), or `n` when none does. Short inputs are
// walked inline with 16-byte blocks; long ones go through a table chosen once for the CPU
// (64-byte blocks where AVX-512 exists, 32-byte ones where AVX2 does).
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

// The table for this CPU; the 16-byte one until load-time selection has run.
const Kernels& Active();
// Makes `k` the active table, so that tests can walk the library's text operations at every
// width the CPU offers.
void UseKernels(const Kernels& k);

// Below this many bytes the call through the table costs more than the wider blocks gain.
inline constexpr std::uint64_t kInlineBytes = 128;

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

template <Unit T>
inline std::uint64_t FindEq(const T* p, std::uint64_t n, T v) {
  if (n * sizeof(T) < kInlineBytes) return KernelSet<Sse2>::FindEq(AsRaw(p), n, AsRaw(v));
  if constexpr (sizeof(T) == 1) return Active().find_eq8(AsRaw(p), n, AsRaw(v));
  else return Active().find_eq16(AsRaw(p), n, AsRaw(v));
}

template <Unit T>
inline std::uint64_t FindNe(const T* p, std::uint64_t n, T v) {
  if (n * sizeof(T) < kInlineBytes) return KernelSet<Sse2>::FindNe(AsRaw(p), n, AsRaw(v));
  if constexpr (sizeof(T) == 1) return Active().find_ne8(AsRaw(p), n, AsRaw(v));
  else return Active().find_ne16(AsRaw(p), n, AsRaw(v));
}

template <Unit T>
inline std::uint64_t FindEither(const T* p, std::uint64_t n, T a, T b) {
  if (n * sizeof(T) < kInlineBytes) {
    return KernelSet<Sse2>::FindEither(AsRaw(p), n, AsRaw(a), AsRaw(b));
  }
  if constexpr (sizeof(T) == 1) return Active().find_either8(AsRaw(p), n, AsRaw(a), AsRaw(b));
  else return Active().find_either16(AsRaw(p), n, AsRaw(a), AsRaw(b));
}

// Backward walks start at `last`, the highest element of the area.
template <Unit T>
inline std::uint64_t FindEqBackward(const T* last, std::uint64_t n, T v) {
  if (n * sizeof(T) < kInlineBytes) {
    return KernelSet<Sse2>::FindEqBack(AsRaw(last), n, AsRaw(v));
  }
  if constexpr (sizeof(T) == 1) return Active().find_eq_back8(AsRaw(last), n, AsRaw(v));
  else return Active().find_eq_back16(AsRaw(last), n, AsRaw(v));
}

template <Unit T>
inline std::uint64_t FindNeBackward(const T* last, std::uint64_t n, T v) {
  if (n * sizeof(T) < kInlineBytes) {
    return KernelSet<Sse2>::FindNeBack(AsRaw(last), n, AsRaw(v));
  }
  if constexpr (sizeof(T) == 1) return Active().find_ne_back8(AsRaw(last), n, AsRaw(v));
  else return Active().find_ne_back16(AsRaw(last), n, AsRaw(v));
}

// How many of p[0..n) equal v.
template <Unit T>
inline std::uint64_t CountEq(const T* p, std::uint64_t n, T v) {
  if (n * sizeof(T) < kInlineBytes) return KernelSet<Sse2>::CountEq(AsRaw(p), n, AsRaw(v));
  if constexpr (sizeof(T) == 1) return Active().count_eq8(AsRaw(p), n, AsRaw(v));
  else return Active().count_eq16(AsRaw(p), n, AsRaw(v));
}

// Index of the first byte that differs between a[0..n) and b[0..n), or n.
inline std::uint64_t FirstDifference(const std::uint8_t* a, const std::uint8_t* b,
                                     std::uint64_t n) {
  if (n < kInlineBytes) return KernelSet<Sse2>::FirstDifference(a, b, n);
  return Active().first_difference(a, b, n);
}

}  // namespace brelt::scan
