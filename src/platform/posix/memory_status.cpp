#include "platform/memory_status.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cstring>

#include "platform/posix/proc_reader.h"

namespace brelt::platform {

namespace {

using posix::ProcReader;

// The figures of a "Name:   value kB" file that are asked for, in bytes; names not found
// stay 0.
struct Field {
  const char* name;
  std::uint64_t* bytes;
};

void ReadKilobyteFields(const char* path, Field* fields, int count) {
  ProcReader in(path);
  if (!in.ok()) return;
  for (;;) {
    char name[40];
    int length = 0;
    int c = in.Next();
    for (; c >= 0 && c != ':' && c != '\n'; c = in.Next()) {
      if (length < static_cast<int>(sizeof name) - 1) name[length++] = static_cast<char>(c);
    }
    if (c < 0) return;
    name[length] = '\0';
    if (c == ':') {
      int stop;
      const std::uint64_t value = in.Number(10, &stop);
      for (int i = 0; i < count; ++i) {
        if (std::strcmp(name, fields[i].name) == 0) *fields[i].bytes = value * 1024;
      }
      if (stop != '\n' && !in.NextLine()) return;
    }
  }
}

// The user half of the x86-64 address space, less its top page, unless a limit is set.
std::uint64_t AddressSpace() {
  rlimit limit;
  if (getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY) {
    return limit.rlim_cur;
  }
  return (std::uint64_t{1} << 47) - static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace

// Commit on Linux is taken as physical memory plus swap, as the Windows figure counts it.
void QueryMemoryStatus(Storage::TMemoryStatus* status) {
  std::uint64_t total = 0, free = 0, available = 0, swapTotal = 0, swapFree = 0, mapped = 0;
  Field meminfo[] = {{"MemTotal", &total},
                     {"MemFree", &free},
                     {"MemAvailable", &available},
                     {"SwapTotal", &swapTotal},
                     {"SwapFree", &swapFree}};
  ReadKilobyteFields("/proc/meminfo", meminfo, 5);
  if (available == 0) available = free;  // kernels before 3.14 have no MemAvailable
  if (available > total) available = total;
  Field self[] = {{"VmSize", &mapped}};
  ReadKilobyteFields("/proc/self/status", self, 1);

  status->MemoryLoad =
      total == 0 ? 0 : static_cast<brelt::ULong>((total - available) * 100 / total);
  status->TotalPhys = total;
  status->AvailPhys = available;
  status->TotalPageFile = total + swapTotal;
  status->AvailPageFile = available + swapFree;
  status->TotalVirtual = AddressSpace();
  status->AvailVirtual = mapped < status->TotalVirtual ? status->TotalVirtual - mapped : 0;
}

}  // namespace brelt::platform
