// Compiled with AVX2 enabled; used only where the CPU has it.
#include "block_scans.h"
#include "scan_kernels_table.h"

namespace brelt::scan {

constexpr Kernels kAvx2Kernels = MakeKernels<Avx2>();

template struct BlockScans<Width::kAvx2>;

}  // namespace brelt::scan
