// FIOR: where a new file goes. Only text is looked at, never the disk: the first matching
// line with directories decides, else DefaultDir, else BaseDir.
#include "brelt/fior.h"
#include "brelt/str/core.h"
#include "brelt/str/match.h"
#include "fior/global_table.h"

namespace {

using brelt::fior::kPathHigh;

// A backslash in front, or a drive letter with its colon.
bool IsAbsolute(unsigned int high, const char* name) {
  const unsigned int len = Str::LengthA(high, name);
  return (len >= 1 && name[0] == '\\') || (len >= 2 && name[1] == ':');
}

}  // namespace

namespace FIOR {

unsigned char CRed1A::FindNewPath(unsigned int high, const char* name, unsigned int dsthigh,
                                  char* dst) const {
  if (IsAbsolute(high, name)) {
    ExpandPath2(high, name, dsthigh, dst, 0);
    return 1;
  }
  for (const PatternNode* node = List; node != nullptr; node = node->Next) {
    if (node->Dirs == nullptr || Str::MatchA(high, name, kPathHigh, node->Pattern) == 0) {
      continue;
    }
    MakePath2(dsthigh, dst, kPathHigh, node->Dirs->Dir, high, name, 0);
    return 1;
  }
  if (DefaultDir[0] != '\0') {
    char tmp[kPathHigh + 1];
    Str::CopyA(kPathHigh, tmp, kPathHigh, DefaultDir);
    const unsigned int len = Str::LengthA(kPathHigh, tmp);
    if (tmp[len - 1] != '\\') Str::AppendA(kPathHigh, tmp, 0, "\\");
    Str::AppendA(kPathHigh, tmp, high, name);
    ExpandPath2(kPathHigh, tmp, dsthigh, dst, 0);
    return 1;
  }
  ExpandPath2(high, name, dsthigh, dst, 0);
  return 1;
}

unsigned char FindNewPathA(unsigned int high, const char* name, unsigned int dsthigh,
                           char* dst) {
  return brelt::fior::GlobalTable().FindNewPath(high, name, dsthigh, dst);
}

}  // namespace FIOR
