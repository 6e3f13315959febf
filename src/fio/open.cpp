// FIO: the open family. Each kind fixes the access and the disposition; all ask for normal
// attributes and hand the share mode on unchanged.
#include "brelt/fio.h"
#include "fio/file_name.h"
#include "platform/file_io.h"

namespace {

namespace pf = brelt::platform;
using brelt::ULong;

constexpr ULong kReadWrite = pf::kGenericRead | pf::kGenericWrite;

template <class T>
FIO::FileHandle Open(unsigned int high, const T* name, ULong share, ULong access,
                     ULong disposition) {
  brelt::fio::SystemName path;
  if (!brelt::fio::PrepareName(high, name, &path)) return brelt::kInvalidFileHandle;
  return pf::OpenNamedFile(path.text, access, share, disposition, pf::kAttributeNormal);
}

// Append does not create: a missing file fails as for Open. The move's result is not needed,
// since a handle that opened can always be moved to its end.
template <class T>
FIO::FileHandle Append(unsigned int high, const T* name, ULong share) {
  const FIO::FileHandle h = Open(high, name, share, kReadWrite, pf::kOpenExisting);
  if (h != brelt::kInvalidFileHandle) {
    std::int32_t upper = 0;
    pf::MoveFilePointer32(h, 0, &upper, pf::kFromEnd);
  }
  return h;
}

}  // namespace

namespace FIO {

FileHandle OpenA(unsigned int high, const char* name, ULong share) {
  return Open(high, name, share, kReadWrite, pf::kOpenExisting);
}
FileHandle OpenW(unsigned int high, const WChar* name, ULong share) {
  return Open(high, name, share, kReadWrite, pf::kOpenExisting);
}
FileHandle OpenReadA(unsigned int high, const char* name, ULong share) {
  return Open(high, name, share, pf::kGenericRead, pf::kOpenExisting);
}
FileHandle OpenReadW(unsigned int high, const WChar* name, ULong share) {
  return Open(high, name, share, pf::kGenericRead, pf::kOpenExisting);
}
FileHandle CreateA(unsigned int high, const char* name, ULong share) {
  return Open(high, name, share, kReadWrite, pf::kCreateAlways);
}
FileHandle CreateW(unsigned int high, const WChar* name, ULong share) {
  return Open(high, name, share, kReadWrite, pf::kCreateAlways);
}
FileHandle AppendA(unsigned int high, const char* name, ULong share) {
  return Append(high, name, share);
}
FileHandle AppendW(unsigned int high, const WChar* name, ULong share) {
  return Append(high, name, share);
}

}  // namespace FIO
