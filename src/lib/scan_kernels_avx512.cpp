// Compiled with AVX-512 (F and BW) enabled; used only where the CPU has it.
#include "scan_kernels_table.h"

namespace brelt::scan {

constexpr Kernels kAvx512Kernels = MakeKernels<Avx512>();

}  // namespace brelt::scan
