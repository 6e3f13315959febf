// FIO: characters, strings, fields and line ends to a handle, unbuffered. Each write clears
// the last error first and leaves what the system set; no result of a write is looked at.
#include <algorithm>
#include <cstdint>

#include "brelt/fio.h"
#include "fio/text_twin.h"
#include "fio/token_writes.h"
#include "platform/file_io.h"
#include "platform/last_error.h"

namespace {

namespace bf = brelt::fio;
namespace pf = brelt::platform;
using brelt::FileHandle;
using brelt::ULong;
using brelt::WChar;

// A character at the position. The text file's rule for a position with more than one
// character behind it: the file is cut one character further on, then the character goes
// out, so that the file ends right behind it and the character that stood at the position
// stays in front of it ("abcdef" at 1 with X gives "abX"). The distance to the end is a
// 32-bit difference, so a position behind the end of the file takes this way too.
template <class T>
void WriteChar(FileHandle file, T ch) {
  constexpr std::uint32_t kUnit = sizeof(T);
  pf::SetLastError(0);
  const std::uint32_t pos = pf::MoveFilePointer32(file, 0, nullptr, pf::kFromCurrent);
  const std::uint32_t size = pf::FileSize32(file, nullptr);
  if (size - pos > kUnit) {
    pf::SetLastError(0);
    pf::MoveFilePointer32(file, kUnit, nullptr, pf::kFromCurrent);
    pf::SetLastError(0);
    pf::CutFileAtPosition(file);
  }
  bf::WriteChars(file, &ch, 1);
}

template <class T>
constexpr T kLineEnd[] = {13, 10};

}  // namespace

namespace FIO {

void WrCharA(FileHandle file, char ch) { WriteChar(file, ch); }
void WrCharW(FileHandle file, WChar ch) { WriteChar(file, ch); }

void WrCharRepA(FileHandle file, char ch, ULong count) { bf::WriteRepeated(file, ch, count); }
void WrCharRepW(FileHandle file, WChar ch, ULong count) { bf::WriteRepeated(file, ch, count); }

void WrStrA(FileHandle file, unsigned int high, const char* src) {
  bf::WriteChars(file, src, Str::LengthA(high, src));
}
void WrStrW(FileHandle file, unsigned int high, const WChar* src) {
  bf::WriteChars(file, src, Str::LengthW(high, src));
}

void WrStrAdjA(FileHandle file, unsigned int high, const char* src, brelt::Long width) {
  bf::WriteField(file, high, src, width);
}
void WrStrAdjW(FileHandle file, unsigned int high, const WChar* src, brelt::Long width) {
  bf::WriteField(file, high, src, width);
}

// Fixed: the reader's EOLA and EOLW do not reach the writer.
void WrLnA(FileHandle file) { bf::WriteChars(file, kLineEnd<char>, 2); }
void WrLnW(FileHandle file) { bf::WriteChars(file, kLineEnd<WChar>, 2); }

}  // namespace FIO
