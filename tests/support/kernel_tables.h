// The scan tables this CPU can run, for internal tests that walk every vector width.
#pragma once

#include <vector>

#include "lib/scan_kernels_table.h"

namespace brelt::test {

struct KernelTable {
  const char* name;
  const brelt::scan::Kernels* kernels;
};

inline std::vector<KernelTable> RunnableKernelTables() {
  namespace scan = brelt::scan;
  std::vector<KernelTable> tables{{"sse2", &scan::kSse2Kernels}};
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx2")) tables.push_back({"avx2", &scan::kAvx2Kernels});
  if (__builtin_cpu_supports("avx512bw")) tables.push_back({"avx512", &scan::kAvx512Kernels});
  return tables;
}

}  // namespace brelt::test
