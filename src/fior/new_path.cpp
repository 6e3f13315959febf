// FIOR: where a new file goes. Only text is looked at, never the disk: the first matching
// line with directories decides, else DefaultDir, else BaseDir.
#include "brelt/fior.h"
#include "brelt/str/match.h"
#include "fior/absolute.h"
#include "fior/global_table.h"

namespace FIOR {

unsigned char CRed1A::FindNewPath(unsigned int high, const char* name, unsigned int dsthigh,
                                  char* dst) const {
  if (brelt::fior::IsAbsolute(high, name)) {
    ExpandPath2(high, name, dsthigh, dst, 0);
    return 1;
  }
  for (const PatternNode* node = List; node != nullptr; node = node->Next) {
    if (node->Dirs == nullptr ||
        Str::MatchA(high, name, brelt::fior::kPathHigh, node->Pattern) == 0) {
      continue;
    }
    MakePath2(dsthigh, dst, brelt::fior::kPathHigh, node->Dirs->Dir, high, name, 0);
    return 1;
  }
  if (DefaultDir[0] != '\0') {
    brelt::fior::DefaultDirPath(*this, high, name, dsthigh, dst);
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
