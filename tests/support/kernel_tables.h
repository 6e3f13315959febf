// The scan tables and vector widths this CPU can run, for internal tests that walk every
// width: the tables that the library's operations use through Dispatched scans, and the bodies
// that exported scans are bound to at load.
#pragma once

#include <vector>

#include "lib/block_scans.h"
#include "lib/scan_kernels_table.h"
#include "str/text_scans.h"

namespace brelt::test {

struct KernelTable {
  const char* name;
  const brelt::scan::Kernels* kernels;
  brelt::scan::Width width;
};

inline std::vector<KernelTable> RunnableKernelTables() {
  namespace scan = brelt::scan;
  std::vector<KernelTable> tables{{"sse2", &scan::kSse2Kernels, scan::Width::kSse2}};
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx2")) {
    tables.push_back({"avx2", &scan::kAvx2Kernels, scan::Width::kAvx2});
  }
  if (__builtin_cpu_supports("avx512bw")) {
    tables.push_back({"avx512", &scan::kAvx512Kernels, scan::Width::kAvx512});
  }
  return tables;
}

// One of three things by width.
template <class F>
F AtWidth(brelt::scan::Width w, F sse2, F avx2, F avx512) {
  return w == brelt::scan::Width::kAvx512 ? avx512 : w == brelt::scan::Width::kAvx2 ? avx2 : sse2;
}
#define BRELT_TEST_AT_WIDTH(w, Bodies, Name)                                      \
  ::brelt::test::AtWidth(w, &Bodies<::brelt::scan::Width::kSse2>::Name,           \
                         &Bodies<::brelt::scan::Width::kAvx2>::Name,              \
                         &Bodies<::brelt::scan::Width::kAvx512>::Name)

}  // namespace brelt::test
