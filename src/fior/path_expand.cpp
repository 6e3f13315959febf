// FIOR: the full form of a path. The head (network, drive, root) decides where the result
// starts; then "." components vanish and ".." takes one back, never above a root. Nothing is
// looked up on the disk but the current drive and directory.
#include "brelt/fio.h"
#include "brelt/str/case.h"
#include "brelt/str/core.h"
#include "brelt/str/edit.h"
#include "fior/absolute.h"
#include "fior/global_table.h"

namespace {

using brelt::fior::kPathHigh;

// The result in the making: 260 characters, no NUL while it is full; what does not fit is
// dropped.
class PathOut {
 public:
  PathOut() : text_{}, len_(0) {}

  char* Text() { return text_; }
  unsigned int Length() const { return len_; }
  bool EndsInBackslash() const { return len_ > 0 && text_[len_ - 1] == '\\'; }

  void Put(char c) {
    if (len_ <= kPathHigh) text_[len_++] = c;
  }
  void Put(const char* from, unsigned int count) {
    for (unsigned int k = 0; k < count; ++k) Put(from[k]);
  }
  // After text was written into the array from outside.
  void Remeasure() { len_ = Str::LengthA(kPathHigh, text_); }

  // ".." takes the last component off; a root (three characters or fewer) stays.
  void Climb() {
    if (len_ <= 3) return;
    --len_;
    while (len_ > 0 && text_[len_ - 1] != '\\') --len_;
  }

  void Finish() {
    if (len_ <= kPathHigh) text_[len_] = '\0';
  }

 private:
  char text_[kPathHigh + 1];
  unsigned int len_;
};

bool IsComponent(const char* at, unsigned int count, const char* dots) {
  for (unsigned int k = 0; k < count; ++k) {
    if (dots[k] == '\0' || at[k] != dots[k]) return false;
  }
  return dots[count] == '\0';
}

// Where the components of `text` start, with `out` holding the head it resolves to.
unsigned int ReadHead(const FIOR::CRed1A& table, const char* text, unsigned int len,
                      unsigned char flag, PathOut* out) {
  if (len >= 2 && text[0] == '\\' && text[1] == '\\') {
    out->Put("\\\\", 2);
    return 2;
  }
  brelt::ULong drive = 0;
  unsigned int i = 0;
  if (len >= 2 && text[1] == ':') {
    drive = static_cast<brelt::ULong>(static_cast<unsigned char>(Str::CapA(text[0]))) - 64;
    i = 2;
  }
  if (text[i] == '\\') {
    const char letter = drive != 0 ? Str::CapA(text[0]) : static_cast<char>(FIO::GetDrive() + 64);
    out->Put(letter);
    out->Put(":\\", 2);
    return i + 1;
  }
  if (flag != 0) {
    FIO::GetDirA(drive, kPathHigh, out->Text());
    if (FIO::IOresult() != 0) {
      // No such drive: the path hangs from a bare root.
      out->Text()[0] = '\0';
      out->Remeasure();
      out->Put('\\');
      return i;
    }
  } else {
    // From the table's base, whatever drive was written.
    Str::CopyA(kPathHigh, out->Text(), kPathHigh, table.BaseDir);
  }
  out->Remeasure();
  if (out->Length() > 0 && !out->EndsInBackslash()) out->Put('\\');
  return i;
}

}  // namespace

namespace FIOR {

void CRed1A::ExpandPath2(unsigned int high, const char* src, unsigned int dsthigh, char* dst,
                         unsigned char flag) const {
  char text[kPathHigh + 1];
  Str::CopyA(kPathHigh, text, high, src);
  Str::TrimA(kPathHigh, text);
  const unsigned int len = Str::LengthA(kPathHigh, text);

  PathOut out;
  unsigned int i = ReadHead(*this, text, len, flag, &out);
  while (i < len) {
    unsigned int e = Str::NextCharPosA(kPathHigh, text, '\\', i);
    if (e == brelt::kNotFound || e > len) e = len;
    const unsigned int count = e - i;
    if (IsComponent(text + i, count, "..")) {
      out.Climb();
    } else if (!IsComponent(text + i, count, ".")) {
      // Empty components stay: a doubled backslash is kept.
      out.Put(text + i, count);
      if (e < len) out.Put('\\');
    }
    i = e + 1;
  }
  out.Finish();
  Str::CopyA(dsthigh, dst, kPathHigh, out.Text());
}

void CRed1A::ExpandPath(unsigned int high, const char* src, unsigned int dsthigh,
                        char* dst) const {
  ExpandPath2(high, src, dsthigh, dst, 1);
}

void CRed1A::MakePath2(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
                       unsigned int namehigh, const char* name, unsigned char flag) const {
  if (brelt::fior::IsAbsolute(namehigh, name)) {
    ExpandPath2(namehigh, name, dsthigh, dst, flag);
    return;
  }
  ExpandPath2(dirhigh, dir, dsthigh, dst, flag);
  const unsigned int len = Str::LengthA(dsthigh, dst);
  if (len > 0 && dst[len - 1] != '\\' && len < dsthigh) {
    dst[len] = '\\';
    dst[len + 1] = '\0';
  }
  Str::AppendA(dsthigh, dst, namehigh, name);
  // Once more, for the dots of `name`.
  ExpandPath2(dsthigh, dst, dsthigh, dst, flag);
}

void CRed1A::MakePath(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
                      unsigned int namehigh, const char* name) const {
  MakePath2(dsthigh, dst, dirhigh, dir, namehigh, name, 1);
}

void ExpandPathA(unsigned int high, const char* src, unsigned int dsthigh, char* dst) {
  brelt::fior::GlobalTable().ExpandPath(high, src, dsthigh, dst);
}

void MakePathA(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
               unsigned int namehigh, const char* name) {
  brelt::fior::GlobalTable().MakePath(dsthigh, dst, dirhigh, dir, namehigh, name);
}

// `dir` is dressed as a network path, so that no current directory comes in front, and the
// two backslashes leave again at the end.
void JoinPathA(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
               unsigned int namehigh, const char* name) {
  const CRed2A& table = brelt::fior::GlobalTable();
  char joined[kPathHigh + 1];
  if (brelt::fior::IsAbsolute(namehigh, name)) {
    table.ExpandPath2(namehigh, name, kPathHigh, joined, 1);
  } else {
    char network[kPathHigh + 1];
    Str::ConcatA(kPathHigh, network, 2, "\\\\", dirhigh, dir);
    table.MakePath2(kPathHigh, joined, kPathHigh, network, namehigh, name, 1);
  }
  Str::SliceA(dsthigh, dst, kPathHigh, joined, 2, brelt::kNotFound);
}

}  // namespace FIOR
