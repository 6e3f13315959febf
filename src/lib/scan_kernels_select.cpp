// Chooses the scan table for this CPU once, while the library loads. Until then (and on CPUs
// without AVX2) the 16-byte table serves, so no caller ever finds the table unset.
#include "scan_kernels_table.h"

namespace brelt::scan {

const Kernels* activeKernels = &kSse2Kernels;

namespace {

[[maybe_unused]] const bool selected = [] {
  activeKernels = ForCpu(&kSse2Kernels, &kAvx2Kernels, &kAvx512Kernels);
  return true;
}();

}  // namespace

// Not checked by the address sanitizer, which may not be set up yet when this runs.
[[gnu::no_sanitize_address]] Width CpuWidth() {
  __builtin_cpu_init();
  const bool bits = __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
  if (bits && __builtin_cpu_supports("avx512bw")) return Width::kAvx512;
  if (bits && __builtin_cpu_supports("avx2")) return Width::kAvx2;
  return Width::kSse2;
}

void UseKernels(const Kernels& k) { activeKernels = &k; }

}  // namespace brelt::scan
