// Lib compares and scans: counts of elements passed before the first that meets the test.
// Each is bound at load to its body for the CPU's vector width.
#include "brelt/lib.h"
#include "block_scans.h"
#include "platform/bound_at_load.h"

using brelt::UInt64;

#define BRELT_BOUND_BLOCK_SCAN(Name, Value)                                              \
  BRELT_BOUND_AT_LOAD(Lib, Name, UInt64, (const void* p, UInt64 n, Value value), (p, n, value), \
                      BRELT_BLOCK_SCAN_FOR_CPU(Name))

BRELT_BOUND_AT_LOAD(Lib, Compare, UInt64, (const void* a, const void* b, UInt64 n), (a, b, n),
                    BRELT_BLOCK_SCAN_FOR_CPU(Compare))
BRELT_BOUND_AT_LOAD(Lib, WordCompare, UInt64, (const void* a, const void* b, UInt64 n),
                    (a, b, n), BRELT_BLOCK_SCAN_FOR_CPU(WordCompare))
BRELT_BOUND_BLOCK_SCAN(ScanR, unsigned char)
BRELT_BOUND_BLOCK_SCAN(ScanL, unsigned char)
BRELT_BOUND_BLOCK_SCAN(ScanNeR, unsigned char)
BRELT_BOUND_BLOCK_SCAN(ScanNeL, unsigned char)
BRELT_BOUND_BLOCK_SCAN(WordScanR, unsigned short)
BRELT_BOUND_BLOCK_SCAN(WordScanL, unsigned short)
BRELT_BOUND_BLOCK_SCAN(WordScanNeR, unsigned short)
BRELT_BOUND_BLOCK_SCAN(WordScanNeL, unsigned short)
