// FIOR: open, create and delete through the search. A name the search cannot place goes to
// FIO as the caller wrote it, so that the caller sees the system's own failure for it.
#include "brelt/fio.h"
#include "brelt/fior.h"
#include "fior/global_table.h"

namespace {

using brelt::fior::kPathHigh;

// The name that reaches FIO: the search's path when it answered 1, else the caller's.
class Target {
 public:
  Target(unsigned int high, const char* name) : high_(high), name_(name) {}
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  char* Path() { return path_; }
  void Found(unsigned char found) {
    if (found == 0) return;
    high_ = kPathHigh;
    name_ = path_;
  }
  unsigned int high() const { return high_; }
  const char* name() const { return name_; }

 private:
  char path_[kPathHigh + 1];
  unsigned int high_;
  const char* name_;
};

}  // namespace

namespace FIOR {

FileHandle CRed1A::Open(unsigned int high, const char* name, brelt::ULong share) const {
  Target t(high, name);
  t.Found(FindPathInternal(1, high, name, kPathHigh, t.Path()));
  return FIO::OpenA(t.high(), t.name(), share);
}

FileHandle CRed1A::OpenRead(unsigned int high, const char* name, brelt::ULong share) const {
  Target t(high, name);
  t.Found(FindPathInternal(1, high, name, kPathHigh, t.Path()));
  return FIO::OpenReadA(t.high(), t.name(), share);
}

// FindNewPath always places the name.
FileHandle CRed1A::Create(unsigned int high, const char* name, brelt::ULong share) const {
  Target t(high, name);
  t.Found(FindNewPath(high, name, kPathHigh, t.Path()));
  return FIO::CreateA(t.high(), t.name(), share);
}

void CRed1A::Delete(unsigned int high, const char* name) const {
  Target t(high, name);
  t.Found(FindPathInternal(1, high, name, kPathHigh, t.Path()));
  FIO::DeleteA(t.high(), t.name());
}

// The same through the virtual search, which a derived class may replace.
FileHandle CRed2A::Open(unsigned int high, const char* name, brelt::ULong share) {
  Target t(high, name);
  t.Found(FindPath2(high, name, kPathHigh, t.Path()));
  return FIO::OpenA(t.high(), t.name(), share);
}

FileHandle CRed2A::OpenRead(unsigned int high, const char* name, brelt::ULong share) {
  Target t(high, name);
  t.Found(FindPath2(high, name, kPathHigh, t.Path()));
  return FIO::OpenReadA(t.high(), t.name(), share);
}

void CRed2A::Delete(unsigned int high, const char* name) {
  Target t(high, name);
  t.Found(FindPath2(high, name, kPathHigh, t.Path()));
  FIO::DeleteA(t.high(), t.name());
}

// The global object is a plain CRed2A, so its members are the free functions.
FileHandle OpenA(unsigned int high, const char* name, brelt::ULong share) {
  return brelt::fior::GlobalTable().Open(high, name, share);
}

FileHandle OpenReadA(unsigned int high, const char* name, brelt::ULong share) {
  return brelt::fior::GlobalTable().OpenRead(high, name, share);
}

FileHandle CreateA(unsigned int high, const char* name, brelt::ULong share) {
  return brelt::fior::GlobalTable().Create(high, name, share);
}

void DeleteA(unsigned int high, const char* name) {
  brelt::fior::GlobalTable().Delete(high, name);
}

}  // namespace FIOR
