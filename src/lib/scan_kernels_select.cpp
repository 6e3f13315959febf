// Chooses the scan table for this CPU once, while the library loads. Until then (and on CPUs
// without AVX2) the 16-byte table serves, so no caller ever finds the table unset.
#include "scan_kernels_table.h"

namespace brelt::scan {

const Kernels* activeKernels = &kSse2Kernels;

namespace {

[[maybe_unused]] const bool selected = [] {
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx512bw")) {
    activeKernels = &kAvx512Kernels;
  } else if (__builtin_cpu_supports("avx2")) {
    activeKernels = &kAvx2Kernels;
  }
  return true;
}();

}  // namespace

void UseKernels(const Kernels& k) { activeKernels = &k; }

}  // namespace brelt::scan
