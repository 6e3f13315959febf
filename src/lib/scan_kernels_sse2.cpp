#include "scan_kernels_table.h"

namespace brelt::scan {

constexpr Kernels kSse2Kernels = MakeKernels<Sse2>();

}  // namespace brelt::scan
