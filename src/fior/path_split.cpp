// FIOR: a path cut into its directory and its name, in both character widths. Only the
// backslash separates here; a slash is an ordinary character.
#include "brelt/fior.h"
#include "brelt/str/core.h"
#include "brelt/str/edit.h"
#include "str/str_twin.h"

namespace {

using brelt::kNotFound;
using brelt::WChar;

constexpr unsigned int kToEnd = 0xFFFFFFFFu;

// The directory keeps its last backslash only where that backslash is the root: the one
// behind "C:" or "ab", or the one behind the share of a network path. A backslash in front
// of the root ("\x", "a\b") leaves the whole path as directory.
template <class T>
void SplitPath(unsigned int high, const T* path, unsigned int dirhigh, T* dir,
               unsigned int namehigh, T* name) {
  using S = brelt::str::StrTwin<T>;
  constexpr T kSep = T('\\');
  unsigned int root = 2;
  if (high >= 2 && path[0] == kSep && path[1] == kSep) {
    const unsigned int server = S::NextCharPos(high, path, kSep, 2);
    const unsigned int share =
        server == kNotFound ? kNotFound : S::NextCharPos(high, path, kSep, server + 1);
    if (share == kNotFound) {
      S::Copy(dirhigh, dir, high, path);
      name[0] = T{0};
      return;
    }
    root = share;
  }
  const unsigned int last = S::RCharPos(high, path, kSep);
  if (last == kNotFound) {
    if (S::Length(high, path) >= 2 && path[1] == T(':')) {
      S::Slice(namehigh, name, high, path, 2, kToEnd);
      S::Slice(dirhigh, dir, high, path, 0, 2);
    } else {
      S::Copy(namehigh, name, high, path);
      dir[0] = T{0};
    }
    return;
  }
  if (last < root) {
    S::Copy(dirhigh, dir, high, path);
    name[0] = T{0};
    return;
  }
  S::Slice(namehigh, name, high, path, last + 1, kToEnd);
  S::Slice(dirhigh, dir, high, path, 0, last == root ? last + 1 : last);
}

}  // namespace

namespace FIOR {

void SplitPathA(unsigned int high, const char* path, unsigned int dirhigh, char* dir,
                unsigned int namehigh, char* name) {
  SplitPath(high, path, dirhigh, dir, namehigh, name);
}

void SplitPathW(unsigned int high, const WChar* path, unsigned int dirhigh, WChar* dir,
                unsigned int namehigh, WChar* name) {
  SplitPath(high, path, dirhigh, dir, namehigh, name);
}

void CRed1A::SplitPath(unsigned int high, const char* path, unsigned int dirhigh, char* dir,
                       unsigned int namehigh, char* name) const {
  SplitPathA(high, path, dirhigh, dir, namehigh, name);
}

}  // namespace FIOR
