// FIO: directory walks. The caller's record holds the whole state of a walk, so walks may
// overlap; one that reaches its end closes its search itself.
#include <cstring>

#include "brelt/fio.h"
#include "fio/file_name.h"
#include "platform/find_files.h"
#include "platform/last_error.h"

namespace {

namespace pf = brelt::platform;
using brelt::ULong;

static_assert(offsetof(FIO::DirEntryA, findHandle) == sizeof(pf::FindRecord));
static_assert(offsetof(FIO::DirEntryA, cFileName) == offsetof(pf::FindRecord, name));

// The system's record is the front part of the walk's record, field for field.
void Take(const pf::FindRecord& found, FIO::DirEntryA* entry) {
  std::memcpy(static_cast<void*>(entry), &found, sizeof found);
}

// An entry with attribute word 0 passes whatever the mask.
bool Passes(const FIO::DirEntryA& entry) {
  return entry.dwFileAttributes == 0 || (entry.dwFileAttributes & entry.attrMask) != 0;
}

}  // namespace

namespace FIO {

unsigned char ReadFirstEntryA(unsigned int high, const char* name, ULong mask,
                              DirEntryA* entry) {
  brelt::fio::SystemName pattern;
  if (!brelt::fio::PrepareName(high, name, &pattern)) return 0;
  pf::FindRecord found;
  const pf::Handle search = pf::FindFirst(pattern.text, &found);
  if (search == pf::kInvalidHandle) return 0;
  Take(found, entry);
  entry->findHandle = search;
  entry->attrMask = mask;
  return Passes(*entry) ? 1 : ReadNextEntryA(entry);
}

unsigned char ReadNextEntryA(DirEntryA* entry) {
  pf::SetLastError(0);
  pf::FindRecord found;
  while (pf::FindNext(entry->findHandle, &found)) {
    Take(found, entry);
    if (Passes(*entry)) return 1;
  }
  pf::FindEnd(entry->findHandle);
  entry->findHandle = pf::kInvalidHandle;
  return 0;
}

void CloseEntryA(DirEntryA* entry) {
  pf::SetLastError(0);
  pf::FindEnd(entry->findHandle);
}

}  // namespace FIO
