// The exported compares and scans of memory blocks at one vector width. Each width's file
// compiles them (scan_kernels_<width>.cpp), and the exports are bound to one of them at load.
#pragma once

#include "brelt/config.h"
#include "scan_kernels.h"

namespace brelt::scan {

template <Width w>
struct BlockScans {
  using Byte = unsigned char;
  using Word = unsigned short;
  static UInt64 Compare(const void* a, const void* b, UInt64 n);
  static UInt64 WordCompare(const void* a, const void* b, UInt64 n);
  static UInt64 ScanR(const void* p, UInt64 n, Byte value);
  static UInt64 ScanL(const void* p, UInt64 n, Byte value);
  static UInt64 ScanNeR(const void* p, UInt64 n, Byte value);
  static UInt64 ScanNeL(const void* p, UInt64 n, Byte value);
  static UInt64 WordScanR(const void* p, UInt64 n, Word value);
  static UInt64 WordScanL(const void* p, UInt64 n, Word value);
  static UInt64 WordScanNeR(const void* p, UInt64 n, Word value);
  static UInt64 WordScanNeL(const void* p, UInt64 n, Word value);

 private:
  static const std::uint8_t* Bytes(const void* p) { return static_cast<const std::uint8_t*>(p); }
  static const std::uint16_t* Words(const void* p) {
    return static_cast<const std::uint16_t*>(p);
  }
};

extern template struct BlockScans<Width::kSse2>;
extern template struct BlockScans<Width::kAvx2>;
extern template struct BlockScans<Width::kAvx512>;

template <Width w>
UInt64 BlockScans<w>::Compare(const void* a, const void* b, UInt64 n) {
  return Fixed<w>::FirstDifference(Bytes(a), Bytes(b), n);
}
// Two Words are equal exactly when both of their bytes are, so the first differing byte
// names the first differing Word.
struct WordCompareOp {
  template <class S>
  [[gnu::always_inline]] static std::uint64_t Run(const void* a, const void* b, UInt64 n) {
    const std::uint64_t i = S::FirstDifference(static_cast<const std::uint8_t*>(a),
                                               static_cast<const std::uint8_t*>(b), 2 * n);
    if (S::kDefers && i == kLong) return kLong;
    return i / 2;
  }
};
template <Width w>
UInt64 BlockScans<w>::WordCompare(const void* a, const void* b, UInt64 n) {
  return ShortRun<UInt64, w, WordCompareOp>(a, b, n);
}
template <Width w>
UInt64 BlockScans<w>::ScanR(const void* p, UInt64 n, Byte value) {
  return Fixed<w>::FindEq(Bytes(p), n, value);
}
template <Width w>
UInt64 BlockScans<w>::ScanL(const void* p, UInt64 n, Byte value) {
  return Fixed<w>::FindEqBackward(Bytes(p), n, value);
}
template <Width w>
UInt64 BlockScans<w>::ScanNeR(const void* p, UInt64 n, Byte value) {
  return Fixed<w>::FindNe(Bytes(p), n, value);
}
template <Width w>
UInt64 BlockScans<w>::ScanNeL(const void* p, UInt64 n, Byte value) {
  return Fixed<w>::FindNeBackward(Bytes(p), n, value);
}
template <Width w>
UInt64 BlockScans<w>::WordScanR(const void* p, UInt64 n, Word value) {
  return Fixed<w>::FindEq(Words(p), n, value);
}
template <Width w>
UInt64 BlockScans<w>::WordScanL(const void* p, UInt64 n, Word value) {
  return Fixed<w>::FindEqBackward(Words(p), n, value);
}
template <Width w>
UInt64 BlockScans<w>::WordScanNeR(const void* p, UInt64 n, Word value) {
  return Fixed<w>::FindNe(Words(p), n, value);
}
template <Width w>
UInt64 BlockScans<w>::WordScanNeL(const void* p, UInt64 n, Word value) {
  return Fixed<w>::FindNeBackward(Words(p), n, value);
}

}  // namespace brelt::scan

// The body of the export Lib::Name for this CPU.
#define BRELT_BLOCK_SCAN_FOR_CPU(Name) \
  BRELT_BODY_AT_WIDTH(::brelt::scan::CpuWidth(), ::brelt::scan::BlockScans, Name)
