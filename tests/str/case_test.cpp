// Str case folding and ordering in both twins: folds of characters and of arrays up to their
// last element, unsigned code order, and the locale orderings that hold on every target.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::WChar;
using brelt::test::As;
using brelt::test::GuardedArray;
using WText = std::basic_string<WChar>;
using SV = std::string_view;

GuardedArray<WChar> ArrayW(const WText& text) {
  return GuardedArray<WChar>(std::basic_string_view<WChar>(text));
}

TEST(CapLow, FoldsLettersOnlyInBothWidths) {
  // ASCII rows (the neighbours of both letter ranges among them) run through both widths.
  // Latin-1 with partners in Latin Extended, Greek, Cyrillic; sharp s and the euro stay.
  // Alpha with ypogegrammeni: its full capital is two characters, its simple one is one.
  // A character whose partner maps elsewhere stays both ways (micro sign, capital I with dot,
  // dotless i, long s, D with small z caron, final sigma, capital sharp s, Kelvin sign), while
  // the pairs beside them still fold.
  struct Row { unsigned in, upper, lower; } rows[] = {
      {'a', 'A', 'a'}, {'Z', 'Z', 'z'}, {'@', '@', '@'}, {'[', '[', '['}, {'`', '`', '`'},
      {'{', '{', '{'}, {0xE9, 0xC9, 0xE9}, {0xFF, 0x178, 0xFF}, {0x178, 0x178, 0xFF},
      {0x3A3, 0x3A3, 0x3C3}, {0x44F, 0x42F, 0x44F}, {0xDF, 0xDF, 0xDF}, {0x20AC, 0x20AC, 0x20AC},
      {0x1FB3, 0x1FBC, 0x1FB3}, {0xB5, 0xB5, 0xB5}, {0x3BC, 0x39C, 0x3BC}, {0x130, 0x130, 0x130},
      {0x131, 0x131, 0x131}, {0x17F, 0x17F, 0x17F}, {0x1C5, 0x1C5, 0x1C5}, {0x1C6, 0x1C4, 0x1C6},
      {0x3C2, 0x3C2, 0x3C2}, {0x3C3, 0x3A3, 0x3C3}, {0x1E9E, 0x1E9E, 0x1E9E},
      {0x212A, 0x212A, 0x212A}};
  for (const Row& r : rows) {
    EXPECT_EQ(unsigned{Str::CapW(static_cast<WChar>(r.in))}, r.upper) << std::hex << r.in;
    EXPECT_EQ(unsigned{Str::LowW(static_cast<WChar>(r.in))}, r.lower) << std::hex << r.in;
    if (r.in >= 0x80) continue;
    EXPECT_EQ(unsigned(Str::CapA(static_cast<char>(r.in))), r.upper) << char(r.in);
    EXPECT_EQ(unsigned(Str::LowA(static_cast<char>(r.in))), r.lower) << char(r.in);
  }
}

TEST(CapsLows, FoldUpToTheTextEndInBothWidths) {
  // ASCII rows run through both widths. No NUL: full array; a bound of all ones: up to the NUL.
  const unsigned kOwn = 0;
  struct Row { WText before; bool upper; WText after; unsigned high = kOwn; } rows[] = {
      {{'a', 'b', 'c'}, true, {'A', 'B', 'C'}}, {{'A', '1', '-', 'Z'}, false, {'a', '1', '-', 'z'}},
      {{'a', 0xE9, 'z'}, true, {'A', 0xC9, 'Z'}}, {{'A', 0x42F, 'Q'}, false, {'a', 0x44F, 'q'}},
      {{'a', 'b', 0, 'c'}, true, {'A', 'B', 0, 'c'}, 0xFFFFFFFFu},
      {{'x', 0xFF, 0, 'y'}, true, {'X', 0x178, 0, 'y'}, 0xFFFFFFFFu}};
  for (const Row& r : rows) {
    auto w = ArrayW(r.before);
    (r.upper ? Str::CapsW : Str::LowsW)(r.high == kOwn ? w.high() : r.high, w.data());
    EXPECT_EQ(WText(w.data(), w.size()), r.after) << w.Raw();
    if (r.before.find_first_of(WText{0xE9, 0xFF, 0x42F}) != WText::npos) continue;
    GuardedArray<char> a(r.before.size());
    for (std::size_t k = 0; k < a.size(); ++k) a[k] = static_cast<char>(r.before[k]);
    (r.upper ? Str::CapsA : Str::LowsA)(r.high == kOwn ? a.high() : r.high, a.data());
    EXPECT_EQ(As<WChar>(SV(a.data(), a.size())), r.after) << w.Raw();
  }
}

TEST(Compare, OrdersByUnsignedCodeInBothWidths) {
  // "\0" marks a NUL; an array without one is full. Codes are unsigned, first and behind.
  const SV kNul("\0", 1);
  const struct Row { SV a, b; int want; } rows[] = {
      {kNul, kNul, 0},  {kNul, "a", -1},  {"ab", "abc", -1},  {"abd", "abc", 1},
      {"abc", SV("abc\0", 4), 0},  {SV("abc\0x", 5), SV("abc\0y", 5), 0},
      {"z", "\xE9", -1},  {"abz", "ab\xE9", -1},  {"B", "a", -1}};
  for (const Row& r : rows) {
    GuardedArray<char> a(r.a), b(r.b);
    auto wa = ArrayW(As<WChar>(r.a)), wb = ArrayW(As<WChar>(r.b));
    EXPECT_EQ(Str::CompareA(a.high(), a.data(), b.high(), b.data()), r.want) << r.a << "|" << r.b;
    EXPECT_EQ(Str::SameA(a.high(), a.data(), b.high(), b.data()), r.want == 0 ? 1 : 0);
    EXPECT_EQ(Str::CompareW(wa.high(), wa.data(), wb.high(), wb.data()), r.want) << r.a;
    EXPECT_EQ(Str::SameW(wa.high(), wa.data(), wb.high(), wb.data()), r.want == 0 ? 1 : 0);
  }
  GuardedArray<char> a(SV("ab\0", 3)), b(SV("ab\0", 3));
  EXPECT_EQ(Str::CompareA(0xFFFFFFFFu, a.data(), 0xFFFFFFFFu, b.data()), 0);
  auto hi = ArrayW(WText{'a', 0xFFFF}), lo = ArrayW(WText{'a', 'b'});  // unsigned 16 bits
  EXPECT_EQ(Str::CompareW(hi.high(), hi.data(), lo.high(), lo.data()), 1);
}

TEST(LocaleCompareA, EmptyTextsAndPlainLatinOrder) {
  // Letters first, case only breaks ties, lower before upper; digits before letters and
  // symbols before digits, in the word sort's order of symbols. Lengths count, not
  // terminators. Hyphens, apostrophes and control characters count only when all else is
  // equal: the text without them first, then the one whose mark stands further right, then
  // the lighter mark (control, apostrophe, hyphen).
  const SV kNul("\0", 1);
  struct Row { SV a, b; int withCase, withoutCase; } rows[] = {
      {kNul, kNul, 0, 0},    {kNul, "a", -1, -1},              {"a", kNul, 1, 1},
      {"a", "B", -1, -1},    {"abc", "ABC", -1, 0},            {"abc", SV("abc\0zz", 6), 0, 0},
      {"1", "a", -1, -1},    {"-", "1", -1, -1},               {"a b", "a_", -1, -1},
      {"a_b", "a1", -1, -1}, {"a~", "a+", -1, -1},             {"-x", "a", 1, 1},
      {"coop", "co-op", -1, -1},  {"co-op", "Coop", -1, 1},    {"coo-p", "co-op", -1, -1},
      {"co'op", "co-op", -1, -1}, {"co-op", "co--op", -1, -1}, {"a-b", "aB", -1, 1},
      {"ab", "a\x01" "b", -1, -1},   {"a\x01" "b", "a'b", -1, -1},   {"'", "-", -1, -1}};
  for (const Row& r : rows) {
    GuardedArray<char> a(r.a), b(r.b);
    SCOPED_TRACE(std::string(r.a) + "|" + std::string(r.b));
    EXPECT_EQ(Str::LocaleCompareA(a.high(), a.data(), b.high(), b.data()), r.withCase);
    EXPECT_EQ(Str::LocaleCompareCaseInsensitiveA(a.high(), a.data(), b.high(), b.data()),
              r.withoutCase);
  }
}

}  // namespace
