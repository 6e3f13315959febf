// Compiled with AVX-512 (F and BW) enabled; used only where the CPU has it.
#include "block_scans.h"
#include "scan_kernels_table.h"

namespace brelt::scan {

constexpr Kernels kAvx512Kernels = MakeKernels<Avx512>();

template struct BlockScans<Width::kAvx512>;

}  // namespace brelt::scan
