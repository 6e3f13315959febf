// FIOR: paths as text, and files found by their bare names through a redirection table.
//
// Path text: the backslash separates (a slash only in SplitAllPathA and MakeAllPathA), a colon
// at position 1 marks a drive letter, two backslashes in front a network path, and the last
// dot of the last component starts the extension. Work arrays hold 260 characters; longer
// text is cut. These are text rules: only the expanding operations ask the system, and then
// only for the current drive and directory.
//
// Redirection: a text file maps wildcard patterns of file names to directories, a line each:
//   *.dat = data; ..\shared\data
// A bare name is looked for as written, then in the directories of every matching line (a
// relative directory counts from the redirection file's folder), then in DefaultDir.
//
// Every member has a free twin on the one global CRed2A object, where the table below the
// class says so.
#pragma once

#include <brelt/config.h>

namespace FIOR {

using brelt::FileHandle;
using brelt::WChar;

// One directory of a line, trimmed, as written.
struct DirNode {
  char Dir[260];
  DirNode* Next;
};

// One line of the redirection file: its pattern and its directories in file order.
struct PatternNode {
  char Pattern[260];
  DirNode* Dirs;  // null for a line without directories; searches pass it over
  PatternNode* Next;
};

// A redirection table. Copies share the list of nodes (one of them owns it); nothing frees
// the nodes but ClearList, Init and Done.
class BRELT_API CRed1A {
 public:
  char BaseDir[260];     // the redirection file's folder, without a trailing backslash
  char DefaultDir[260];  // tried after every pattern; empty for none
  PatternNode* List;     // the first line; null for an empty table

  // An empty table; a copy shares the nodes of its source.
  CRed1A();
  CRed1A(const CRed1A& other);
  CRed1A(CRed1A&& other);
  CRed1A& operator=(const CRed1A& other);
  CRed1A& operator=(CRed1A&& other);

  // --- Path text. `flag` not 0: a relative path starts from the current directory of the
  // process (of its drive, for "C:x"); 0: from BaseDir, and a drive in front is dropped.
  // "." and ".." components are resolved, never above a root; dst may be src.
  void ExpandPath2(unsigned int high, const char* src, unsigned int dsthigh, char* dst,
                   unsigned char flag) const;
  void ExpandPath(unsigned int high, const char* src, unsigned int dsthigh, char* dst) const;
  // `name` taken from `dir` in full form; an absolute `name` ignores `dir`.
  void MakePath2(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
                 unsigned int namehigh, const char* name, unsigned char flag) const;
  void MakePath(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
                unsigned int namehigh, const char* name) const;
  // `dir` without a trailing backslash but for a root; `name` with its extension.
  void SplitPath(unsigned int high, const char* path, unsigned int dirhigh, char* dir,
                 unsigned int namehigh, char* name) const;
  // Extensions are given without their dot.
  void AddExtension(unsigned int high, char* name, unsigned int exthigh, const char* ext) const;
  void ChangeExtension(unsigned int high, char* name, unsigned int exthigh,
                       const char* ext) const;
  void GetExtension(unsigned int high, const char* name, unsigned int exthigh, char* ext) const;
  // Case-blind; `ext` may hold wildcards.
  unsigned char IsExtension(unsigned int high, const char* name, unsigned int exthigh,
                            const char* ext) const;
  // The extension goes, with its dot.
  void RemoveExtension(unsigned int high, char* name) const;
  // The base name becomes "*": "dir\abc.txt" gives "dir\*.txt".
  void WildcardTail(unsigned int high, char* name) const;

  // --- The table. Init reads the redirection file `name` (8-bit or 16-bit text); the old
  // table is gone even when the file cannot be opened.
  void Init(unsigned int high, const char* name);
  void ClearList();
  // ClearList, and DefaultDir emptied; BaseDir stays.
  void Done();

  // --- Search: 1 with the path in dst, or 0 with dst unchanged. `first` not 0 tries the name
  // as written (from the current directory) before the table.
  unsigned char FindPathInternal(unsigned char first, unsigned int high, const char* name,
                                 unsigned int dsthigh, char* dst) const;
  unsigned char FindPath(unsigned int high, const char* name, unsigned int dsthigh,
                         char* dst) const;
  // Where a new file goes; no look at the disk. Always 1.
  unsigned char FindNewPath(unsigned int high, const char* name, unsigned int dsthigh,
                            char* dst) const;

  // --- Files by the search; a name found nowhere goes to the system as written.
  FileHandle Open(unsigned int high, const char* name, brelt::ULong share) const;
  FileHandle OpenRead(unsigned int high, const char* name, brelt::ULong share) const;
  FileHandle Create(unsigned int high, const char* name, brelt::ULong share) const;
  void Delete(unsigned int high, const char* name) const;
};

// The table whose search a derived class may replace: FindPath, Open, OpenRead and Delete
// of this class go through the virtual FindPath2.
class BRELT_API CRed2A : public CRed1A {
 public:
  // An empty table; a copy shares the nodes of its source.
  CRed2A();
  CRed2A(const CRed2A& other);
  CRed2A(CRed2A&& other);
  CRed2A& operator=(const CRed2A& other);
  CRed2A& operator=(CRed2A&& other);

  // FindPathInternal with `first` 1.
  virtual unsigned char FindPath2(unsigned int high, const char* name, unsigned int dsthigh,
                                  char* dst);
  // As in CRed1A, with the search through FindPath2.
  unsigned char FindPath(unsigned int high, const char* name, unsigned int dsthigh, char* dst);
  FileHandle Open(unsigned int high, const char* name, brelt::ULong share);
  FileHandle OpenRead(unsigned int high, const char* name, brelt::ULong share);
  void Delete(unsigned int high, const char* name);
};

// --- Free functions on the global object. Each does what the member of the same name does on
// the one global CRed2A.
BRELT_API void ExpandPathA(unsigned int high, const char* src, unsigned int dsthigh, char* dst);
BRELT_API void MakePathA(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
                         unsigned int namehigh, const char* name);
// `name` taken from `dir` with the dots resolved, but no current directory put in front.
BRELT_API void JoinPathA(unsigned int dsthigh, char* dst, unsigned int dirhigh, const char* dir,
                         unsigned int namehigh, const char* name);
// `dir` without a trailing backslash but for a root; `name` with its extension.
BRELT_API void SplitPathA(unsigned int high, const char* path, unsigned int dirhigh, char* dir,
                          unsigned int namehigh, char* name);
BRELT_API void SplitPathW(unsigned int high, const WChar* path, unsigned int dirhigh, WChar* dir,
                          unsigned int namehigh, WChar* name);
// `path` must hold a NUL (`high` is not read); `ext` comes with its dot, `dir` with its
// trailing separator.
BRELT_API void SplitAllPathA(unsigned int high, const char* path, unsigned int drivehigh,
                             char* drive, unsigned int dirhigh, char* dir, unsigned int namehigh,
                             char* name, unsigned int exthigh, char* ext);
// `dst` must have room for the whole result.
BRELT_API void MakeAllPathA(unsigned int dsthigh, char* dst, unsigned int drivehigh,
                            const char* drive, unsigned int dirhigh, const char* dir,
                            unsigned int namehigh, const char* name, unsigned int exthigh,
                            const char* ext);
// As the members of the same names.
BRELT_API void AddExtensionA(unsigned int high, char* name, unsigned int exthigh,
                             const char* ext);
BRELT_API void ChangeExtensionA(unsigned int high, char* name, unsigned int exthigh,
                                const char* ext);
BRELT_API void GetExtensionA(unsigned int high, const char* name, unsigned int exthigh,
                             char* ext);
BRELT_API unsigned char IsExtensionA(unsigned int high, const char* name, unsigned int exthigh,
                                     const char* ext);
BRELT_API void RemoveExtensionA(unsigned int high, char* name);
BRELT_API void WildcardTailA(unsigned int high, char* name);

// The global table: InitA reads a redirection file into it, Done frees it.
BRELT_API void InitA(unsigned int high, const char* name);
BRELT_API void Done();
// Without the virtual call.
BRELT_API unsigned char FindPathA(unsigned int high, const char* name, unsigned int dsthigh,
                                  char* dst);
// As the members of the same names.
BRELT_API unsigned char FindNewPathA(unsigned int high, const char* name, unsigned int dsthigh,
                                     char* dst);
BRELT_API FileHandle OpenA(unsigned int high, const char* name, brelt::ULong share);
BRELT_API FileHandle OpenReadA(unsigned int high, const char* name, brelt::ULong share);
BRELT_API FileHandle CreateA(unsigned int high, const char* name, brelt::ULong share);
BRELT_API void DeleteA(unsigned int high, const char* name);

}  // namespace FIOR
