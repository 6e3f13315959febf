// FIOR: where an existing file is. The name as written first, then the directories of every
// line whose pattern matches, in file order, then DefaultDir. Each candidate costs one test
// of existence; an absolute name never reaches the table.
#include "brelt/fio.h"
#include "brelt/str/core.h"
#include "brelt/str/match.h"
#include "fior/absolute.h"
#include "fior/global_table.h"

namespace {

using brelt::fior::kPathHigh;

// DefaultDir and `name` joined by one backslash.
void UnderDefaultDir(const FIOR::CRed1A& table, unsigned int high, const char* name,
                     char* tmp) {
  const unsigned int len = Str::LengthA(kPathHigh, table.DefaultDir);
  const bool slash = len > 0 && table.DefaultDir[len - 1] == '\\';
  Str::ConcatA(kPathHigh, tmp, kPathHigh, table.DefaultDir, slash ? 0 : 1, slash ? "" : "\\");
  Str::AppendA(kPathHigh, tmp, high, name);
}

}  // namespace

namespace brelt::fior {

// Shared with FindNewPath: the text that DefaultDir gives `name`, in full form.
void DefaultDirPath(const FIOR::CRed1A& table, unsigned int high, const char* name,
                    unsigned int dsthigh, char* dst) {
  char tmp[kPathHigh + 1];
  UnderDefaultDir(table, high, name, tmp);
  table.ExpandPath2(kPathHigh, tmp, dsthigh, dst, 0);
}

}  // namespace brelt::fior

namespace FIOR {

unsigned char CRed1A::FindPathInternal(unsigned char first, unsigned int high, const char* name,
                                       unsigned int dsthigh, char* dst) const {
  if (first != 0 && FIO::ExistsA(high, name) != 0) {
    ExpandPath2(high, name, dsthigh, dst, 1);
    return 1;
  }
  if (brelt::fior::IsAbsolute(high, name)) {
    if (FIO::ExistsA(high, name) == 0) return 0;
    Str::CopyA(dsthigh, dst, high, name);
    return 1;
  }
  char tmp[kPathHigh + 1];
  for (const PatternNode* line = List; line != nullptr; line = line->Next) {
    if (line->Dirs == nullptr || Str::MatchA(high, name, kPathHigh, line->Pattern) == 0) continue;
    for (const DirNode* dir = line->Dirs; dir != nullptr; dir = dir->Next) {
      MakePath2(kPathHigh, tmp, kPathHigh, dir->Dir, high, name, 0);
      if (FIO::ExistsA(kPathHigh, tmp) != 0) {
        Str::CopyA(dsthigh, dst, kPathHigh, tmp);
        return 1;
      }
    }
  }
  if (DefaultDir[0] == '\0') return 0;
  brelt::fior::DefaultDirPath(*this, high, name, kPathHigh, tmp);
  if (FIO::ExistsA(kPathHigh, tmp) == 0) return 0;
  Str::CopyA(dsthigh, dst, kPathHigh, tmp);
  return 1;
}

unsigned char CRed1A::FindPath(unsigned int high, const char* name, unsigned int dsthigh,
                               char* dst) const {
  return FindPathInternal(1, high, name, dsthigh, dst);
}

unsigned char CRed2A::FindPath2(unsigned int high, const char* name, unsigned int dsthigh,
                                char* dst) {
  return FindPathInternal(1, high, name, dsthigh, dst);
}

unsigned char CRed2A::FindPath(unsigned int high, const char* name, unsigned int dsthigh,
                               char* dst) {
  return FindPath2(high, name, dsthigh, dst);
}

unsigned char FindPathA(unsigned int high, const char* name, unsigned int dsthigh, char* dst) {
  return brelt::fior::GlobalTable().FindPathInternal(1, high, name, dsthigh, dst);
}

}  // namespace FIOR
