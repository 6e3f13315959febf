// Windows-style names over the POSIX tree.
//
// A name is 8-bit text in the code page of the A operations. Backslash and slash both
// separate; "X:" in front names a drive (drives.h), "X:rest" starts from that drive's current
// directory, a leading separator from the current drive's root, anything else from the current
// directory. "." and ".." are resolved in the text, never above a drive's root, and trailing
// dots and blanks of a component are dropped, as Windows does. Characters Windows refuses in
// names (controls, < > " | and, outside patterns, * ?) fail with kErrorInvalidName; a
// network name (two leading separators) fails with kErrorBadNetPath.
//
// Case: Windows names ignore case. A component is looked up exactly first; only when no entry
// has exactly that name is its folder read for an entry that differs in case alone, and the
// first one the folder lists is taken. So on POSIX two names that differ only in case both stay
// reachable by their exact spelling, and a new file gets the case it is given.
#pragma once

#include <cstdint>

namespace brelt::platform::posix {

inline constexpr std::uint32_t kNativeMax = 4096;

struct NativeName {
  char path[kNativeMax];     // absolute native path, NUL-terminated
  std::uint32_t length;      // of path
  std::uint32_t lastStart;   // where the last component begins; == length for a drive's root
  char drive;                // the drive the name lies on
  bool parentFound;          // every folder on the way exists
  int missingErrno;          // not 0: the lookup found no entry, and this is why
  bool trailingSeparator;    // the name ended in a separator
};

enum class NameUse {
  kPlain,    // a file or folder
  kPattern,  // a search pattern: * and ? are allowed in the last component, which is kept
             // as written (in native bytes) and not looked up
  kNewName,  // a name to be given: the last component is kept as written
  kAsWritten,  // every component as written, nothing looked up on disk
};

// Sets the last error and answers false for a name that cannot be resolved.
bool ResolveName(const char* name, NameUse use, NativeName* out);

// The last error after a call on `n` failed with errno: a missing entry is "file not found"
// where its folder exists, "path not found" where a folder on the way is missing.
bool FailForName(const NativeName& n);

}  // namespace brelt::platform::posix
