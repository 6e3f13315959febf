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
  [[gnu::noinline]] static UInt64 LongWordCompare(const void* a, const void* b, UInt64 n);
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
// The long compare is a call of its own, the body's last step, so that the body needs no
// frame.
template <Width w>
UInt64 BlockScans<w>::WordCompare(const void* a, const void* b, UInt64 n) {
  const UInt64 i = Fixed<w, true>::FirstDifference(Bytes(a), Bytes(b), 2 * n);
  if (i != kLong) [[likely]] return i / 2;
  return LongWordCompare(a, b, n);
}
template <Width w>
UInt64 BlockScans<w>::LongWordCompare(const void* a, const void* b, UInt64 n) {
  return Fixed<w>::FirstDifference(Bytes(a), Bytes(b), 2 * n) / 2;
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
#define BRELT_BLOCK_SCAN_FOR_CPU(Name)                                                 \
  ::brelt::scan::ForCpu(&::brelt::scan::BlockScans<::brelt::scan::Width::kSse2>::Name, \
                        &::brelt::scan::BlockScans<::brelt::scan::Width::kAvx2>::Name, \
                        &::brelt::scan::BlockScans<::brelt::scan::Width::kAvx512>::Name)
