// Pairs of Windows-1252 texts as the Windows word sort orders them, for the ordering of each
// platform layer: accents in its order, the letters that sort as two, the fractions between 0
// and 1, symbols in its order rather than by code, and the characters that weigh only on the
// last level. Results as CollateA gives them: 1, 2, 3 for less, equal, greater.
#pragma once

#include <string_view>

namespace brelt::test {

struct WordSortRow {
  std::string_view a, b;
  int withCase, withoutCase;
};

inline constexpr WordSortRow kWordSort1252[] = {
    {"e", "\xE9", 1, 1},       {"\xE9", "\xC9", 1, 2},     {"\xE1", "\xE0", 1, 1},
    {"\xE0", "\xE2", 1, 1},    {"\xE4", "\xE3", 1, 1},     {"\xE3", "\xE5", 1, 1},
    {"\xBA", "\xF3", 1, 1},    {"\xF5", "\xF8", 1, 1},     {"\xF8", "oz", 1, 1},
    {"\xF0", "dz", 1, 1},      {"\xE6", "ae", 2, 2},       {"\xC6", "Ae", 3, 2},
    {"\xDF", "ss", 2, 2},      {"\xFE", "th", 2, 2},       {"\x9C", "oe", 2, 2},
    {"\xB9", "1", 3, 3},       {"0z", "\xBC", 1, 1},       {"\xBEz", "1", 1, 1},
    {"tz", "\x99", 1, 1},      {"\x99z", "u", 1, 1},       {"a~", "a+", 1, 1},
    {"a\xA0", "a\t", 1, 1},    {"^a", "\x88" "b", 1, 1},   {"\x81" "B", "\x9D" "b", 1, 1},
    {"a\xAD" "b", "ab", 2, 2}, {"a\x01" "b", "a'b", 1, 1}, {"a-b", "a\x96" "b", 1, 1},
    {"\xE9", "f", 1, 1},
};

}  // namespace brelt::test
