// Chooses the scan table for this CPU once, while the library loads. Until then (and on CPUs
// without AVX2) the 16-byte table serves, so no caller ever finds the table unset.
#include "scan_kernels_table.h"

namespace brelt::scan {
namespace {

const Kernels* active = &kSse2Kernels;

[[maybe_unused]] const bool selected = [] {
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx512bw")) {
    active = &kAvx512Kernels;
  } else if (__builtin_cpu_supports("avx2")) {
    active = &kAvx2Kernels;
  }
  return true;
}();

}  // namespace

const Kernels& Active() { return *active; }
void UseKernels(const Kernels& k) { active = &k; }

}  // namespace brelt::scan
