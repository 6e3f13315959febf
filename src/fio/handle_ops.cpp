// FIO: operations on an open handle. Each clears the last error right before its one system
// call; Flush alone does not, so that a successful flush keeps the earlier code.
#include "brelt/fio.h"
#include "platform/file_io.h"
#include "platform/last_error.h"

namespace {

namespace pf = brelt::platform;
using brelt::UInt64;
using brelt::ULong;

constexpr UInt64 kAllOnes = ~UInt64{0};

}  // namespace

namespace FIO {

char Dummy = 0;

void Close(FileHandle file) {
  pf::SetLastError(0);
  pf::CloseFile(file);
}

void Flush(FileHandle file) { pf::FlushFile(file); }

void Seek(FileHandle file, UInt64 pos) {
  pf::SetLastError(0);
  pf::MoveFilePointer(file, static_cast<std::int64_t>(pos), nullptr, pf::kFromBegin);
}

UInt64 GetPos(FileHandle file) {
  pf::SetLastError(0);
  UInt64 pos = 0;
  return pf::MoveFilePointer(file, 0, &pos, pf::kFromCurrent) ? pos : kAllOnes;
}

UInt64 Size(FileHandle file) {
  pf::SetLastError(0);
  UInt64 size = 0;
  return pf::FileSize(file, &size) ? size : kAllOnes;
}

void Truncate(FileHandle file) {
  pf::SetLastError(0);
  pf::CutFileAtPosition(file);
}

ULong RdBin(FileHandle file, unsigned int /*high*/, void* buf, ULong count) {
  pf::SetLastError(0);
  std::uint32_t done = 0;
  pf::ReadFromFile(file, buf, count, &done);
  return done;
}

void WrBin(FileHandle file, unsigned int /*high*/, const void* buf, ULong count) {
  pf::SetLastError(0);
  std::uint32_t done = 0;
  pf::WriteToFile(file, buf, count, &done);
}

ULong IOresult() { return pf::LastError(); }

}  // namespace FIO
