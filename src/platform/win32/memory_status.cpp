#include "platform/memory_status.h"

#include <windows.h>

namespace brelt::platform {

void QueryMemoryStatus(Storage::TMemoryStatus* status) {
  MEMORYSTATUS figures;
  figures.dwLength = sizeof figures;
  GlobalMemoryStatus(&figures);
  status->MemoryLoad = figures.dwMemoryLoad;
  status->TotalPhys = figures.dwTotalPhys;
  status->AvailPhys = figures.dwAvailPhys;
  status->TotalPageFile = figures.dwTotalPageFile;
  status->AvailPageFile = figures.dwAvailPageFile;
  status->TotalVirtual = figures.dwTotalVirtual;
  status->AvailVirtual = figures.dwAvailVirtual;
}

}  // namespace brelt::platform
