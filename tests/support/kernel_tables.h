// The scan tables and vector widths this CPU can run, for internal tests that walk every
// width: the tables that the library's operations use through Dispatched scans, and the bodies
// that exported scans are bound to at load.
#pragma once

#include <vector>

#include "lib/block_scans.h"
#include "lib/scan_kernels_table.h"
#include "str/text_scans.h"

// The body that the export Str::Name##A (8-bit T) or Str::Name##W (16-bit T) is bound to on a
// CPU of width w.
#define BRELT_TEXT_SCAN_AT_WIDTH(T, w, Name)                                      \
  ([&] {                                                                          \
    if constexpr (sizeof(T) == 1) {                                               \
      return BRELT_BODY_AT_WIDTH(w, ::brelt::str::TextScans, Name##A);            \
    } else {                                                                      \
      return BRELT_BODY_AT_WIDTH(w, ::brelt::str::TextScans, Name##W);            \
    }                                                                             \
  }())

namespace brelt::test {

struct KernelTable {
  const char* name;
  const brelt::scan::Kernels* kernels;
  brelt::scan::Width width;
};

inline std::vector<KernelTable> RunnableKernelTables() {
  namespace scan = brelt::scan;
  std::vector<KernelTable> tables{{"sse2", &scan::kSse2Kernels, scan::Width::kSse2}};
  const scan::Width widest = scan::CpuWidth();
  if (widest >= scan::Width::kAvx2) {
    tables.push_back({"avx2", &scan::kAvx2Kernels, scan::Width::kAvx2});
  }
  if (widest >= scan::Width::kAvx512) {
    tables.push_back({"avx512", &scan::kAvx512Kernels, scan::Width::kAvx512});
  }
  return tables;
}

}  // namespace brelt::test
