// FIOR: a path as four parts, drive, directory, name and extension, and back. Here a slash
// separates as well as a backslash.
#include <cstdint>

#include "brelt/fior.h"
#include "brelt/str/core.h"

namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

// Characters [from, to) of `path` into (high, dst), cut at the capacity, with a NUL behind
// them where one more element is left. Answers how many were stored.
std::uint64_t Put(unsigned int high, char* dst, const char* path, std::uint64_t from,
                  std::uint64_t to) {
  const std::uint64_t cap = std::uint64_t{high} + 1;
  std::uint64_t n = to - from;
  if (n > cap) n = cap;
  for (std::uint64_t i = 0; i < n; ++i) dst[i] = path[from + i];
  if (n < cap) dst[n] = '\0';
  return n;
}

// Up to and including the first colon, when the second or third character is a colon
// ("C:", "AB:"); 0 when the path names no drive.
std::uint64_t DriveLength(const char* path) {
  if (path[0] == '\0') return 0;
  if (path[1] != ':' && (path[1] == '\0' || path[2] != ':')) return 0;
  return path[0] == ':' ? 1 : path[1] == ':' ? 2 : 3;
}

}  // namespace

namespace FIOR {

// `high` is not read: the path runs to its NUL. A drive array too small for the drive takes
// what fits, and the rest of the drive text goes on into the directory or the name.
void SplitAllPathA(unsigned int, const char* path, unsigned int drivehigh, char* drive,
                   unsigned int dirhigh, char* dir, unsigned int namehigh, char* name,
                   unsigned int exthigh, char* ext) {
  const std::uint64_t pos = Put(drivehigh, drive, path, 0, DriveLength(path));
  std::uint64_t nameStart = pos;
  std::uint64_t end = pos;
  for (; path[end] != '\0'; ++end) {
    if (IsSeparator(path[end])) nameStart = end + 1;
  }
  // The last dot of the name: neither a dot nor a separator can follow it, so "a..b" has the
  // extension ".b" and "a." the extension ".".
  std::uint64_t dot = end;
  for (std::uint64_t k = end; k > nameStart; --k) {
    if (path[k - 1] == '.') {
      dot = k - 1;
      break;
    }
  }
  Put(dirhigh, dir, path, pos, nameStart);
  Put(namehigh, name, path, nameStart, dot);
  Put(exthigh, ext, path, dot, end);
}

// The separator and the dot go in through AppendA like the parts, so a result that outgrows
// `dst` is cut at dsthigh as every other text is.
void MakeAllPathA(unsigned int dsthigh, char* dst, unsigned int drivehigh, const char* drive,
                  unsigned int dirhigh, const char* dir, unsigned int namehigh, const char* name,
                  unsigned int exthigh, const char* ext) {
  Str::CopyA(dsthigh, dst, drivehigh, drive);
  if (dir[0] != '\0') {
    Str::AppendA(dsthigh, dst, dirhigh, dir);
    const unsigned int len = Str::LengthA(dsthigh, dst);
    if (len == 0 || !IsSeparator(dst[len - 1])) Str::AppendA(dsthigh, dst, 0, "\\");
  }
  Str::AppendA(dsthigh, dst, namehigh, name);
  if (ext[0] != '\0') {
    if (ext[0] != '.') Str::AppendA(dsthigh, dst, 0, ".");
    Str::AppendA(dsthigh, dst, exthigh, ext);
  }
}

}  // namespace FIOR
