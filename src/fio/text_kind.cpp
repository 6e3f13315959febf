// FIO: the end-of-file test and the test for 16-bit text files.
#include "brelt/fio.h"
#include "platform/file_io.h"
#include "platform/last_error.h"

namespace {

namespace pf = brelt::platform;

void BackToStart(FIO::FileHandle file) {
  pf::SetLastError(0);
  pf::MoveFilePointer(file, 0, nullptr, pf::kFromBegin);
}

}  // namespace

namespace FIO {

// By position and size in 32 bits, never by trying to read.
unsigned char EndOfFile(FileHandle file) {
  pf::SetLastError(0);
  const std::uint32_t pos = pf::MoveFilePointer32(file, 0, nullptr, pf::kFromCurrent);
  if (pf::LastError() != 0) return 0;
  return pos == pf::FileSize32(file, nullptr) ? 1 : 0;
}

// A byte-order mark FF FE is the one that is skipped; the swapped mark FE FF is no 16-bit
// text of this library's kind.
unsigned char IsUnicodeFile(FileHandle file) {
  BackToStart(file);
  pf::SetLastError(0);
  unsigned char bytes[2] = {0, 0};
  std::uint32_t got = 0;
  pf::ReadFromFile(file, bytes, 2, &got);
  if (got < 2) {
    BackToStart(file);
    return 0;
  }
  if (bytes[0] == 0xFF && bytes[1] == 0xFE) return 1;
  BackToStart(file);
  return bytes[1] == 0 ? 1 : 0;
}

}  // namespace FIO
