#include "block_scans.h"
#include "scan_kernels_table.h"

namespace brelt::scan {

constexpr Kernels kSse2Kernels = MakeKernels<Sse2>();

template struct BlockScans<Width::kSse2>;

}  // namespace brelt::scan
