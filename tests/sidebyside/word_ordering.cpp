// The locale orderings (and the code order) of a word list, in Windows-1252 bytes: every pair
// as one row per word, then the list as each ordering sorts it.
#include <brelt/str.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "sections.h"

namespace sidebyside {
namespace {

using namespace std::string_view_literals;

// Hyphens and apostrophes in every place, digits, accents, underscores, blanks, the empty
// text, mixed case, and words that begin other words.
constexpr std::string_view kWords[] = {
    ""sv,          "a"sv,          "A"sv,         "b"sv,           "ab"sv,
    "aB"sv,        "Ab"sv,         "AB"sv,        "abc"sv,         "abcd"sv,
    "abd"sv,       "coop"sv,       "co-op"sv,     "Co-op"sv,       "COOP"sv,
    "co'op"sv,     "coo-p"sv,      "-coop"sv,     "coop-"sv,       "co--op"sv,
    "'tis"sv,      "tis"sv,        "it's"sv,      "its"sv,         "-x"sv,
    "x"sv,         "x-"sv,         "-"sv,         "--"sv,          "'"sv,
    "a-b"sv,       "a_b"sv,        "a b"sv,       "ab "sv,         " ab"sv,
    "_a"sv,        "a_"sv,         "_"sv,         " "sv,           "  "sv,
    "0"sv,         "1"sv,          "10"sv,        "2"sv,           "9"sv,
    "a1"sv,        "a10"sv,        "a2"sv,        "1a"sv,          "1-2"sv,
    "e"sv,         "\xE9"sv,       "\xC9"sv,      "\xE8"sv,        "\xEA"sv,
    "\xEB"sv,      "ef"sv,         "\xE9" "a"sv,  "resume"sv,      "r\xE9sum\xE9"sv,
    "R\xE9sum\xE9"sv, "cote"sv,    "c\xF4te"sv,   "cot\xE9"sv,     "c\xF4t\xE9"sv,
    "na\xEFve"sv,  "naive"sv,      "Zoe"sv,       "zo\xEB"sv,      "n"sv,
    "\xF1"sv,      "o"sv,          "\xF6"sv,      "x-ray"sv,       "xray"sv,
    "X-Ray"sv,     "o'neil"sv,     "oneil"sv,     "O'Neil"sv,      "e-mail"sv,
    "email"sv,     "E-Mail"sv,     "re-sign"sv,   "resign"sv,      "it-s"sv,
};

constexpr std::size_t kCount = sizeof kWords / sizeof kWords[0];
static_assert(kCount >= 60);

using Ordering = int (*)(unsigned int, const char*, unsigned int, const char*);

int Order(Ordering order, std::string_view a, std::string_view b) {
  // Each text as a full array of its own length (an empty text as one NUL).
  const char nul = 0;
  const char* pa = a.empty() ? &nul : a.data();
  const char* pb = b.empty() ? &nul : b.data();
  const auto ha = static_cast<unsigned int>(a.empty() ? 0 : a.size() - 1);
  const auto hb = static_cast<unsigned int>(b.empty() ? 0 : b.size() - 1);
  return order(ha, pa, hb, pb);
}

void OneOrdering(Report& r, const std::string& name, Ordering order) {
  for (std::size_t i = 0; i < kCount; ++i) {
    std::string row;
    for (std::size_t j = 0; j < kCount; ++j) {
      const int d = Order(order, kWords[i], kWords[j]);
      row += d < 0 ? '<' : d > 0 ? '>' : '=';
      if (d < -1 || d > 1) row += "!";  // a failure value, shown as such
    }
    r.Line("order." + name + ".pairs." + Dec(static_cast<long long>(i)),
           row + " " + Shown(kWords[i]));
  }
  std::vector<std::size_t> sorted(kCount);
  for (std::size_t i = 0; i < kCount; ++i) sorted[i] = i;
  std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t a, std::size_t b) {
    return Order(order, kWords[a], kWords[b]) < 0;
  });
  for (std::size_t k = 0; k < kCount; ++k) {
    r.Line("order." + name + ".sorted." + Dec(static_cast<long long>(k)), Shown(kWords[sorted[k]]));
  }
}

}  // namespace

void WordOrdering(Report& r) {
  OneOrdering(r, "locale", Str::LocaleCompareA);
  OneOrdering(r, "locale-nocase", Str::LocaleCompareCaseInsensitiveA);
  OneOrdering(r, "code", Str::CompareA);
}

}  // namespace sidebyside
