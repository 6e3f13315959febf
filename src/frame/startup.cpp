// Start-up order. A module joins here, in its fixed place, when it gains state to set at load:
//   1. the random generator's lock is freed      5. os::__INIT
//   2. FIO::InitModule                           6. Str::InitModule
//   3. SEH::InitModule                           7. Lib::RANDOMIZE
//   4. Storage::InitModule
// FIOR and MATHLIB need no step: their state is complete as loaded.
#include "startup.h"

#include "brelt/fio.h"
#include "brelt/lib/random.h"
#include "brelt/os.h"
#include "brelt/seh.h"
#include "brelt/storage.h"
#include "brelt/str.h"
#include "lib/random_state.h"

namespace brelt::frame {

void RunStartup() {
  lib::FreeRandomLock();
  FIO::InitModule();
  SEH::InitModule();
  Storage::InitModule();
  os::__INIT();
  Str::InitModule();
  Lib::RANDOMIZE();
}

}  // namespace brelt::frame
