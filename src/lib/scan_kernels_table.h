// Fills a kernel table from the walks of one vector width.
#pragma once

#include "scan_kernels.h"

namespace brelt::scan {

template <class W>
constexpr Kernels MakeKernels() {
  using K = KernelSet<W>;
  using U8 = std::uint8_t;
  using U16 = std::uint16_t;
  return Kernels{
      &K::template FindEq<U8>,     &K::template FindNe<U8>,     &K::template FindEither<U8>,
      &K::template FindEqBack<U8>, &K::template FindNeBack<U8>, &K::template CountEq<U8>,
      &K::template FindEq<U16>,    &K::template FindNe<U16>,    &K::template FindEither<U16>,
      &K::template FindEqBack<U16>, &K::template FindNeBack<U16>, &K::template CountEq<U16>,
      &K::FirstDifference,
  };
}

extern const Kernels kSse2Kernels;
extern const Kernels kAvx2Kernels;
extern const Kernels kAvx512Kernels;

}  // namespace brelt::scan
