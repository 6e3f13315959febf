// The one-character upper-case fold of each width, shared by the folds, the matchers and the
// sub-string walk: 8-bit under the system's code page, 16-bit through the runtime's fold.
#pragma once

#include "brelt/config.h"
#include "platform/text_fold.h"

namespace brelt::str {

inline char FoldUpper(char ch) { return platform::UpperCharA(ch); }
inline WChar FoldUpper(WChar ch) { return platform::UpperW(ch); }

// Equal under the fold. Equal codes need no fold, since folding is a function of the code.
template <class T>
inline bool SameFolded(T a, T b) {
  return a == b || FoldUpper(a) == FoldUpper(b);
}

}  // namespace brelt::str
