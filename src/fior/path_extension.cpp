// FIOR: the extension of a file name (the text behind the last dot of its last component,
// given without the dot), and the search mask made of a name. These operations ignore the
// table object, so the members and the free functions share one body each.
#include <initializer_list>

#include "brelt/fior.h"
#include "brelt/str/case.h"
#include "brelt/str/core.h"
#include "brelt/str/edit.h"
#include "brelt/str/match.h"
#include "fior/global_table.h"

namespace brelt::fior {
namespace {

constexpr unsigned int kToEnd = 0xFFFFFFFFu;

// The last dot of `name`; `has` when it lies in the last component.
struct Extension {
  unsigned int dot;
  bool has;
};

Extension FindExtension(unsigned int high, const char* name) {
  const unsigned int sep = Str::RCharPosA(high, name, '\\');
  const unsigned int dot = Str::RCharPosA(high, name, '.');
  return {dot, dot != kNotFound && (sep == kNotFound || dot > sep)};
}

void AddExtension(unsigned int high, char* name, unsigned int exthigh, const char* ext) {
  if (FindExtension(high, name).has) return;
  Str::AppendA(high, name, 0, ".");
  Str::AppendA(high, name, exthigh, ext);
}

// Whether `name` is a root, a drive, "." or ".." or ends in one, which take no extension:
// "C:\", "C:", "x\.", ".\".
bool TakesNoExtension(const char* name, unsigned int len) {
  if (len == 0) return true;
  const char last = name[len - 1];
  if (last == ':') return true;
  if (last != '.' && last != '\\') return false;
  if (len == 1) return true;
  const char before = name[len - 2];
  return before == '.' || before == ':' || before == '\\';
}

void ChangeExtension(unsigned int high, char* name, unsigned int exthigh, const char* ext) {
  const unsigned int len = Str::LengthA(high, name);
  if (TakesNoExtension(name, len)) return;
  const Extension found = FindExtension(high, name);
  if (found.has) {
    // A dot in the last element leaves no room for any extension: the name stays as it is.
    if (found.dot < high) name[found.dot + 1] = '\0';
  } else {
    if (name[len - 1] == '\\') name[len - 1] = '\0';
    Str::AppendA(high, name, 0, ".");
  }
  Str::AppendA(high, name, exthigh, ext);
}

void GetExtension(unsigned int high, const char* name, unsigned int exthigh, char* ext) {
  const Extension found = FindExtension(high, name);
  if (found.has) {
    Str::SliceA(exthigh, ext, high, name, found.dot + 1, kToEnd);
  } else {
    ext[0] = '\0';
  }
}

// The whole name against "*.ext", both in capitals, so `ext` may hold wildcards too.
unsigned char IsExtension(unsigned int high, const char* name, unsigned int exthigh,
                          const char* ext) {
  char text[kPathHigh + 1];
  char mask[kPathHigh + 1];
  Str::CopyA(kPathHigh, text, high, name);
  Str::ConcatA(kPathHigh, mask, 2, "*.", exthigh, ext);
  Str::CapsA(kPathHigh, text);
  Str::CapsA(kPathHigh, mask);
  return Str::MatchA(kPathHigh, text, kPathHigh, mask);
}

void RemoveExtension(unsigned int high, char* name) {
  const Extension found = FindExtension(high, name);
  if (found.has) name[found.dot] = '\0';
}

// The base name, from behind the last colon or backslash up to its last dot, becomes "*";
// a dot that begins the base name (".txt") starts no extension.
void WildcardTail(unsigned int high, char* name) {
  if (Str::LengthA(high, name) == 0) return;
  unsigned int start = 0;
  for (const char sep : {':', '\\'}) {
    const unsigned int at = Str::RCharPosA(high, name, sep);
    if (at != kNotFound && at + 1 > start) start = at + 1;
  }
  if (start > high) return;
  const unsigned int dot = Str::RCharPosA(high, name, '.');
  name[start] = '*';
  if (dot != kNotFound && dot > start) {
    Str::DeleteA(high, name, start + 1, dot - start - 1);
  } else if (start < high) {
    name[start + 1] = '\0';
  }
}

}  // namespace
}  // namespace brelt::fior

namespace FIOR {

namespace path = brelt::fior;

void CRed1A::AddExtension(unsigned int high, char* name, unsigned int exthigh,
                          const char* ext) const {
  path::AddExtension(high, name, exthigh, ext);
}
void AddExtensionA(unsigned int high, char* name, unsigned int exthigh, const char* ext) {
  path::AddExtension(high, name, exthigh, ext);
}

void CRed1A::ChangeExtension(unsigned int high, char* name, unsigned int exthigh,
                             const char* ext) const {
  path::ChangeExtension(high, name, exthigh, ext);
}
void ChangeExtensionA(unsigned int high, char* name, unsigned int exthigh, const char* ext) {
  path::ChangeExtension(high, name, exthigh, ext);
}

void CRed1A::GetExtension(unsigned int high, const char* name, unsigned int exthigh,
                          char* ext) const {
  path::GetExtension(high, name, exthigh, ext);
}
void GetExtensionA(unsigned int high, const char* name, unsigned int exthigh, char* ext) {
  path::GetExtension(high, name, exthigh, ext);
}

unsigned char CRed1A::IsExtension(unsigned int high, const char* name, unsigned int exthigh,
                                  const char* ext) const {
  return path::IsExtension(high, name, exthigh, ext);
}
unsigned char IsExtensionA(unsigned int high, const char* name, unsigned int exthigh,
                           const char* ext) {
  return path::IsExtension(high, name, exthigh, ext);
}

void CRed1A::RemoveExtension(unsigned int high, char* name) const {
  path::RemoveExtension(high, name);
}
void RemoveExtensionA(unsigned int high, char* name) { path::RemoveExtension(high, name); }

void CRed1A::WildcardTail(unsigned int high, char* name) const { path::WildcardTail(high, name); }
void WildcardTailA(unsigned int high, char* name) { path::WildcardTail(high, name); }

}  // namespace FIOR
