// Lib compares and scans: counts of elements passed before the first that meets the test.
#include "brelt/lib.h"
#include "scan_kernels.h"

namespace {

using brelt::UInt64;
using Byte = unsigned char;
using Word = unsigned short;

const Byte* Bytes(const void* p) { return static_cast<const Byte*>(p); }
const Word* Words(const void* p) { return static_cast<const Word*>(p); }

}  // namespace

namespace Lib {

UInt64 Compare(const void* a, const void* b, UInt64 n) {
  return brelt::scan::FirstDifference(Bytes(a), Bytes(b), n);
}

// Two Words are equal exactly when both of their bytes are, so the first differing byte
// names the first differing Word.
UInt64 WordCompare(const void* a, const void* b, UInt64 n) {
  return brelt::scan::FirstDifference(Bytes(a), Bytes(b), 2 * n) / 2;
}

UInt64 ScanR(const void* p, UInt64 n, Byte value) {
  return brelt::scan::FindEq(Bytes(p), n, value);
}
UInt64 ScanL(const void* p, UInt64 n, Byte value) {
  return brelt::scan::FindEqBackward(Bytes(p), n, value);
}
UInt64 ScanNeR(const void* p, UInt64 n, Byte value) {
  return brelt::scan::FindNe(Bytes(p), n, value);
}
UInt64 ScanNeL(const void* p, UInt64 n, Byte value) {
  return brelt::scan::FindNeBackward(Bytes(p), n, value);
}

UInt64 WordScanR(const void* p, UInt64 n, Word value) {
  return brelt::scan::FindEq(Words(p), n, value);
}
UInt64 WordScanL(const void* p, UInt64 n, Word value) {
  return brelt::scan::FindEqBackward(Words(p), n, value);
}
UInt64 WordScanNeR(const void* p, UInt64 n, Word value) {
  return brelt::scan::FindNe(Words(p), n, value);
}
UInt64 WordScanNeL(const void* p, UInt64 n, Word value) {
  return brelt::scan::FindNeBackward(Words(p), n, value);
}

}  // namespace Lib
