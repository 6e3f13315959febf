#include "platform/posix/unicode_case.h"

#include <algorithm>
#include <iterator>

#include "platform/posix/unicode_case_table.h"

namespace brelt::platform::posix {
namespace {

template <std::size_t N>
char16_t Lookup(const CaseRun (&runs)[N], char16_t ch) {
  // The last run that starts at or before ch.
  const CaseRun* it = std::upper_bound(std::begin(runs), std::end(runs), ch,
                                       [](char16_t c, const CaseRun& r) { return c < r.first; });
  if (it == std::begin(runs)) return ch;
  --it;
  if (ch > it->last || (ch - it->first) % it->step != 0) return ch;
  return static_cast<char16_t>(ch + it->delta);
}

}  // namespace

char16_t SimpleUpper(char16_t ch) {
  if (ch < 0x80) return (ch >= u'a' && ch <= u'z') ? static_cast<char16_t>(ch - 32) : ch;
  return Lookup(kUpperRuns, ch);
}

char16_t SimpleLower(char16_t ch) {
  if (ch < 0x80) return (ch >= u'A' && ch <= u'Z') ? static_cast<char16_t>(ch + 32) : ch;
  return Lookup(kLowerRuns, ch);
}

}  // namespace brelt::platform::posix
