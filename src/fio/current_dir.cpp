// FIO: the current directory and drive. GetDirA and GetDrive count drive A as 1, SetDrive as
// 0, so the result of GetDrive given to SetDrive selects the next drive.
#include "brelt/fio.h"
#include "brelt/str/core.h"
#include "fio/file_name.h"
#include "platform/file_names.h"
#include "platform/last_error.h"

namespace {

namespace pf = brelt::platform;
using brelt::ULong;
using brelt::fio::kNameHigh;

struct DirText {
  char text[kNameHigh + 1] = {};
};

// "X:" names the current directory of drive X.
struct DriveName {
  char text[3];
  explicit DriveName(ULong letter) : text{static_cast<char>(letter), ':', '\0'} {}
};

}  // namespace

namespace FIO {

// Another drive's directory is read by a short visit: there and back.
void GetDirA(ULong drive, unsigned int high, char* dst) {
  pf::SetLastError(0);
  DirText here;
  pf::CurrentDirectory(kNameHigh + 1, here.text);
  if (drive == 0) {
    Str::CopyA(high, dst, kNameHigh, here.text);
    return;
  }
  pf::ChangeDirectory(DriveName(drive + 64).text);
  DirText there;
  pf::CurrentDirectory(kNameHigh + 1, there.text);
  Str::CopyA(high, dst, kNameHigh, there.text);
  pf::ChangeDirectory(here.text);
}

ULong GetDrive() {
  pf::SetLastError(0);
  char text[kNameHigh + 2] = {};
  pf::CurrentDirectory(kNameHigh + 2, text);
  const char c = text[0] >= 'a' && text[0] <= 'z' ? static_cast<char>(text[0] - 32) : text[0];
  return static_cast<ULong>(static_cast<unsigned char>(c)) - 64;
}

unsigned char SetDrive(ULong drive) {
  const DriveName name(drive + 65);
  pf::SetLastError(0);
  return pf::ChangeDirectory(name.text) ? 1 : 0;
}

void ChDirA(unsigned int high, const char* name) {
  brelt::fio::SystemName path;
  if (brelt::fio::PrepareName(high, name, &path)) pf::ChangeDirectory(path.text);
}

}  // namespace FIO
